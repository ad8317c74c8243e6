#pragma once

#include "toolkit/fields/EditHistory.h"
#include "toolkit/fields/LimitRule.h"

#include <QColor>
#include <QString>
#include <QStringView>
#include <QWidget>

#include <functional>
#include <utility>

class QInputMethodEvent;
class QKeyEvent;
class QMenu;

namespace tsms {

/// Which input method a field asks for while it has the focus.
enum class ImeMode { NoControl, Hangul, Latin, Off };

/// What the single-line and the multi-line text box share. Positions and lengths are UTF-16 units of Text(),
/// in which a line break is CR LF and counts 2.
class TextField
{
public:
    virtual ~TextField();

    virtual QString Text() const = 0;
    /// By the program: told through OnChange when it differs from what stands there. The caret goes to the
    /// start. What was typed before can no longer be taken back.
    void SetText(const QString& text);
    /// The same for a text that a person chose: the choice is one step that can be taken back.
    void PutText(const QString& text);

    /// Takes the last step back, with the Tag that stood there. Told like every change.
    void Undo();
    void Redo();
    void ForgetHistory() { history_.Forget(); }

    virtual int SelStart() const = 0; ///< start of the selection, or the caret
    virtual void SetSelStart(int position) = 0;
    virtual int SelLength() const = 0;
    virtual void Select(int start, int length) = 0;
    void SelectAll();
    QString SelText() const;

    /// Longest text in characters, 0 for none; a line break counts 2. The limits and the filter act on each
    /// change, as Admit() tells, before it is told.
    void SetMaxLength(int characters) { limits_.characters = characters; }
    int MaxLength() const { return limits_.characters; }

    /// Longest text in bytes of code page 949, 0 for none; blanks count, a line break counts 1. A key whose
    /// character finds no room is refused before it acts: to put it in and take it out again would cost the
    /// control a second layout of the text.
    void SetByteLimit(int bytes) { limits_.bytes = bytes; }

    void SetFilter(TextFilter filter) { limits_.filter = filter; }

    /// While this is false, the filter and the byte limit let a change stand as it is.
    void SetHeldWhile(std::function<bool()> held) { held_ = std::move(held); }

    QColor BackColor() const;
    void SetBackColor(const QColor& color);

    void SetImeMode(ImeMode mode);

    /// The field takes the focus colour with the focus, and `backing` with it: when its back colour is
    /// exactly white. Without the focus both are white again, unless the field is white.
    void SetFocusBacking(QWidget& backing) { backing_ = &backing; }

    void SetFocus() { Widget().setFocus(Qt::OtherFocusReason); }

    virtual QWidget& Widget() = 0;
    const QWidget& Widget() const { return const_cast<TextField*>(this)->Widget(); }

    QString Tag;

    /// Every change of the text, also one made by the program.
    std::function<void()> OnChange;
    /// Each character before it acts, also Enter (13), Backspace (8) and Tab (9) and what an input method
    /// commits. Set to 0 it is swallowed. Editing commands (copy, paste, undo) pass untouched.
    std::function<void(char16_t& key)> OnKeyPress;
    /// Every release of a key: its Qt::Key and its Qt::KeyboardModifiers.
    std::function<void(int key, int shift)> OnKeyUp;
    /// The focus within its window: neither comes when the window only leaves and returns, or when the
    /// field's own menu opens.
    std::function<void()> OnGotFocus;
    std::function<void()> OnLostFocus;

    /// A character that the field puts in by itself. The single-line box takes Backspace behind it, and
    /// Delete before it, for its neighbour.
    void SetSeparator(QChar separator) { separator_ = separator; }

protected:
    virtual void Load(const QString& text) = 0;
    virtual void Replace(const QString& text, int caret) = 0;
    /// The caret, which may be at either end of a selection.
    virtual int Caret() const = 0;
    /// What a person puts in ends at its first line break.
    void KeepToOneLine() { limits_.oneLine = true; }

    void TellChange();
    /// Runs what a key press or a commit does to the text, which joins the step of those before it.
    void EditByKey(const QKeyEvent& key, const std::function<void()>& edit);
    void EditByCommit(const std::function<void()>& edit);
    /// Looks at what an input method sends, before the control does.
    void SeeComposed(const QInputMethodEvent& event);
    /// True when the keys are those of undo or redo, which are then used up.
    bool TakesBack(QKeyEvent& key);
    /// Opens the menu of the control, whose first two entries are undo and redo.
    void OpenMenu(QMenu* menu, QPoint place);
    void TellKeyUp(int key, int shift);
    void TellFocus(bool gained, Qt::FocusReason reason);
    /// The characters that OnKeyPress lets pass.
    QString PassKeys(QStringView keys);
    /// Of a key press, its character: nothing when it finds no room.
    QString WithRoom(const QString& key) const;
    QChar Separator() const { return separator_; }

private:
    /// Who makes the change that comes next.
    enum class Author { Person, Keys, Program, Choice, History };

    void EditBy(Author author, const std::function<void()>& edit);
    void FinishComposing();
    void ChangeByProgram(Author author, const QString& text);
    void Remember(const QString& before, const QString& put, int caret);
    void Recall(const std::optional<HeldText>& held);
    void AwaitReturn();
    FieldLimits PresentLimits() const;
    void Quietly(const std::function<void()>& change);

    QString settled_;
    QString composed_; // by an input method, and not yet handed over
    /// What was composed last, and when: it is handed over when the next key shows that it is whole.
    struct Composed
    {
        QString text;
        qint64 moment = 0;
    } pending_;
    qint64 moment_ = 0; // at which the change that comes next was typed
    EditHistory history_;
    QWidget* backing_ = nullptr;
    QMetaObject::Connection awaited_; // while the focus is out of the window
    FieldLimits limits_;
    std::function<bool()> held_;
    QChar separator_;
    Author author_ = Author::Person;
    bool overSelection_ = false; // the keys that make the change
    ImeMode imeMode_ = ImeMode::NoControl;
    bool focused_ = false; // as it was told
};

} // namespace tsms
