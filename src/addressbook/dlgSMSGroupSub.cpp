#include "addressbook/dlgSMSGroupSub.h"

#include "addressbook/MemberStatements.h"
#include "addressbook/ModFuncPublic.h"
#include "recipients/MobileNumber.h"
#include "runtime/Desktop.h"
#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "store/DBConnect.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <QGridLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

enum Field : int { NameBox, PhoneBox };

constexpr int MemberNameLimit = 40; // bytes
constexpr int PhoneLimit = 15;      // bytes
constexpr int MemberBoxWidth = 260; // the longest group name fits

DialogFrame MemberFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSGroupSub");
    frame.caption = QStringLiteral("구성원 등록");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.note = QStringLiteral("그룹에 소속된 발송대상을 설정합니다.");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QStringLiteral("저장(F12)"), QStringLiteral("취소(ESC)")};
    frame.arrowsWalk = true;
    return frame;
}

} // namespace

dlgSMSGroupSub::dlgSMSGroupSub(Services& services, std::function<void()> reload, QWidget* owner)
    : BookEditor(
          services, MemberFrame(),
          {{QStringLiteral("이미 등록된 성명입니다. 확인하여 주십시오.!"), QStringLiteral("기 등록된 성명")},
           {QStringLiteral("정상적으로 하위 발송대상을 등록 하였습니다."), QStringLiteral("발송대상")},
           {QStringLiteral("정상적으로 하위 발송대상을 수정 하였습니다."), QStringLiteral("발송대상")}},
          std::move(reload), owner)
{
    BuildFields();
    LoadGroups();
}

void dlgSMSGroupSub::BuildFields()
{
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(10);
    rows->setVerticalSpacing(8);
    rows->setColumnStretch(1, 1);
    rows->setColumnMinimumWidth(1, MemberBoxWidth);
    group_ = new ComboBox(&Body(), QStringLiteral("CbGroup"));
    group_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon); // whatever the names
    group_->OnKeyPress = [this](char16_t& key) { textHelper_.NextFieldOnEnter(key, *boxes_[NameBox]); };
    auto* caption = new Label(&Body(), QStringLiteral("Label2"), QStringLiteral("그룹명칭 :"));
    caption->Describes(*group_);
    rows->addWidget(caption, 0, 0);
    rows->addWidget(group_, 0, 1);
    BuildBox(NameBox, QStringLiteral("성    명 :"), *rows);
    BuildBox(PhoneBox, QStringLiteral("휴대번호 :"), *rows);
    boxes_[NameBox]->SetImeMode(ImeMode::Hangul);
    boxes_[PhoneBox]->SetImeMode(ImeMode::Latin);
    BodyLayout().addLayout(rows);
}

void dlgSMSGroupSub::BuildBox(int index, const QString& caption, QGridLayout& rows)
{
    const auto slot = static_cast<std::size_t>(index);
    captions_[slot] = new Label(&Body(), IndexedName(u"lblTitle", index), caption);
    auto* backing = new FieldPanel(&Body(), IndexedName(u"PLtxtBack", index));
    boxes_[slot] = new TextBox(backing, IndexedName(u"txtGroupSub", index));
    captions_[slot]->Describes(*boxes_[slot]);
    boxes_[slot]->SetBackColor(theme::White);
    boxes_[slot]->SetByteLimit(index == NameBox ? MemberNameLimit : PhoneLimit);
    if (index == PhoneBox)
        boxes_[slot]->SetFilter(KeepPhoneCharacters);
    boxes_[slot]->SetHeldWhile([this] { return !IsBusy(); });
    boxes_[slot]->OnKeyPress = [this, index](char16_t& key) { BoxKeyPress(index, key); };
    backing->Hold(*boxes_[slot]);
    rows.addWidget(captions_[slot], index + 1, 0);
    rows.addWidget(backing, index + 1, 1);
}

void dlgSMSGroupSub::LoadGroups()
{
    WithDatabase(services_.db, [this] { FillMemberGroupCombo(services_.db, *group_, QString()); });
}

void dlgSMSGroupSub::GetGroupSubData(const QString& code)
{
    ReportingErrors(services_.db, [&] {
        WithDatabase(services_.db, [&] {
            services_.db.Select(MemberByCode(code), [this](const Recordset& member) { ShowMember(member); });
        });
    });
}

void dlgSMSGroupSub::ShowMember(const Recordset& member)
{
    boxes_[NameBox]->SetText(Trim(member.Field(u"GSubNm")));
    boxes_[NameBox]->Tag = Trim(member.Field(u"GSubCd"));
    boxes_[PhoneBox]->SetText(Trim(member.Field(u"GSPhone")));
    const QString groupCode = Trim(member.Field(u"GroupCd"));
    FillMemberGroupCombo(services_.db, *group_, groupCode);
    if (groupCode.isEmpty())
        group_->SetListIndex(group_->ListCount() - 1);
}

void dlgSMSGroupSub::BoxKeyPress(int index, char16_t& key)
{
    if (index == PhoneBox)
        FilterNumberKey(key);
    if (key != u'\r')
        return;
    if (index == NameBox) {
        textHelper_.NextFieldOnEnter(key, *boxes_[PhoneBox]);
        textHelper_.SelectField(*boxes_[PhoneBox]);
    } else {
        Button(0)->Click();
    }
    key = 0;
}

bool dlgSMSGroupSub::FieldsPass()
{
    for (const int index : {NameBox, PhoneBox}) {
        const auto slot = static_cast<std::size_t>(index);
        if (!textHelper_.RequireText(*boxes_[slot], Trim(WithoutBlanks(captions_[slot]->Caption()))))
            return false;
    }
    if (IsMobileNumber(boxes_[PhoneBox]->Text()))
        return true;
    services_.desktop.MsgBox(
        QStringLiteral("잘못된 전화번호 형식 : 올바른 휴대전화 번호를 입력하여 주십시오."), MsgBoxCritical,
        QStringLiteral("하위 발송대상"));
    boxes_[PhoneBox]->SetFocus();
    return false;
}

MemberFields dlgSMSGroupSub::Typed() const
{
    return {group_->SelectedData(), boxes_[NameBox]->Text(), boxes_[PhoneBox]->Text()};
}

TextBox& dlgSMSGroupSub::EntryName() const
{
    return *boxes_[NameBox];
}

Statement dlgSMSGroupSub::Namesakes() const
{
    return MembersNamed(EntryName().Text());
}

Statement dlgSMSGroupSub::Storing() const
{
    return AddMode ? InsertMember(Typed()) : UpdateMember(EntryName().Tag, Typed());
}

} // namespace tsms
