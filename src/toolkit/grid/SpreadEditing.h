#pragma once

#include <QStyledItemDelegate>

class QInputMethodEvent;

namespace tsms {

class fpSpread;

/// Edits the cells of a grid: the editor of a cell, what it takes, what ends it. An input method takes a
/// change of the focus for the end of its composition, and drops the keys that are on their way to it. An
/// editor works without the focus, therefore: the grid keeps it and hands on what comes.
class SpreadEditing : public QStyledItemDelegate
{
public:
    explicit SpreadEditing(fpSpread& grid);

    QWidget* Editor() const;  ///< null: no cell is being edited
    bool IsComposing() const; ///< the input method has something under way in the editor

    /// The keyboard acts on the grid, on its cells or in the editor of one.
    bool HasAttention() const;

    void Commit(); ///< ends the edit; the text that stands in the editor goes into the cell
    void Cancel();

    /// A key that came to the grid and belongs to the editor: true when that has had it.
    bool HandOn(QEvent& event);

    /// What an input method writes goes into the editor, which is opened for it where the cell can be edited.
    void Compose(QInputMethodEvent& event);

    /// What the editor answers, in the grid's own coordinates.
    QVariant Answer(Qt::InputMethodQuery query) const;

    QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const override;
    void setEditorData(QWidget* editor, const QModelIndex& index) const override;
    void setModelData(QWidget* editor, QAbstractItemModel* model, const QModelIndex& index) const override;
    void updateEditorGeometry(QWidget* editor, const QStyleOptionViewItem& option,
                              const QModelIndex& index) const override;
    void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
    bool eventFilter(QObject* object, QEvent* event) override;

protected:
    fpSpread& grid_;

private:
    void WalkBack();

    bool handsOn_ = false; // a key is with the editor, and comes back when it has no use for it
};

} // namespace tsms
