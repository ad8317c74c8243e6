#include "toolkit/grid/SpreadTitles.h"

#include "toolkit/look/Theme.h"

#include <QAbstractButton>
#include <QEvent>
#include <QHeaderView>
#include <QPainter>
#include <QTableView>

#include <algorithm>

namespace tsms {

namespace {

constexpr QColor TitleBack{233, 240, 243};
constexpr QColor TitleLine{205, 216, 220};

class SpreadTitles final : public QHeaderView
{
public:
    SpreadTitles(Qt::Orientation orientation, QWidget* parent) : QHeaderView(orientation, parent)
    {
        setMinimumSectionSize(4);
        setSectionsClickable(false);
        setHighlightSections(false);
        setDefaultAlignment(Qt::AlignCenter);
        setFocusPolicy(Qt::NoFocus);
    }

    // The grid sets both sizes. The base would measure a hundred titles at each change of the grid.
    QSize sizeHint() const override { return minimumSize(); }

protected:
    void paintSection(QPainter* painter, const QRect& rect, int section) const override
    {
        const QVariant back = model()->headerData(section, orientation(), Qt::BackgroundRole);
        const QVariant text = model()->headerData(section, orientation(), Qt::ForegroundRole);
        const QString title = model()->headerData(section, orientation(), Qt::DisplayRole).toString();
        painter->fillRect(rect, back.isValid() ? back.value<QColor>() : TitleBack);
        painter->fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), TitleLine);
        painter->fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), TitleLine);
        painter->setPen(text.isValid() ? text.value<QColor>() : theme::StripText);
        const QRect room = rect.adjusted(1, 0, -2, -1);
        painter->drawText(room, Qt::AlignCenter | Qt::TextSingleLine | Qt::TextDontClip,
                          painter->fontMetrics().elidedText(title, Qt::ElideRight, room.width()));
    }

    void paintEvent(QPaintEvent* event) override
    {
        QHeaderView::paintEvent(event);
        QRect beyond = viewport()->rect();
        const int end = length() - offset();
        if (orientation() == Qt::Horizontal) {
            beyond.setLeft(std::max(end, 0));
        } else {
            beyond.setTop(std::max(end, 0));
        }
        if (!beyond.isEmpty())
            QPainter(viewport()).fillRect(beyond, TitleBack);
    }
};

class CornerPainter final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Paint)
            return false;
        auto* corner = static_cast<QWidget*>(watched);
        QPainter painter(corner);
        painter.fillRect(corner->rect(), TitleLine);
        painter.fillRect(corner->rect().adjusted(0, 0, -1, -1), TitleBack);
        return true;
    }
};

} // namespace

QHeaderView* MakeTitles(Qt::Orientation orientation, QTableView& grid)
{
    return new SpreadTitles(orientation, &grid);
}

void DrawCornerLikeTitles(QTableView& grid)
{
    if (auto* corner = grid.findChild<QAbstractButton*>(QString(), Qt::FindDirectChildrenOnly))
        corner->installEventFilter(new CornerPainter(&grid));
}

} // namespace tsms
