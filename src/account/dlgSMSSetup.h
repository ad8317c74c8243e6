#pragma once

#include "account/SettingsStatements.h"
#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"

#include <array>

namespace tsms {

class CheckBox;
class Recordset;
struct Services;

/// The dialog that edits the account row: who logs in at the gateway, and under which number and name
/// messages go out. The boxes are filled at its first activation and at no other: what was typed survives a
/// look at another window. Where the table has no row, the domain that the program was built with stands in
/// its box.
class dlgSMSSetup : public DialogForm
{
    Q_OBJECT

public:
    explicit dlgSMSSetup(Services& services, QWidget* owner = nullptr);

protected:
    void OnFirstActivation() override;
    void OnButton(int index) override;

private:
    void BuildFields();
    void BuildOptions();
    void Show(const Recordset& account);
    Settings Typed() const;

    void Save();
    bool Write();
    void BoxKeyPress(int index, char16_t& key);

    Services& services_;
    TextHelper textHelper_;
    FieldRows fields_;
    std::array<CheckBox*, 2> options_{}; // ChkOption
};

} // namespace tsms
