#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "runtime/ProcessRules.h"
#include "session/Session.h"
#include "store/MakeConnections.h"
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

int main(int argc, char** argv)
{
    using namespace tsms;
    KeepMemoryPrivate(); // passwords are typed here
    FillStandardStreams();
    TakeWriteFaultsAsErrors();
    TakeWordsAsUtf8();

    Application application(argc, argv);
    theme::ApplyTheme(application);
    QtDesktop desktop;
    const SystemClock clock;
    Session session;
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
        [&gateway] { return LookAtGateway(gateway); },
        [](const QString& line) { return LaunchProgram(Application::applicationDirPath(), line); },
        gateway == QStringLiteral("http://127.0.0.1:8790"),
        QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) + QStringLiteral("/tsms")};
    StartWindow(services).ShowModal();
    if (BackgroundWork::IsAnyLeft())
        std::_Exit(EXIT_SUCCESS); // it waits for a server, with all of this in its hands
    return EXIT_SUCCESS;
}
