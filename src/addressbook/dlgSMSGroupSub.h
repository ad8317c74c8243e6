#pragma once

#include "addressbook/BookEditor.h"

#include <array>

class QGridLayout;

namespace tsms {

class ComboBox;
class Label;
class Recordset;
struct MemberFields;

/// The dialog that adds a person to the address book or changes one. Its construction reads the groups.
class dlgSMSGroupSub : public BookEditor
{
    Q_OBJECT

public:
    dlgSMSGroupSub(Services& services, std::function<void()> reload, QWidget* owner = nullptr);

    /// Loads one member into the fields. Opens and closes the database itself and reports its failures, also
    /// that there is no such member any more.
    void GetGroupSubData(const QString& code);

private:
    void BuildFields();
    void BuildBox(int index, const QString& caption, QGridLayout& rows);
    void LoadGroups();
    void ShowMember(const Recordset& member);

    void BoxKeyPress(int index, char16_t& key);

    bool FieldsPass() override;
    MemberFields Typed() const;
    TextBox& EntryName() const override;
    Statement Namesakes() const override;
    Statement Storing() const override;

    ComboBox* group_ = nullptr;        // CbGroup
    std::array<Label*, 2> captions_{}; // lblTitle
    std::array<TextBox*, 2> boxes_{};  // txtGroupSub
};

} // namespace tsms
