#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "runtime/ProcessRules.h"
#include "session/Session.h"
#include "store/MakeConnections.h"
#include "toolkit/look/Fonts.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"
#include "toolkit/windows/QtDesktop.h"
#include "tsms-start/BackgroundWork.h"
#include "tsms-start/GatewayLook.h"
#include "tsms-start/KeychainPasswords.h"
#include "tsms-start/Launch.h"
#include "tsms-start/StartWindow.h"

#include <QSettings>
#include <QStandardPaths>

#include <cstdlib>

namespace tsms {

namespace {

/// From the coming of the window to its closing.
void RunStarter(int& argc, char** argv)
{
    static const SystemClock clock; // work that was given up may read it to the end of the process
    QtDesktop desktop;
    Session session;
    Application application(argc, argv);
    theme::ApplyTheme(application);
    application.HandleErrors(session, desktop);
    QSettings settings(QStringLiteral("tsms"), QStringLiteral("tsms-start"));
    ConnectionList connections(settings);
    KeychainPasswords passwords;
    const QString gateway = QStringLiteral(TSMS_GATEWAY_URL);
    StartServices services{
        session,
        desktop,
        clock,
        connections,
        passwords,
        MakeConnections(clock),
        [gateway] { return LookAtGateway(gateway); },
        [](const QString& line) { return LaunchProgram(Application::applicationDirPath(), line); },
        gateway == QStringLiteral("http://127.0.0.1:8790"),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tsms")};
    StartWindow(services).ShowModal();
}

} // namespace

} // namespace tsms

int main(int argc, char** argv)
{
    using namespace tsms;
    EndThreadsInOrder();
    KeepMemoryPrivate(); // passwords are typed here
    FillStandardStreams();
    TakeWriteFaultsAsErrors();
    TakeWordsAsUtf8();
    theme::ReadFontsAhead();
    RunStarter(argc, argv);
    if (BackgroundWork::IsAnyLeft())
        std::_Exit(EXIT_SUCCESS); // it waits for a server, and needs what is static until then
    return EXIT_SUCCESS;
}
