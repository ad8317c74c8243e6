#pragma once

#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"

#include <functional>

namespace tsms {

class TextBox;
struct Services;

/// The small dialog that adds a group or renames one. The opener sets AddMode and, for a rename, the titles
/// and SetGroup.
class dlgSMSGroupMst : public DialogForm
{
    Q_OBJECT

public:
    /// `reload` shows the groups anew, once the dialog has stored one and is unloaded.
    dlgSMSGroupMst(Services& services, std::function<void()> reload, QWidget* owner = nullptr);

    bool AddMode = false;

    /// The group to rename.
    void SetGroup(const QString& code, const QString& name);

protected:
    void OnButton(int index) override;

private:
    void BuildName();
    void NameKeyPress(char16_t& key);

    void Save();
    bool IsTaken();
    void TellTaken();
    void TellSaved();

    Services& services_;
    TextHelper textHelper_;
    std::function<void()> reload_;
    TextBox* name_ = nullptr; // txtGroupNm
};

} // namespace tsms
