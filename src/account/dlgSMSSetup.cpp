#include "account/dlgSMSSetup.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "store/LoadSMSSetup.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"

namespace tsms {

namespace {

enum SetupField : int { Id, Password, Domain, TelNo, OrgName };

DialogFrame SetupFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSSetup");
    frame.caption = QStringLiteral("문자메시지 환경설정");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.note = QStringLiteral("문자메시지 사이트에 가입한 정보를 입력하십시오.");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QStringLiteral("저장(F12)"), QStringLiteral("취소(ESC)")};
    frame.arrowsWalk = true;
    return frame;
}

/// In characters, and in bytes as well.
int LimitOf(int index)
{
    switch (index) {
    case Domain:
        return 100;
    case TelNo:
        return 15;
    default:
        return 50;
    }
}

/// An option that was never written is not ticked.
bool Ticked(const QString& stored)
{
    return !stored.isEmpty() && ToTruth(stored);
}

} // namespace

dlgSMSSetup::dlgSMSSetup(Services& services, QWidget* owner)
    : DialogForm(services.session, services.desktop, SetupFrame(), owner),
      services_(services),
      textHelper_(services.desktop),
      fields_(Body(), BodyLayout(), textHelper_)
{
    BuildFields();
    BuildOptions();
}

void dlgSMSSetup::BuildFields()
{
    const auto add = [this](int index, const QString& caption) -> TextBox& {
        TextBox& box = fields_.AddBox(index, caption, LimitOf(index));
        box.SetByteLimit(LimitOf(index));
        if (index == TelNo)
            box.SetFilter(KeepPhoneCharacters);
        box.OnKeyPress = [this, index](char16_t& key) { BoxKeyPress(index, key); };
        return box;
    };
    add(Id, QStringLiteral("아 이 디 :")).SetImeMode(ImeMode::Latin);
    TextBox& password = add(Password, QStringLiteral("비밀번호 :"));
    password.setEchoMode(QLineEdit::Password);
    password.SetImeMode(ImeMode::Off);
    fields_.AddNote(QStringLiteral("Label1(0)"),
                    QStringLiteral("※ 문자메시지 사이트 가입 ID 및 비밀번호 입력"));
    TextBox& domain = add(Domain, QStringLiteral("도 메 인 :"));
    domain.SetImeMode(ImeMode::Latin);
    domain.SetText(QStringLiteral(TSMS_GATEWAY_DOMAIN));
    fields_.AddNote(QStringLiteral("Label1(1)"), QStringLiteral("※ 가입시 도메인주소를 입력하여 주십시오."));
    add(TelNo, QStringLiteral("회신번호 :"));
    add(OrgName, QStringLiteral("회신명칭 :")).SetImeMode(ImeMode::Hangul);
    fields_.AddNote(QStringLiteral("Label1(2)"),
                    QStringLiteral("※ 회신번호 및 명칭은 메시지 발송시 전송됩니다."));
}

void dlgSMSSetup::BuildOptions()
{
    const std::array<QString, 2> captions{QStringLiteral("서비스 접수시 문자메시지 자동  발송"),
                                          QStringLiteral("서비스 완료시 문자메시지 자동  발송")};
    for (std::size_t i = 0; i < options_.size(); ++i) {
        options_[i] = new CheckBox(&Body(), IndexedName(u"ChkOption", static_cast<int>(i)), captions[i]);
        fields_.AddBelow(*options_[i]);
    }
}

void dlgSMSSetup::OnFirstActivation()
{
    ReportingErrors(services_.db, [this] {
        WithDatabase(services_.db, [this] {
            services_.db.Select(SettingsQuery(), [this](const Recordset& account) {
                if (account.RecordCount() > 0)
                    Show(account);
            });
        });
    });
}

void dlgSMSSetup::Show(const Recordset& account)
{
    const auto show = [&](int index, QStringView field) {
        fields_.Box(index).SetText(Trim(account.Field(field)));
    };
    show(Id, u"SMSID");
    show(Password, u"SMSPWD");
    show(Domain, u"SMSDNS");
    show(TelNo, u"SMSTelNo");
    show(OrgName, u"SMSOrgNm");
    options_[0]->SetValue(Ticked(Trim(account.Field(u"SMSAuto1"))));
    options_[1]->SetValue(Ticked(Trim(account.Field(u"SMSAuto2"))));
}

Settings dlgSMSSetup::Typed() const
{
    return {fields_.Box(Id).Text(),    fields_.Box(Password).Text(), fields_.Box(Domain).Text(),
            fields_.Box(TelNo).Text(), fields_.Box(OrgName).Text(),  options_[0]->Value(),
            options_[1]->Value()};
}

void dlgSMSSetup::OnButton(int index)
{
    if (index == 0)
        Save();
    else
        DialogForm::OnButton(index);
}

void dlgSMSSetup::Save()
{
    if (!fields_.RequireAll() || !Write())
        return;
    services_.desktop.MsgBox(QStringLiteral("정상적으로 문자메시지 환경설정을 완료하였습니다."),
                             MsgBoxInformation, QStringLiteral("환경설정"));
    Unload();
    LoadSMSSetup(services_.session, services_.db);
}

bool dlgSMSSetup::Write()
{
    return WhileScreenBusy(services_, [this] {
        return WithDatabase(services_.db,
                            [this] { return services_.db.ExecuteSQL(SettingsUpdate(Typed())); });
    });
}

void dlgSMSSetup::BoxKeyPress(int index, char16_t& key)
{
    if (index == TelNo)
        FilterNumberKey(key);
    if (key != u'\r')
        return;
    if (index < OrgName) {
        fields_.NextOnEnter(index, key);
        return;
    }
    options_[0]->setFocus(Qt::OtherFocusReason);
    key = 0;
}

} // namespace tsms
