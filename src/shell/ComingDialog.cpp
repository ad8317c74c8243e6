#include "shell/ComingDialog.h"

#include "services/Services.h"
#include "toolkit/Controls.h"
#include "toolkit/DialogForm.h"

#include <QVBoxLayout>

namespace tsms {

namespace {

DialogFrame FrameOf(ComingDialog which)
{
    DialogFrame frame;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QString(), QStringLiteral("취소(ESC)")};
    frame.f12RunsButton0 = false;
    switch (which) {
    case ComingDialog::Import:
        frame.name = QStringLiteral("MakeSMSExcel");
        frame.title = QStringLiteral("문자메시지 엑셀 가져오기");
        frame.note = QStringLiteral("엑셀파일(*.xls)에 있는 데이터를 전송대상에 포함합니다.");
        break;
    }
    frame.caption = frame.title;
    return frame;
}

class Coming final : public DialogForm
{
public:
    Coming(Services& services, ComingDialog which, QWidget* owner)
        : DialogForm(services.session, services.desktop, FrameOf(which), owner)
    {
        BodyLayout().addWidget(
            new Label(&Body(), QStringLiteral("lblComing"), QStringLiteral("이 기능은 아직 준비 중입니다.")));
    }
};

} // namespace

void ShowComingDialog(Services& services, ComingDialog which, QWidget* owner)
{
    Coming(services, which, owner).ShowModal();
}

} // namespace tsms
