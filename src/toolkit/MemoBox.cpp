#include "toolkit/MemoBox.h"

#include "runtime/Text.h"
#include "toolkit/KeyFilter.h"
#include "toolkit/LimitRule.h"
#include "toolkit/Naming.h"

#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>

namespace tsms {

namespace {

/// Makes one step of undo of an edit, which a correction can then join.
class EditStep
{
public:
    EditStep(QPlainTextEdit& box, bool edits) : box_(box), cursor_(edits ? box.textCursor() : QTextCursor())
    {
        if (!cursor_.isNull())
            cursor_.beginEditBlock();
    }
    EditStep(QPlainTextEdit& box, const QKeyEvent& key)
        : EditStep(box, !key.text().isEmpty() && !key.modifiers().testFlag(Qt::ControlModifier))
    {
    }
    ~EditStep()
    {
        if (cursor_.isNull())
            return;
        cursor_.endEditBlock();
        box_.ensureCursorVisible(); // the text was laid out only now
    }
    EditStep(const EditStep&) = delete;
    EditStep& operator=(const EditStep&) = delete;

private:
    QPlainTextEdit& box_;
    QTextCursor cursor_;
};

} // namespace

MemoBox::MemoBox(QWidget* parent) : QPlainTextEdit(parent)
{
    setTabChangesFocus(true);
    connect(this, &QPlainTextEdit::textChanged, this, [this] { TellChange(); });
}

MemoBox::MemoBox(QWidget* parent, const QString& name) : MemoBox(parent)
{
    SetName(*this, name);
}

void MemoBox::SetBorder(bool border)
{
    setFrameShape(border ? QFrame::StyledPanel : QFrame::NoFrame);
}

QString MemoBox::Text() const
{
    // The raw text, since the plain one turns no-break blanks into blanks.
    return document()->toRawText().replace(QChar::ParagraphSeparator, CrLf.toString());
}

void MemoBox::SetText(const QString& text)
{
    ChangeByProgram([&] { setPlainText(Manageable(text)); });
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
    cursor.joinPreviousEditBlock();
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

bool MemoBox::event(QEvent* event)
{
    if (SwallowsTab(*event, [this](QStringView key) { return PassKeys(key); }))
        return true;
    return QPlainTextEdit::event(event);
}

void MemoBox::keyPressEvent(QKeyEvent* event)
{
    SendFilteredKey(
        *event, [this](QStringView keys) { return WithRoom(PassKeys(keys)); },
        [this](QKeyEvent* key) {
            const EditStep step(*this, *key);
            if (key->key() == Qt::Key_Return && key->modifiers() == Qt::ShiftModifier) {
                // Otherwise the control would put in a break of its own kind, which no text of ours knows.
                QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier, QStringLiteral("\r"));
                QPlainTextEdit::keyPressEvent(&enter);
                return;
            }
            QPlainTextEdit::keyPressEvent(key);
        });
}

void MemoBox::keyReleaseEvent(QKeyEvent* event)
{
    QPlainTextEdit::keyReleaseEvent(event);
    if (!event->isAutoRepeat())
        TellKeyUp(event->key(), static_cast<int>(event->modifiers()));
}

void MemoBox::inputMethodEvent(QInputMethodEvent* event)
{
    SendFilteredCommit(
        *event, [this](QStringView keys) { return PassKeys(keys); },
        [this](QInputMethodEvent* commit) {
            const EditStep step(*this, !commit->commitString().isEmpty());
            QPlainTextEdit::inputMethodEvent(commit);
        });
    // A syllable that a click finishes comes without a key of its own, and the counters go by keys.
    if (!event->commitString().isEmpty())
        TellKeyUp(0, 0);
}

void MemoBox::focusInEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusInEvent(event);
    TellFocus(true, event->reason());
}

void MemoBox::focusOutEvent(QFocusEvent* event)
{
    QPlainTextEdit::focusOutEvent(event);
    TellFocus(false, event->reason());
}

void MemoBox::insertFromMimeData(const QMimeData* source)
{
    if (!source->hasText())
        return;
    const EditStep step(*this, true);
    insertPlainText(Manageable(source->text()).replace(QChar::LineSeparator, QChar(u'\n')));
}

} // namespace tsms
