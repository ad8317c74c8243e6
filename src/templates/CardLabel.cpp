#include "templates/CardLabel.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace tsms {

CardLabel::CardLabel(QWidget* parent, const QString& name) : Label(parent, name)
{
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    setContentsMargins(5, 3, 5, 3);
}

/// One line; the layout decides how many there will be.
QSize CardLabel::sizeHint() const
{
    const QMargins margins = contentsMargins();
    return QSize(40, fontMetrics().height() + margins.top() + margins.bottom());
}

int CardLabel::LinesShown() const
{
    return std::max(1, contentsRect().height() / fontMetrics().lineSpacing());
}

void CardLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const QRect room = contentsRect();
    const QFontMetrics metrics = fontMetrics();
    const int last = LinesShown() - 1;
    QPointF place = room.topLeft();
    int drawn = 0;
    cut_ = false;
    const QStringList paragraphs = text().split(u'\n');
    for (qsizetype paragraph = 0; paragraph < paragraphs.size() && !cut_; ++paragraph) {
        QTextLayout layout(paragraphs[paragraph], font());
        QTextOption option(alignment());
        option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
        layout.setTextOption(option);
        layout.beginLayout();
        QTextLine line = layout.createLine();
        while (line.isValid()) {
            line.setLineWidth(room.width());
            const bool more = line.textStart() + line.textLength() < paragraphs[paragraph].size() ||
                              paragraph + 1 < paragraphs.size();
            if (drawn == last && more) {
                QString rest = paragraphs[paragraph].mid(line.textStart());
                if (paragraph + 1 < paragraphs.size())
                    rest += QStringLiteral("…");
                painter.drawText(QRectF(place, QSizeF(room.width(), metrics.height())),
                                 static_cast<int>(alignment() & Qt::AlignHorizontal_Mask) |
                                     Qt::TextSingleLine,
                                 metrics.elidedText(rest, Qt::ElideRight, room.width()));
                cut_ = true;
                break;
            }
            line.draw(&painter, place);
            place.ry() += metrics.lineSpacing();
            ++drawn;
            line = layout.createLine();
        }
        layout.endLayout();
    }
}

/// The whole caption, where it is cut.
bool CardLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return Label::event(event);
    if (cut_) {
        const QString words = text().toHtmlEscaped().replace(u'\n', QStringLiteral("<br>"));
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           QStringLiteral("<qt>%1</qt>").arg(words), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

} // namespace tsms
