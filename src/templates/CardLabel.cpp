#include "templates/CardLabel.h"

#include "toolkit/fields/LimitRule.h"

#include <QHelpEvent>
#include <QPainter>
#include <QTextLayout>
#include <QToolTip>

#include <algorithm>

namespace tsms {

namespace {

/// The lines of one paragraph, without an end.
QStringList LinesOf(const QString& paragraph, const QFont& font, int width)
{
    QTextLayout layout(paragraph, font);
    QTextOption option;
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    layout.setTextOption(option);
    QStringList lines;
    layout.beginLayout();
    for (QTextLine line = layout.createLine(); line.isValid(); line = layout.createLine()) {
        line.setLineWidth(width);
        lines += paragraph.mid(line.textStart(), line.textLength());
    }
    layout.endLayout();
    return lines;
}

/// A line behind which the text goes on.
QString WithEllipsis(QString line, const QFontMetrics& metrics, int width)
{
    while (line.endsWith(u' '))
        line.chop(1);
    return metrics.elidedText(line + QStringLiteral("…"), Qt::ElideRight, width);
}

} // namespace

WrappedText WrapText(const QString& text, const QFont& font, int width, int most)
{
    const qsizetype room = std::max(1, most);
    WrappedText wrapped;
    QString rest; // of the last paragraph that there is room for, from the last line on
    for (const QString& paragraph : Manageable(text).split(u'\n')) {
        const QStringList lines = LinesOf(paragraph, font, width);
        const qsizetype taken = std::min(lines.size(), room - wrapped.lines.size());
        wrapped.lines += lines.first(taken);
        wrapped.cut = wrapped.cut || taken < lines.size();
        if (taken > 0)
            rest = lines.sliced(taken - 1).join(QString());
    }
    if (wrapped.cut)
        wrapped.lines.last() = WithEllipsis(rest, QFontMetrics(font), width);
    return wrapped;
}

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

WrappedText CardLabel::Shown() const
{
    const QFontMetrics metrics = fontMetrics();
    // The last line needs no room for the gap behind it.
    const int most = (contentsRect().height() + metrics.leading()) / metrics.lineSpacing();
    return WrapText(text(), font(), contentsRect().width(), most);
}

void CardLabel::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setPen(palette().color(QPalette::WindowText));
    const int across = static_cast<int>(alignment() & Qt::AlignHorizontal_Mask);
    QRect place = contentsRect();
    for (const QString& line : Shown().lines) {
        painter.drawText(place, across | Qt::AlignTop | Qt::TextSingleLine, line);
        place.setTop(place.top() + fontMetrics().lineSpacing());
    }
}

/// The whole caption, where it is cut.
bool CardLabel::event(QEvent* event)
{
    if (event->type() != QEvent::ToolTip)
        return Label::event(event);
    if (Shown().cut) {
        const QString words = Manageable(text()).toHtmlEscaped();
        QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(),
                           QStringLiteral("<p style=\"white-space:pre-wrap\">%1</p>").arg(words), this);
    } else {
        QToolTip::hideText();
    }
    return true;
}

} // namespace tsms
