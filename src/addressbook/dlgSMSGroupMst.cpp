#include "addressbook/dlgSMSGroupMst.h"

#include "addressbook/GroupStatements.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <QHBoxLayout>

namespace tsms {

namespace {

constexpr int GroupNameLimit = 40; // bytes
constexpr int GroupBoxWidth = 260; // the longest group name fits

DialogFrame GroupFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSGroupMst");
    frame.caption = QStringLiteral("그룹 등록");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle(1)");
    frame.note = QStringLiteral("문자메시지 발송그룹을 설정합니다.");
    frame.noteLabel = QStringLiteral("lblTitle(0)");
    frame.buttons = {QStringLiteral("저장(F12)"), QStringLiteral("취소(ESC)")};
    return frame;
}

} // namespace

dlgSMSGroupMst::dlgSMSGroupMst(Services& services, std::function<void()> reload, QWidget* owner)
    : BookEditor(services, GroupFrame(),
                 {{QStringLiteral("이미 등록된 그룹명칭입니다. 확인하여 주십시오.!"),
                   QStringLiteral("기 등록된 그룹")},
                  {QStringLiteral("정상적으로 그룹을 등록 하였습니다."), QStringLiteral("그룹등록")},
                  {QStringLiteral("정상적으로 그룹을 수정 하였습니다."), QStringLiteral("그룹수정")}},
                 std::move(reload), owner)
{
    BuildName();
}

void dlgSMSGroupMst::BuildName()
{
    auto* backing = new FieldPanel(&Body(), IndexedName(u"PLtxtBack", 0));
    name_ = new TextBox(backing, QStringLiteral("txtGroupNm"));
    name_->SetBackColor(theme::White);
    name_->SetImeMode(ImeMode::Hangul);
    name_->SetByteLimit(GroupNameLimit);
    name_->OnKeyPress = [this](char16_t& key) { NameKeyPress(key); };
    backing->Hold(*name_);
    backing->setMinimumWidth(GroupBoxWidth);
    auto* row = new QHBoxLayout;
    row->setSpacing(10);
    auto* caption = new Label(&Body(), QStringLiteral("Label2"), QStringLiteral("그룹 명칭 :"));
    caption->Describes(*name_);
    row->addWidget(caption);
    row->addWidget(backing, 1);
    BodyLayout().addLayout(row);
}

void dlgSMSGroupMst::SetGroup(const QString& code, const QString& name)
{
    name_->SetText(name);
    name_->Tag = code;
}

void dlgSMSGroupMst::NameKeyPress(char16_t& key)
{
    if (key != u'\r')
        return;
    Button(0)->Click();
    key = 0;
}

bool dlgSMSGroupMst::FieldsPass()
{
    if (!IsBlank(name_->Text()))
        return true;
    services_.desktop.MsgBox(QStringLiteral("그룹명칭을 입력하여 주십시오."), MsgBoxCritical,
                             QStringLiteral("그룹등록"));
    name_->SetFocus();
    return false;
}

TextBox& dlgSMSGroupMst::EntryName() const
{
    return *name_;
}

Statement dlgSMSGroupMst::Namesakes() const
{
    return GroupsNamed(name_->Text());
}

Statement dlgSMSGroupMst::Storing() const
{
    return AddMode ? InsertGroup(name_->Text()) : RenameGroup(name_->Tag, name_->Text());
}

} // namespace tsms
