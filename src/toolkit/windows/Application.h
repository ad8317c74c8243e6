#pragma once

#include "toolkit/fields/Composition.h"

#include <QApplication>
#include <QTranslator>

namespace tsms {

class Desktop;
struct Session;

/// The application. Its windows bear the program's icon, the first one behind its first picture. Menus and
/// pickers that belong to the toolkit speak Korean, whatever the desk's language. What an input method
/// composes stays where it was begun (see Composition), behind the keys before it. Enter that is held down
/// presses one button once. Windows is not let end its session while a form is busy. It is the last place
/// that catches an exception which left an event handler.
class Application : public QApplication
{
public:
    /// Without a display it ends the process in order: with a line on stderr and status 1.
    Application(int& argc, char** argv);

    /// Where unhandled errors are shown, and whose Busy they end; without it they end the program. Both are
    /// there until the application is gone, which delivers events at its own end too.
    void HandleErrors(Session& session, Desktop& desktop)
    {
        session_ = &session;
        desktop_ = &desktop;
    }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    bool LetKeysGoFirst(QObject*& receiver);
    bool IsHeldOnButton(const QObject& receiver, const QEvent& event);
    bool Deliver(QObject* receiver, QEvent* event);
    void BearIcon();

    Session* session_ = nullptr;
    Desktop* desktop_ = nullptr;
    quint64 released_ = 0; // when the last key was; 0 where nobody knows
    Composition composition_;
    bool composing_ = false; // an event of the input method is being delivered; a control may hand it on
    int composed_ = 0;       // events of the input method
    bool bearsIcon_ = false;
    int outside_ = -1; // within how many event loops an event from outside is being delivered
    // Where the platform has none, those menus stay English. The first to go: windows are told, by notify().
    QTranslator words_;
};

} // namespace tsms
