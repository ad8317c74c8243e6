#include "toolkit/fields/MemoBox.h"

#include "runtime/Text.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/Naming.h"

#include <QContextMenuEvent>
#include <QMenu>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace tsms {

MemoBox::MemoBox(QWidget* parent) : TextControl(parent)
{
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setUndoRedoEnabled(false); // it would undo key by key, and a correction apart from its change
    connect(this, &QPlainTextEdit::textChanged, this, [this] { TellChange(); });
}

MemoBox::MemoBox(QWidget* parent, const QString& name) : MemoBox(parent)
{
    SetName(*this, name);
}

void MemoBox::MarkFrom(int position, const QColor& ground)
{
    QTextEdit::ExtraSelection mark;
    mark.format.setBackground(ground);
    mark.cursor = QTextCursor(document());
    mark.cursor.setPosition(ToDocument(position));
    mark.cursor.movePosition(QTextCursor::End, QTextCursor::KeepAnchor);
    setExtraSelections({mark});
}

QString MemoBox::Text() const
{
    // The raw text, since the plain one turns no-break blanks into blanks.
    return document()->toRawText().replace(QChar::ParagraphSeparator, CrLf.toString());
}

void MemoBox::Load(const QString& text)
{
    setPlainText(Manageable(text));
}

int MemoBox::SelStart() const
{
    return ToText(textCursor().selectionStart());
}

void MemoBox::SetSelStart(int position)
{
    Select(position, 0);
}

int MemoBox::SelLength() const
{
    return ToText(textCursor().selectionEnd()) - SelStart();
}

void MemoBox::Select(int start, int length)
{
    QTextCursor cursor = textCursor();
    cursor.setPosition(ToDocument(start));
    cursor.setPosition(ToDocument(start + std::max(length, 0)), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

int MemoBox::Caret() const
{
    return ToText(textCursor().position());
}

void MemoBox::Replace(const QString& text, int caret)
{
    const QString now = document()->toRawText();
    const QString then = QString(text).replace(CrLf.toString(), QString(QChar::ParagraphSeparator));
    const qsizetype most = std::min(now.size(), then.size());
    qsizetype ahead = 0;
    while (ahead < most && now[ahead] == then[ahead])
        ++ahead;
    qsizetype behind = 0;
    while (behind < most - ahead && now[now.size() - 1 - behind] == then[then.size() - 1 - behind])
        ++behind;

    QTextCursor cursor(document());
    cursor.beginEditBlock();
    cursor.setPosition(static_cast<int>(ahead));
    cursor.setPosition(static_cast<int>(now.size() - behind), QTextCursor::KeepAnchor);
    cursor.insertText(then.mid(ahead, then.size() - ahead - behind));
    cursor.endEditBlock();
    SetSelStart(caret);
}

int MemoBox::ToText(int documentPosition) const
{
    return documentPosition + std::max(0, document()->findBlock(documentPosition).blockNumber());
}

int MemoBox::ToDocument(int textPosition) const
{
    const int last = document()->characterCount() - 1;
    int position = std::clamp(textPosition, 0, ToText(last));
    // Every block before the position has counted one more.
    for (QTextBlock block = document()->begin(); block.isValid(); block = block.next()) {
        const int end = block.position() + block.length() - 1;
        if (position - block.blockNumber() <= end)
            return std::max(position - block.blockNumber(), block.position());
    }
    return last;
}

void MemoBox::Press(QKeyEvent& key)
{
    // With Shift the control would put in a break of its own kind, which no text of ours knows.
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
    const bool shifted = key.key() == Qt::Key_Return && key.modifiers() == Qt::ShiftModifier;
    TextControl::Press(shifted ? enter : key);
}

void MemoBox::inputMethodEvent(QInputMethodEvent* event)
{
    TextControl::inputMethodEvent(event);
    // A syllable that a click finishes comes without a key of its own, and the counters go by keys.
    if (!event->commitString().isEmpty())
        TellKeyUp(0, 0);
}

void MemoBox::contextMenuEvent(QContextMenuEvent* event)
{
    OpenMenu(createStandardContextMenu(event->pos()), event->globalPos());
}

void MemoBox::insertFromMimeData(const QMimeData* source)
{
    if (!source->hasText())
        return;
    insertPlainText(Manageable(source->text()).replace(QChar::LineSeparator, QChar(u'\n')));
}

} // namespace tsms
