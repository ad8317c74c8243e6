#pragma once

#include "toolkit/windows/DialogForm.h"

#include <array>
#include <functional>
#include <memory>

namespace tsms {

class BrowseList;
class ChosenList;
class ComboBox;
class fpSpread;
class RadioButton;
class RecipientList;
class Statement;
struct BookControls;
struct Services;

/// The address book: the browse list, which shows members or groups, and the chosen list, which collects
/// recipients until they are handed over to the recipient list. The chosen list lives as long as the dialog.
///
/// "기타" stands for the members without a group. It is no row of the database: the browse list of groups
/// ends with it, in a row without a code.
class dlgSMSGroupSelect : public DialogForm
{
    Q_OBJECT

public:
    /// `recipients` takes what is handed over.
    dlgSMSGroupSelect(Services& services, RecipientList& recipients, QWidget* owner = nullptr);
    ~dlgSMSGroupSelect() override;

    /// Fills the browse list for the present view and filter, on an open connection. Ticks stay on their
    /// rows.
    void GetGroupMst();

protected:
    void OnFirstActivation() override;
    void OnButton(int index) override;
    void GiveHeight(int pixels) override;

private:
    void Connect(const BookControls& controls);
    void Load();

    bool IsShowingMembers() const;
    void InitMemberGrid();
    void InitGroupGrid();
    void InitChosenGrid();
    void FillGroupCombo();
    Statement BrowseStatement() const;
    void LayOutBrowse(bool members);
    void Reload();

    void OptTypeClick(int index);
    void BtnAddClick(int index);
    void BtnFuncAddClick(int index);
    void BrowseClick(int column);
    void BrowseMemberClick(int column);
    void BrowseGroupClick(int column);
    void ChosenClick(int column);

    void EditMember();
    void DeleteMember();
    void EditGroup();
    void DeleteGroup();
    bool ConfirmDelete(const QString& name, const QString& title);
    void TellDeleted();

    void AddTicked();
    void AddTickedGroups();
    bool AddGroup(const QString& code);
    void EmptyChosen();
    void Include();

    void Trapped(const std::function<void()>& body);

    Services& services_;
    RecipientList& recipients_;
    std::array<RadioButton*, 2> view_{}; // OptType
    ComboBox* filter_ = nullptr;         // CbGroup
    fpSpread* browse_ = nullptr;         // fpSpreadMst
    fpSpread* chosen_ = nullptr;         // fpSpread
    std::unique_ptr<BrowseList> book_;   // what stands in browse_
    std::unique_ptr<ChosenList> list_;   // what stands in chosen_
};

} // namespace tsms
