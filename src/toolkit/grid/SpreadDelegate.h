#pragma once

#include <QStyledItemDelegate>

namespace tsms {

class fpSpread;

/// Draws the cells of a grid and edits its edit cells.
class SpreadDelegate final : public QStyledItemDelegate
{
public:
    explicit SpreadDelegate(fpSpread& grid);

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The text as it is drawn: grouped in a column of numbers.
    QString ShownText(const QModelIndex& index) const;

private:
    void PaintButton(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;

    fpSpread& grid_;
};

} // namespace tsms
