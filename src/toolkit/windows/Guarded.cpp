#include "toolkit/windows/Guarded.h"

#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "toolkit/windows/Form.h"

#include <algorithm>

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

bool IsAnyFormBusy()
{
    const QList<Form*>& forms = Form::Loaded();
    return std::any_of(forms.begin(), forms.end(), [](const Form* form) { return form->IsBusy(); });
}

} // namespace

void ReportUnhandled(Desktop& desktop, const std::exception& error)
{
    const RuntimeError shown = AsRuntimeError(error);
    const QString text = QStringLiteral("오류번호 : ") + QString::number(shown.Number) + CrLf.toString() +
                         QStringLiteral("오류내용 : ") + shown.Description;
    desktop.MsgBox(text, MsgBoxCritical, QStringLiteral("프로그램 오류"));
}

BusyWatch::BusyWatch() : wasBusy_(IsAnyFormBusy()) {}

void BusyWatch::Restore(Desktop& desktop) const
{
    if (wasBusy_ || !IsAnyFormBusy())
        return;
    for (Form* form : Form::Loaded())
        form->SetBusy(false);
    desktop.SetMousePointer(MousePointer::Default);
}

} // namespace tsms
