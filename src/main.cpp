#include "shell/Main.h"
#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "runtime/CommandLine.h"
#include "runtime/ProcessRules.h"
#include "services/Services.h"
#include "session/Session.h"
#include "shell/frmSMSMain.h"
#include "store/DBConnect.h"
#include "store/MakeConnections.h"
#include "toolkit/look/Fonts.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"
#include "toolkit/windows/QtDesktop.h"

int main(int argc, char** argv)
{
    using namespace tsms;
    EndThreadsInOrder();
    KeepMemoryPrivate(); // the launch line holds a password
    FillStandardStreams();
    TakeWriteFaultsAsErrors();
    KeepWaitingWindows();
    TakeWordsAsUtf8();
    theme::ReadFontsAhead();

    // The launch line is all there is on the command line: the toolkit gets to see none of it.
    const QString command = TakeCommandLine(argc, argv);
    int programNameOnly = 1;
    if (argc > 1)
        argv[1] = nullptr;

    // What the application asks until it is gone comes before it.
    QtDesktop desktop;
    const SystemClock clock;
    Session session;
    Application application(programNameOnly, argv);
    theme::ApplyStyle(application); // the font comes with the first window
    application.HandleErrors(session, desktop);
    DBConnect db(session, desktop, MakeConnections(clock));
    ModSMS sms(session, db, desktop, clock, GatewayDescriptionUrl(QStringLiteral(TSMS_GATEWAY_URL)));
    Services services{session, desktop, clock, db, sms, Application::applicationDirPath()};

    const Launch launch = Main(command, services);
    return launch.form ? Application::exec() : launch.exitStatus;
}
