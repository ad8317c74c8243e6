#include "toolkit/grid/SpreadDelegate.h"

#include "runtime/Numbers.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/SpreadModel.h"
#include "toolkit/grid/SpreadSelection.h"
#include "toolkit/look/Theme.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include <algorithm>

namespace tsms {

namespace {

constexpr int Padding = 2;
constexpr int CellPictureSize = 16;
constexpr int DrawnCharacters = 1000; // no cell is wide enough for more

const SpreadModel& Cells(const QModelIndex& index)
{
    return static_cast<const SpreadModel&>(*index.model());
}

int Col(const QModelIndex& index)
{
    return index.column() + 1;
}

/// `share` parts of a hundred of `over` laid on `ground`.
QColor Tinted(const QColor& ground, const QColor& over, int share)
{
    const auto mixed = [share](int below, int above) {
        return (below * (100 - share) + above * share) / 100;
    };
    return QColor(mixed(ground.red(), over.red()), mixed(ground.green(), over.green()),
                  mixed(ground.blue(), over.blue()));
}

/// Where text may stand: with air at its sides, or without where it would not fit. The lines take the last
/// pixel.
QRect TextRoom(const QRect& cell, int width)
{
    const QRect room = cell.adjusted(Padding, 0, -Padding - 1, -1);
    return width <= room.width() ? room : cell.adjusted(1, 0, -2, -1);
}

/// A short text that is a little too wide is drawn narrower: names and numbers are seldom cut.
bool Fits(const QRect& cell, const QString& text, int width)
{
    constexpr double Narrowest = 0.8;
    constexpr int Short = 20;
    return width * (text.size() <= Short ? Narrowest : 1.0) <= TextRoom(cell, width).width();
}

QRect Centred(const QRect& room, int size)
{
    return QRect(room.left() + (room.width() - size) / 2, room.top() + (room.height() - size) / 2, size,
                 size);
}

} // namespace

void SpreadDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                           const QModelIndex& index) const
{
    const SpreadModel& cells = Cells(index);
    const bool active = index == grid_.currentIndex();
    const bool lit = active && HasAttention();
    const QVariant ownBack = index.data(Qt::BackgroundRole);
    QColor back = ownBack.isValid() ? ownBack.value<QColor>() : theme::White;
    if (lit) {
        back = theme::Focus;
    } else if (option.state.testFlag(QStyle::State_Selected) && HasBlock(grid_)) {
        back = Tinted(back, theme::Accent, 25);
    } else if (grid_.rowCursor_ && index.row() == grid_.currentIndex().row()) {
        back = Tinted(back, theme::Focus, 50);
    }
    const QRect& cell = option.rect;
    painter->save();
    painter->fillRect(cell, back);
    if (const QVariant picture = index.data(Qt::DecorationRole); picture.isValid()) {
        const QRect room = cell.adjusted(0, 0, -1, -1);
        const int size = std::min({CellPictureSize, room.width(), room.height()});
        picture.value<QIcon>().paint(painter, Centred(room, size));
    } else if (cells.Type(Col(index)) == SpreadModel::CellType::Button) {
        PaintButton(*painter, option, index);
    } else {
        painter->save();
        PaintText(*painter, option, index);
        painter->restore();
    }
    painter->fillRect(QRect(cell.right(), cell.top(), 1, cell.height()), grid_.gridColor_);
    painter->fillRect(QRect(cell.left(), cell.bottom(), cell.width(), 1), grid_.gridColor_);
    if (active) {
        painter->setPen(lit ? theme::Accent : theme::Frame);
        painter->setBrush(Qt::NoBrush);
        painter->drawRect(cell.adjusted(0, 0, -1, -1));
    }
    painter->restore();
}

QSize SpreadDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const
{
    const int width = option.fontMetrics.horizontalAdvance(ShownText(index)) + 2 * Padding + 1;
    return QSize(width, option.fontMetrics.height() + 1);
}

/// The whole text of a cell that is too narrow for it.
bool SpreadDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                               const QModelIndex& index)
{
    if (event->type() != QEvent::ToolTip || !index.isValid() || index.data(Qt::DecorationRole).isValid())
        return false;
    const QString text = ShownText(index);
    if (Fits(option.rect, text, option.fontMetrics.horizontalAdvance(text))) {
        QToolTip::hideText();
    } else {
        const QString whole = Manageable(index.data(Qt::DisplayRole).toString()).toHtmlEscaped();
        QToolTip::showText(event->globalPos(), QStringLiteral("<qt>%1</qt>").arg(whole), view, option.rect);
    }
    return true;
}

QString SpreadDelegate::ShownText(const QModelIndex& index) const
{
    QString text = index.data(Qt::DisplayRole).toString().left(DrawnCharacters);
    if (Cells(index).IsNumber(Col(index)))
        return GroupDigits(text);
    text.replace(QStringLiteral("\r\n"), QStringLiteral(" "));
    return text.replace(u'\n', u' ');
}

void SpreadDelegate::PaintButton(QPainter& painter, const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const
{
    const SpreadModel& cells = Cells(index);
    QColor face = cells.ButtonFace(Col(index));
    if (grid_.mouse_.HoldsDown(index)) {
        face = theme::Pressed(face);
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
        face = theme::Hovered(face);
    }
    const QRectF place = QRectF(option.rect).adjusted(1.5, 1.5, -2.5, -2.5);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(theme::Pressed(face));
    painter.setBrush(face);
    painter.drawRoundedRect(place, 2, 2);
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(cells.ButtonText(Col(index)));
    painter.setFont(option.font);
    painter.drawText(option.rect.adjusted(0, 0, -1, -1),
                     Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip, ShownText(index));
}

void SpreadDelegate::PaintText(QPainter& painter, const QStyleOptionViewItem& option,
                               const QModelIndex& index) const
{
    const QVariant own = index.data(Qt::ForegroundRole);
    QColor color = own.isValid() ? own.value<QColor>() : theme::Text;
    const bool lit = index == grid_.currentIndex() && HasAttention();
    if (lit && color.lightness() > 200)
        color = theme::Text; // light words cannot be read on the focus colour
    if (!grid_.isEnabled())
        color = theme::Disabled;
    painter.setPen(color);
    painter.setFont(option.font);
    QString text = ShownText(index);
    int width = option.fontMetrics.horizontalAdvance(text);
    if (!Fits(option.rect, text, width)) {
        text = option.fontMetrics.elidedText(text, Qt::ElideRight, TextRoom(option.rect, width).width());
        width = option.fontMetrics.horizontalAdvance(text);
    }
    QRectF room = TextRoom(option.rect, width);
    const auto flags =
        static_cast<int>(Cells(index).Alignment(Col(index))) | Qt::TextSingleLine | Qt::TextDontClip;
    if (width > room.width()) {
        const double narrow = room.width() / width;
        painter.translate(room.left(), 0);
        painter.scale(narrow, 1);
        room.moveLeft(0);
        room.setWidth(width);
    }
    painter.drawText(room, flags, text);
}

} // namespace tsms
