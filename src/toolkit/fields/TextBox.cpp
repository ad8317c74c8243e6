#include "toolkit/fields/TextBox.h"

#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/Naming.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QMouseEvent>

#include <algorithm>

namespace tsms {

TextBox::TextBox(QWidget* parent) : TextControl(parent)
{
    // Its own limit works on what was put in; the control's would cut without telling where.
    QLineEdit::setMaxLength(MostGiven);
    KeepToOneLine();
    connect(this, &QLineEdit::textChanged, this, [this] { TellChange(); });
}

TextBox::TextBox(QWidget* parent, const QString& name) : TextBox(parent)
{
    SetName(*this, name);
}

void TextBox::Load(const QString& text)
{
    QLineEdit::setText(text);
    setCursorPosition(0);
}

int TextBox::SelStart() const
{
    return hasSelectedText() ? selectionStart() : cursorPosition();
}

void TextBox::SetSelStart(int position)
{
    deselect();
    setCursorPosition(std::clamp<int>(position, 0, static_cast<int>(text().size())));
}

int TextBox::SelLength() const
{
    return selectionLength();
}

void TextBox::Select(int start, int length)
{
    SetSelStart(start);
    if (length > 0)
        setSelection(cursorPosition(), length);
}

void TextBox::Replace(const QString& text, int caret)
{
    QLineEdit::setText(text);
    setCursorPosition(caret);
}

void TextBox::Press(QKeyEvent& key)
{
    StepOverSeparator(key);
    TextControl::Press(key);
}

void TextBox::StepOverSeparator(const QKeyEvent& key)
{
    if (Separator().isNull() || hasSelectedText())
        return;
    const int caret = cursorPosition();
    if (key.key() == Qt::Key_Backspace && text().first(caret).endsWith(Separator()))
        setCursorPosition(caret - 1);
    if (key.key() == Qt::Key_Delete && text().sliced(caret).startsWith(Separator()))
        setCursorPosition(caret + 1);
}

/// The control marks its text when Tab comes to it; here the caret stays where it was left.
void TextBox::TakeFocus(QFocusEvent& event)
{
    const int caret = cursorPosition();
    TextControl::TakeFocus(event);
    if (event.reason() == Qt::TabFocusReason || event.reason() == Qt::BacktabFocusReason)
        SetSelStart(caret);
}

void TextBox::focusInEvent(QFocusEvent* event)
{
    TextControl::focusInEvent(event);
    keepsMark_ = event->reason() == Qt::MouseFocusReason && SelLength() > 0;
}

void TextBox::mousePressEvent(QMouseEvent* event)
{
    const int start = SelStart();
    const int length = SelLength();
    QLineEdit::mousePressEvent(event);
    keepsMark_ = keepsMark_ && event->button() == Qt::LeftButton;
    if (!keepsMark_)
        return;
    Select(start, length);
    pressed_ = event->position().toPoint();
}

void TextBox::mouseMoveEvent(QMouseEvent* event)
{
    const QPoint place = event->position().toPoint();
    if (keepsMark_ && (place - pressed_).manhattanLength() < QApplication::startDragDistance())
        return; // no hand holds the mouse quite still
    if (keepsMark_)
        SetSelStart(cursorPositionAt(pressed_)); // it is dragged over the text to mark a part of it
    keepsMark_ = false;
    QLineEdit::mouseMoveEvent(event);
}

void TextBox::mouseReleaseEvent(QMouseEvent* event)
{
    QLineEdit::mouseReleaseEvent(event);
    keepsMark_ = false;
}

void TextBox::contextMenuEvent(QContextMenuEvent* event)
{
    OpenMenu(createStandardContextMenu(), event->globalPos());
}

} // namespace tsms
