#include "toolkit/Application.h"

#include "toolkit/Guarded.h"
#include "toolkit/Pictures.h"

#include <QLibraryInfo>
#include <QLocale>

namespace tsms {

Application::Application(int& argc, char** argv) : QApplication(argc, argv)
{
    setWindowIcon(PictureIcon(QStringLiteral("application")));
    const QLocale korean(QLocale::Korean, QLocale::SouthKorea);
    if (words_.load(korean, QStringLiteral("qtbase"), QStringLiteral("_"),
                    QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        installTranslator(&words_);
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    if (!desktop_)
        return QApplication::notify(receiver, event);
    const BusyWatch watch;
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& error) {
        watch.Restore(*desktop_);
        ReportUnhandled(*desktop_, error);
        return true;
    }
}

} // namespace tsms
