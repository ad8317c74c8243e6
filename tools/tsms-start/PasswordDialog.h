#pragma once

#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"
#include "tsms-start/StartServices.h"

#include <optional>

namespace tsms {

/// Asks for the password of a connection.
class PasswordDialog : public DialogForm
{
    Q_OBJECT

public:
    /// `why` says why it is asked for although it is kept; empty when it is not.
    PasswordDialog(StartServices& services, const SavedConnection& connection, const QString& why,
                   QWidget* owner);

    /// Nothing when the user has not given one.
    const std::optional<QString>& Password() const { return password_; }

protected:
    void OnButton(int index) override;

private:
    void Accept();

    TextHelper textHelper_;
    FieldRows fields_;
    std::optional<QString> password_;
};

} // namespace tsms
