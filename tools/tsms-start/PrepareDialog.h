#pragma once

#include "runtime/Desktop.h"
#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"
#include "tsms-start/StartServices.h"

#include <memory>

namespace tsms {

class MemoBox;

/// Makes what a server's database lacks, for its owner: shows the script first, word for word, and runs what
/// it shows.
class PrepareDialog : public DialogForm
{
    Q_OBJECT

public:
    /// `password` is that of the connection's own log-in, as far as it is known.
    PrepareDialog(StartServices& services, SavedConnection connection, const QString& password,
                  QWidget* owner);

protected:
    void OnButton(int index) override;

private:
    void BuildFields(const QString& password);
    void BuildScript();
    void KeyPress(int index, char16_t& key);
    void ForgetScript();

    void Look();
    void Run();
    std::unique_ptr<Connection> Open() const;
    void Tell(const QString& words, MsgBoxStyle style);

    StartServices& services_;
    TextHelper textHelper_;
    FieldRows fields_;
    SavedConnection connection_;
    MemoBox* shown_ = nullptr;
    QString script_; ///< that stands on view
};

} // namespace tsms
