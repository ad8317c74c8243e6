#include "toolkit/WrappedLabel.h"

#include <QAbstractTextDocumentLayout>
#include <QPainter>
#include <QTextDocument>

#include <cmath>

namespace tsms {

WrappedLabel::WrappedLabel(QWidget* parent, const QString& name) : Label(parent, name)
{
    setWordWrap(true); // the base's own wrapping would leave a long word to stick out
}

void WrappedLabel::LayOut(QTextDocument& document, int width) const
{
    QTextOption option(alignment());
    option.setWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    document.setDefaultTextOption(option);
    document.setDefaultFont(font());
    document.setDocumentMargin(0);
    document.setPlainText(text());
    document.setTextWidth(width);
}

int WrappedLabel::heightForWidth(int width) const
{
    const QMargins margins = contentsMargins();
    QTextDocument document;
    LayOut(document, width - margins.left() - margins.right());
    return static_cast<int>(std::ceil(document.size().height())) + margins.top() + margins.bottom();
}

QSize WrappedLabel::sizeHint() const
{
    const int wide = maximumWidth() < QWIDGETSIZE_MAX ? maximumWidth() : width();
    return {wide, heightForWidth(wide)};
}

/// One line of no width: what it is given is what it fills.
QSize WrappedLabel::minimumSizeHint() const
{
    const QMargins margins = contentsMargins();
    return {margins.left() + margins.right(), fontMetrics().height() + margins.top() + margins.bottom()};
}

void WrappedLabel::paintEvent(QPaintEvent*)
{
    QTextDocument document;
    LayOut(document, contentsRect().width());
    QAbstractTextDocumentLayout::PaintContext context;
    context.palette = palette();
    context.palette.setColor(QPalette::Text, TextColor());
    QPainter painter(this);
    painter.translate(contentsRect().topLeft());
    document.documentLayout()->draw(&painter, context);
}

} // namespace tsms
