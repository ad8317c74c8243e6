#include "toolkit/windows/Guarded.h"

#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "session/ScreenBusy.h"

#include <QApplication>
#include <QWidget>

namespace tsms {

namespace {

RuntimeError AsRuntimeError(const std::exception& error)
{
    if (const auto* own = dynamic_cast<const RuntimeError*>(&error))
        return *own;
    return RuntimeError(AutomationError,
                        QStringLiteral("프로그램 내부에서 예기치 않은 오류가 발생하였습니다. (%1)")
                            .arg(QString::fromUtf8(error.what())));
}

} // namespace

void ReportUnhandled(Desktop& desktop, const std::exception& error)
{
    const RuntimeError shown = AsRuntimeError(error);
    const QString text = QStringLiteral("오류번호 : ") + QString::number(shown.Number) + CrLf.toString() +
                         QStringLiteral("오류내용 : ") + shown.Description;
    desktop.MsgBox(text, MsgBoxCritical, QStringLiteral("프로그램 오류"));
}

void EndBusy(Session& session, Desktop& desktop)
{
    SetScreenBusy(session, desktop, false);
    for (QWidget* window : QApplication::topLevelWidgets())
        window->unsetCursor();
}

} // namespace tsms
