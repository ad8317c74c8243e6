#include "toolkit/fields/TextField.h"

#include "runtime/CodePage949.h"
#include "toolkit/fields/HangulMode.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/look/Theme.h"

#include <QAction>
#include <QApplication>
#include <QDeadlineTimer>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSignalBlocker>

namespace tsms {

namespace {

QPalette WithBase(QPalette palette, const QColor& color)
{
    // A box that is disabled keeps the look of that.
    palette.setColor(QPalette::Active, QPalette::Base, color);
    palette.setColor(QPalette::Inactive, QPalette::Base, color);
    return palette;
}

QPalette WithWindow(QPalette palette, const QColor& color)
{
    palette.setColor(QPalette::Window, color);
    return palette;
}

/// In milliseconds.
qint64 Moment()
{
    return QDeadlineTimer::current().deadline();
}

} // namespace

TextField::~TextField()
{
    QObject::disconnect(awaited_);
}

void TextField::SelectAll()
{
    Select(0, static_cast<int>(Text().size()));
}

QString TextField::SelText() const
{
    return Text().mid(SelStart(), SelLength());
}

QColor TextField::BackColor() const
{
    return Widget().palette().color(QPalette::Active, QPalette::Base);
}

void TextField::SetBackColor(const QColor& color)
{
    Widget().setPalette(WithBase(Widget().palette(), color));
}

void TextField::SetImeMode(ImeMode mode)
{
    imeMode_ = mode;
    Widget().setAttribute(Qt::WA_InputMethodEnabled, mode != ImeMode::Off);
    if (mode == ImeMode::Off)
        return;
    Qt::InputMethodHints hints = Widget().inputMethodHints() & Qt::ImhMultiLine;
    if (mode == ImeMode::Hangul)
        hints |= Qt::ImhNoAutoUppercase;
    if (mode == ImeMode::Latin)
        hints |= Qt::ImhPreferLatin | Qt::ImhNoAutoUppercase | Qt::ImhNoPredictiveText;
    Widget().setInputMethodHints(hints);
}

void TextField::SetText(const QString& text)
{
    ChangeByProgram(Author::Program, text);
    history_.Forget();
}

void TextField::PutText(const QString& text)
{
    ChangeByProgram(Author::Choice, text);
}

/// What is still being composed belongs to the text before the change. Left alone, it would be handed over
/// into the text behind it: some input methods do so at once when they are told to end, others later. By then
/// it is an echo of what the field has put in by itself, and Composition withholds it.
void TextField::FinishComposing()
{
    if (composed_.isEmpty())
        return;
    QInputMethodEvent commit;
    commit.setCommitString(composed_);
    QCoreApplication::sendEvent(&Widget(), &commit);
    QGuiApplication::inputMethod()->reset();
}

void TextField::SeeComposed(const QInputMethodEvent& event)
{
    const QString& composed = event.preeditString();
    const QString& committed = event.commitString();
    if (!committed.isEmpty())
        moment_ = committed == pending_.text ? pending_.moment : Moment();
    if (!composed.isEmpty())
        pending_ = {composed, Moment()};
    composed_ = composed;
}

void TextField::ChangeByProgram(Author author, const QString& text)
{
    FinishComposing();
    Quietly([&] { Load(text); });
    const QScopedValueRollback<Author> by(author_, author);
    TellChange();
}

void TextField::EditByKey(const QKeyEvent& key, const std::function<void()>& edit)
{
    moment_ = Moment();
    const bool pastes = IsEditingCommand(key) || key.key() == Qt::Key_Insert;
    EditBy(pastes ? Author::Person : Author::Keys, edit);
}

void TextField::EditByCommit(const std::function<void()>& edit)
{
    EditBy(Author::Keys, edit);
}

void TextField::EditBy(Author author, const std::function<void()>& edit)
{
    const QScopedValueRollback<Author> by(author_, author);
    const QScopedValueRollback<bool> over(overSelection_, SelLength() > 0);
    edit();
}

bool TextField::TakesBack(QKeyEvent& key)
{
    const bool again =
        key.matches(QKeySequence::Redo) || (key.key() == Qt::Key_Y && key.modifiers() == Qt::ControlModifier);
    if (!again && !key.matches(QKeySequence::Undo))
        return false;
    again ? Redo() : Undo();
    key.accept();
    return true;
}

void TextField::OpenMenu(QMenu* menu, QPoint place)
{
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto serve = [&](int entry, bool enabled, void (TextField::*act)()) {
        QAction* action = menu->actions().at(entry);
        action->disconnect();
        QObject::connect(action, &QAction::triggered, &Widget(), [this, act] { (this->*act)(); });
        action->setEnabled(enabled);
    };
    serve(0, history_.CanUndo(), &TextField::Undo);
    serve(1, history_.CanRedo(), &TextField::Redo);
    menu->popup(place);
}

void TextField::Undo()
{
    FinishComposing();
    Recall(history_.Undo({Text(), Tag}));
}

void TextField::Redo()
{
    FinishComposing();
    Recall(history_.Redo({Text(), Tag}));
}

void TextField::Recall(const std::optional<HeldText>& held)
{
    if (!held)
        return;
    const Insertion put = FindInsertion(Text(), held->text, 0);
    Quietly([&] { Replace(held->text, static_cast<int>(put.start + put.length)); });
    Tag = held->tag;
    const QScopedValueRollback<Author> by(author_, Author::History);
    TellChange();
}

void TextField::TellChange()
{
    const QString put = Text();
    if (put == settled_)
        return;
    const QString before = settled_;
    const int caret = Caret();
    const bool byProgram = author_ == Author::Program || author_ == Author::Choice;
    const CaretText kept = Admit(before, {put, caret}, PresentLimits(), byProgram);
    if (kept.text != put)
        Quietly([&] { Replace(kept.text, static_cast<int>(kept.caret)); });
    settled_ = kept.text;
    Remember(before, put, caret);
    if (settled_ != before)
        RaiseEvent(Widget(), OnChange);
}

FieldLimits TextField::PresentLimits() const
{
    FieldLimits limits = limits_;
    if (held_ && !held_()) {
        limits.bytes = 0;
        limits.filter = nullptr;
    }
    return limits;
}

/// The controls tell of some changes in several steps; what is done so is told once, when it is done.
void TextField::Quietly(const std::function<void()>& change)
{
    const QSignalBlocker quiet(Widget());
    change();
}

void TextField::Remember(const QString& before, const QString& put, int caret)
{
    const bool changed = settled_ != before;
    if (changed && author_ == Author::Keys)
        history_.AddKeys({before, Tag}, put, caret, overSelection_, moment_);
    else if (changed && (author_ == Author::Person || author_ == Author::Choice))
        history_.AddStep({before, Tag});
    history_.Rest(Caret());
}

void TextField::TellKeyUp(int key, int shift)
{
    if (OnKeyUp)
        RaiseEvent(Widget(), [&] { OnKeyUp(key, shift); });
}

void TextField::TellFocus(bool gained, Qt::FocusReason reason)
{
    if (!gained && (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason)) {
        AwaitReturn();
        return;
    }
    if (gained == focused_)
        return;
    focused_ = gained;
    if (gained && (imeMode_ == ImeMode::Hangul || imeMode_ == ImeMode::Latin))
        AskForHangul(Widget(), imeMode_ == ImeMode::Hangul);
    if (backing_ && (gained ? BackColor() == theme::White : BackColor() != theme::White)) {
        const QColor color = gained ? theme::Focus : theme::White;
        SetBackColor(color);
        backing_->setPalette(WithWindow(backing_->palette(), color));
    }
    if (const auto& handler = gained ? OnGotFocus : OnLostFocus)
        RaiseEvent(Widget(), handler);
}

void TextField::AwaitReturn()
{
    if (awaited_)
        return;
    const auto look = [this](const QWidget*, const QWidget* now) {
        if (!now || now->window() != Widget().window())
            return;
        QObject::disconnect(awaited_);
        if (now != &Widget())
            TellFocus(false, Qt::OtherFocusReason); // it was put elsewhere meanwhile
    };
    awaited_ = QObject::connect(qApp, &QApplication::focusChanged, &Widget(), look);
}

QString TextField::WithRoom(const QString& key) const
{
    constexpr char16_t firstPrintable = u' ';
    const bool putsIn = key.size() == 1 && key[0].unicode() >= firstPrintable;
    if (!putsIn || limits_.bytes == 0 || SelLength() > 0)
        return key;
    return MessageBytes(settled_) + MessageBytes(key) > limits_.bytes ? QString() : key;
}

QString TextField::PassKeys(QStringView keys)
{
    return OfferKeys(Widget(), OnKeyPress, keys);
}

} // namespace tsms
