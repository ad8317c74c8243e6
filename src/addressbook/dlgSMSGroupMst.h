#pragma once

#include "addressbook/BookEditor.h"

namespace tsms {

/// The small dialog that adds a group or renames one.
class dlgSMSGroupMst : public BookEditor
{
    Q_OBJECT

public:
    dlgSMSGroupMst(Services& services, std::function<void()> reload, QWidget* owner = nullptr);

    /// The group to rename.
    void SetGroup(const QString& code, const QString& name);

private:
    void BuildName();
    void NameKeyPress(char16_t& key);

    bool FieldsPass() override;
    TextBox& EntryName() const override;
    Statement Namesakes() const override;
    Statement Storing() const override;

    TextBox* name_ = nullptr; // txtGroupNm
};

} // namespace tsms
