#include "toolkit/Application.h"

#include "toolkit/Guarded.h"

namespace tsms {

Application::Application(int& argc, char** argv) : QApplication(argc, argv) {}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (!desktop_)
        return QApplication::notify(receiver, event);
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        ReportUnhandled(*desktop_, error);
        return true;
    }
}

} // namespace tsms
