#include "toolkit/Guarded.h"

#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "toolkit/Form.h"

namespace tsms {

void ReportUnhandled(Desktop& desktop, const RuntimeError& error)
{
    const QString text = QStringLiteral("오류번호 : ") + QString::number(error.Number) + CrLf.toString() +
                         QStringLiteral("오류내용 : ") + error.Description;
    desktop.MsgBox(text, MsgBoxCritical, QStringLiteral("프로그램 오류"));
}

void RaiseEvent(const QWidget& control, const std::function<void()>& handler)
{
    if (!handler)
        return;
    const auto* form = qobject_cast<const Form*>(control.window());
    if (!form) {
        handler();
        return;
    }
    // Copied, since a handler may put another in its own place.
    Guarded(form->Desk(), std::function<void()>(handler))();
}

} // namespace tsms
