#include "shell/Main.h"

#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "shell/frmSMSMain.h"
#include "shell/LaunchLine.h"
#include "store/DBConnect.h"
#include "store/LoadSMSSetup.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Guarded.h"

#include <exception>

namespace tsms {

namespace {

void RefuseToRunAlone(Desktop& desktop)
{
    DoEvents();
    desktop.MsgBox(QStringLiteral("올바른 실행이 아닙니다. 메인 프로그램에서 실행하시길 바랍니다.!!!\r\n\r\n"
                                  "이 프로그램은 단독으로 사용하실수가 없습니다.!!!"),
                   MsgBoxCritical, QStringLiteral("문자메시지 실행 실패!!!"));
}

Launch Start(const QString& command, Services& services)
{
    if (IsBlank(command)) {
        RefuseToRunAlone(services.desktop);
        return {};
    }
    StoreLaunchLine(command, services.session);
    if (!LoadSMSSetup(services.session, services.db))
        return {};
    theme::UseFont();
    Launch launch;
    launch.form = std::make_unique<frmSMSMain>(services);
    launch.form->Load();
    launch.form->show();
    return launch;
}

} // namespace

Launch Main(const QString& command, Services& services)
{
    try {
        return Start(command, services);
    } catch (const std::exception& error) {
        // There is no window yet that could live on.
        ReportUnhandled(services.desktop, error);
        return {nullptr, 1};
    }
}

} // namespace tsms
