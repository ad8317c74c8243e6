#pragma once

#include "account/ChargeStatements.h"
#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"

#include <functional>

namespace tsms {

class DatePicker;
struct Services;

/// The dialog that enters a charge into the ledger and adds its count to the balance. Nothing is computed:
/// the amount and the unit price stand as they are typed.
class dlgSMSCharge : public DialogForm
{
    Q_OBJECT

public:
    /// `showLedger` is called when an entry has been saved and the dialog is gone.
    dlgSMSCharge(Services& services, std::function<void()> showLedger, QWidget* owner = nullptr);

protected:
    void OnButton(int index) override;

private:
    void BuildDate();
    void BuildFields();
    ChargeEntry Typed();
    QString PlainText(int index);

    void Save();
    bool HasNumericCount();
    bool Write();
    void BoxKeyPress(int index, char16_t& key);

    Services& services_;
    TextHelper textHelper_;
    FieldRows fields_;
    std::function<void()> showLedger_;
    DatePicker* date_ = nullptr; // DTPChargeDt
};

} // namespace tsms
