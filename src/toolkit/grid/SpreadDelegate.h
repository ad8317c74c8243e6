#pragma once

#include "toolkit/grid/SpreadEditing.h"

namespace tsms {

/// Draws the cells of a grid, beside editing them.
class SpreadDelegate final : public SpreadEditing
{
public:
    using SpreadEditing::SpreadEditing;

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override;
    QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
    bool helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                   const QModelIndex& index) override;

    /// The text as it is drawn: grouped in a column of numbers.
    QString ShownText(const QModelIndex& index) const;

private:
    void PaintButton(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
    void PaintText(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index) const;
};

} // namespace tsms
