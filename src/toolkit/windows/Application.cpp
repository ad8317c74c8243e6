#include "toolkit/windows/Application.h"

#include "runtime/WideRegisters.h"
#include "session/Session.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/windows/Guarded.h"

#include <QAbstractButton>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLibraryInfo>
#include <QLocale>
#include <qpa/qwindowsysteminterface.h>
#include <QScopedValueRollback>
#include <QScopeGuard>
#include <QTextStream>
#include <QThread>
#include <QTimer>

#include <cstdlib>
#include <utility>

#ifdef Q_OS_WIN
#include "toolkit/windows/Form.h"

#include <QSessionManager>

#include <algorithm>
#endif

namespace tsms {

namespace {

QtMessageHandler usualHandler = nullptr;

/// What the toolkit gives up for while it starts is a display. It would abort.
void EndWithoutDisplay(QtMsgType type, const QMessageLogContext& context, const QString& text)
{
    if (type != QtFatalMsg) {
        usualHandler(type, context, text);
        return;
    }
    QTextStream(stderr) << QStringLiteral(
        "tsms: 화면에 연결할 수 없어 프로그램을 시작하지 못했습니다. 그래픽 화면에서 실행하거나 환경변수 "
        "DISPLAY, WAYLAND_DISPLAY, QT_QPA_PLATFORM을 확인하여 주십시오.\n");
    std::_Exit(EXIT_FAILURE);
}

/// Comes before the toolkit starts. Answers what the toolkit is given.
int& AwaitDisplay(int& argc)
{
    usualHandler = qInstallMessageHandler(EndWithoutDisplay);
    return argc;
}

#ifdef Q_OS_WIN
/// Its end would cut a run off in its middle.
void KeepSessionWhileBusy(QSessionManager& session)
{
    const QList<Form*>& forms = Form::Loaded();
    if (std::any_of(forms.begin(), forms.end(), [](const Form* form) { return form->IsBusy(); }))
        session.cancel();
}
#endif

/// How many run within each other: dialogs that are awaited, and the program itself.
int EventLoops()
{
    return QThread::currentThread()->loopLevel();
}

} // namespace

Application::Application(int& argc, char** argv) : QApplication(AwaitDisplay(argc), argv)
{
    qInstallMessageHandler(usualHandler);
    const QLocale korean(QLocale::Korean, QLocale::SouthKorea);
    if (words_.load(korean, QStringLiteral("qtbase"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&words_);
#ifdef Q_OS_WIN
    // An X server's session manager is asked in an event loop of its own, in the middle of a row.
    connect(this, &QGuiApplication::commitDataRequest, this, &KeepSessionWhileBusy, Qt::DirectConnection);
#endif
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (IsHeldOnButton(*receiver, *event))
        return true;
    const bool composing = event->type() == QEvent::InputMethod;
    const bool handedOn = composing && composing_;
    QInputMethodEvent written;
    if (composing && !handedOn && !LetKeysGoFirst(receiver)) {
        if (!receiver)
            return true;
        written.setCommitString(static_cast<QInputMethodEvent*>(event)->commitString());
        event = &written; // what was under way in it is past
    }
    const QScopedValueRollback by(outside_, event->spontaneous() ? EventLoops() : outside_);
    if (!handedOn && composition_.Withholds(*event))
        return true;
    const QScopedValueRollback within(composing_, composing_ || composing);
    const bool isTaken = Deliver(receiver, event);
    if (event->type() == QEvent::Paint)
        BearIcon();
    return isTaken;
}

/// A key that the input method has no use for comes back to the program. By some methods it waits in a queue,
/// with clicks and all else, while what is composed of the keys after it goes straight to the control.
/// Empties that queue, but not while an operation runs, which nothing may enter. Gives who has the focus
/// then; false: nobody, or more was composed meanwhile.
bool Application::LetKeysGoFirst(QObject*& receiver)
{
    if (receiver != focusObject() || outside_ == EventLoops() || (session_ && session_->IsBusy()))
        return true; // what an event from outside brings about comes before the next of them
    const int own = ++composed_;
    QWindowSystemInterface::flushWindowSystemEvents();
    receiver = focusObject();
    return receiver && own == composed_;
}

/// One press is one click. A key that is held would otherwise press what the first click brought up, too, and
/// in the end send again and again.
bool Application::IsHeldOnButton(const QObject& receiver, const QEvent& event)
{
    if (event.type() != QEvent::KeyPress && event.type() != QEvent::KeyRelease)
        return false;
    const auto& key = static_cast<const QKeyEvent&>(event);
    if (event.type() == QEvent::KeyRelease) {
        released_ = key.timestamp();
        return false;
    }
    const bool enter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
    // Under X a busy program is told of each repetition as of a release and a press, both of one moment.
    const bool held = key.isAutoRepeat() || (released_ != 0 && key.timestamp() == released_);
    return enter && held && qobject_cast<const QAbstractButton*>(&receiver);
}

/// An X server gets it in four sizes, up to 128 pixels: nobody waits for them to see the window.
void Application::BearIcon()
{
    if (!std::exchange(bearsIcon_, true))
        QTimer::singleShot(0, this, [] { setWindowIcon(PictureIcon(QStringLiteral("application"))); });
}

bool Application::Deliver(QObject* receiver, QEvent* event)
{
    const auto release = qScopeGuard(ReleaseWideRegisters); // events within an operation draw
    if (!desktop_)
        return QApplication::notify(receiver, event);
    bool isTaken = true;
    RunGuarded(*session_, *desktop_, [&] { isTaken = QApplication::notify(receiver, event); });
    return isTaken;
}

} // namespace tsms
