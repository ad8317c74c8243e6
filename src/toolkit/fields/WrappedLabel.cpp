#include "toolkit/fields/WrappedLabel.h"

#include <QAbstractTextDocumentLayout>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>
#include <QPainter>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <cmath>

namespace tsms {

namespace {

QTextCursor CursorOver(QTextDocument& document, int anchor, int caret)
{
    // A selection may be left over from a longer caption.
    const int end = document.characterCount() - 1;
    QTextCursor cursor(&document);
    cursor.setPosition(std::min(anchor, end));
    cursor.setPosition(std::min(caret, end), QTextCursor::KeepAnchor);
    return cursor;
}

} // namespace

WrappedLabel::WrappedLabel(QWidget* parent, const QString& name) : Label(parent, name)
{
    setWordWrap(true); // the base's own wrapping would leave a long word to stick out
    setCursor(Qt::IBeamCursor);
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
    QAbstractTextDocumentLayout::Selection selected;
    selected.cursor = CursorOver(document, anchor_, caret_);
    selected.format.setBackground(palette().brush(QPalette::Highlight));
    selected.format.setForeground(palette().brush(QPalette::HighlightedText));
    context.selections = {selected};
    QPainter painter(this);
    painter.translate(contentsRect().topLeft());
    document.documentLayout()->draw(&painter, context);
}

QString WrappedLabel::SelectedText() const
{
    return text().mid(std::min(anchor_, caret_), std::abs(anchor_ - caret_));
}

QString WrappedLabel::SelectedIn(const QWidget& window)
{
    for (const auto* label : window.findChildren<WrappedLabel*>())
        if (QString selected = label->SelectedText(); !selected.isEmpty())
            return selected;
    return {};
}

void WrappedLabel::Select(int anchor, int caret)
{
    for (auto* other : window()->findChildren<WrappedLabel*>())
        if (other != this && other->anchor_ != other->caret_)
            other->Select(0, 0);
    anchor_ = anchor;
    caret_ = caret;
    update();
}

int WrappedLabel::PositionAt(QPoint place) const
{
    QTextDocument document;
    LayOut(document, contentsRect().width());
    return document.documentLayout()->hitTest(place - contentsRect().topLeft(), Qt::FuzzyHit);
}

void WrappedLabel::mousePressEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    drags_ = true;
    const int place = PositionAt(event->position().toPoint());
    Select(event->modifiers().testFlag(Qt::ShiftModifier) ? anchor_ : place, place);
}

void WrappedLabel::mouseMoveEvent(QMouseEvent* event)
{
    event->accept();
    if (drags_)
        Select(anchor_, PositionAt(event->position().toPoint()));
}

void WrappedLabel::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    drags_ = false;
}

/// The word under the mouse.
void WrappedLabel::mouseDoubleClickEvent(QMouseEvent* event)
{
    event->accept();
    if (event->button() != Qt::LeftButton)
        return;
    QTextDocument document;
    LayOut(document, contentsRect().width());
    QTextCursor cursor(&document);
    cursor.setPosition(PositionAt(event->position().toPoint()));
    cursor.select(QTextCursor::WordUnderCursor);
    Select(cursor.anchor(), cursor.position());
}

void WrappedLabel::contextMenuEvent(QContextMenuEvent* event)
{
    event->accept();
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy = menu->addAction(QStringLiteral("복사"), this,
                                    [this] { QApplication::clipboard()->setText(SelectedText()); });
    copy->setEnabled(!SelectedText().isEmpty());
    QAction* all = menu->addAction(QStringLiteral("모두 선택"), this,
                                   [this] { Select(0, static_cast<int>(text().size())); });
    all->setEnabled(!text().isEmpty());
    menu->popup(event->globalPos());
}

} // namespace tsms
