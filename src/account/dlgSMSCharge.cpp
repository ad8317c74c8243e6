#include "account/dlgSMSCharge.h"

#include "runtime/Clock.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "store/LoadSMSSetup.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"

namespace tsms {

namespace {

// The boxes count from 1: the date, which is none, has the caption 0.
enum ChargeField : int { Date, Count, Amount, UnitPrice, Remark };

constexpr int NumberLimit = 10;  // bytes
constexpr int RemarkLimit = 200; // characters, and bytes as well

DialogFrame ChargeFrame()
{
    DialogFrame frame;
    frame.name = QStringLiteral("dlgSMSCharge");
    frame.caption = QStringLiteral("문자메시지 충전");
    frame.title = frame.caption;
    frame.titleLabel = QStringLiteral("lblTitle1(1)");
    frame.note = QStringLiteral("문자메시지 사이트에 충전한 내역을 등록하십시오.");
    frame.noteLabel = QStringLiteral("lblTitle1(0)");
    frame.buttons = {QStringLiteral("저장(F12)"), QStringLiteral("취소(ESC)")};
    frame.arrowsWalk = true;
    return frame;
}

} // namespace

dlgSMSCharge::dlgSMSCharge(Services& services, std::function<void()> showLedger, QWidget* owner)
    : DialogForm(services.session, services.desktop, ChargeFrame(), owner),
      services_(services),
      textHelper_(services.desktop),
      fields_(Body(), BodyLayout(), textHelper_),
      showLedger_(std::move(showLedger))
{
    BuildDate();
    BuildFields();
}

void dlgSMSCharge::BuildDate()
{
    date_ = new DatePicker(&Body(), QStringLiteral("DTPChargeDt"));
    date_->SetValue(services_.clock.Date());
    date_->OnChoose = WhenIdle(*this, [this] { fields_.Box(Count).SetFocus(); });
    fields_.AddControl(Date, QStringLiteral("충전일시 :"), *date_);
}

void dlgSMSCharge::BuildFields()
{
    fields_.AddBox(Count, QStringLiteral("충전건수 :"), 10);
    fields_.AddBox(Amount, QStringLiteral("충전금액 :"), 10);
    fields_.AddBox(UnitPrice, QStringLiteral("건당단가 :"), 4);
    fields_.AddMemo(Remark, QStringLiteral("메모사항 :"), RemarkLimit).SetImeMode(ImeMode::Hangul);
    for (int index = Count; index <= Remark; ++index) {
        TextField& box = fields_.Box(index);
        box.SetByteLimit(index == Remark ? RemarkLimit : NumberLimit);
        if (index != Remark) {
            box.SetFilter(GroupThousands);
            box.SetSeparator(u',');
        }
        box.OnKeyPress = [this, index](char16_t& key) { BoxKeyPress(index, key); };
    }
}

QString dlgSMSCharge::PlainText(int index)
{
    return textHelper_.PlainNumber(fields_.Box(index).Text(), QString());
}

ChargeEntry dlgSMSCharge::Typed()
{
    const auto number = [this](int index) {
        return IsBlank(fields_.Box(index).Text()) ? std::nullopt : std::optional(PlainText(index));
    };
    return {date_->Value(), number(Count), number(Amount), fields_.Box(UnitPrice).Text(),
            fields_.Box(Remark).Text()};
}

void dlgSMSCharge::OnButton(int index)
{
    if (index == 0)
        Save();
    else
        DialogForm::OnButton(index);
}

void dlgSMSCharge::Save()
{
    if (!fields_.RequireAll() || !HasNumericCount() || !Write())
        return;
    services_.desktop.MsgBox(QStringLiteral("정상적으로 문자메시지 충전내역을 등록하였습니다."),
                             MsgBoxInformation, QStringLiteral("문자메시지 충전!!!"));
    Unload();
    LoadSMSSetup(services_.session, services_.db);
    showLedger_();
}

bool dlgSMSCharge::HasNumericCount()
{
    if (IsNumeric(fields_.Box(Count).Text()))
        return true;
    services_.desktop.MsgBox(QStringLiteral("올바른 충전건수를 입력하여 주십시오.!!!"), MsgBoxCritical,
                             QStringLiteral("문자메시지 충전"));
    fields_.Box(Count).SetFocus();
    return false;
}

/// The two statements stand alone: an entry that is in the ledger stays there when its credit cannot be
/// given.
bool dlgSMSCharge::Write()
{
    return WhileScreenBusy(services_, [this] {
        return WithDatabase(services_.db, [this] {
            return services_.db.ExecuteSQL(ChargeInsert(Typed())) &&
                   services_.db.ExecuteSQL(BalancePlus(PlainText(Count)));
        });
    });
}

void dlgSMSCharge::BoxKeyPress(int index, char16_t& key)
{
    if (index != Remark)
        FilterNumberKey(key);
    if (key != u'\r')
        return;
    if (index == Remark)
        textHelper_.LastFieldOnEnter(key, fields_.Box(index));
    else
        fields_.NextOnEnter(index, key);
}

} // namespace tsms
