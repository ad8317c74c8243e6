#pragma once

#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "toolkit/fields/FieldRows.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"
#include "tsms-start/BackgroundWork.h"
#include "tsms-start/StartServices.h"

#include <memory>
#include <optional>

namespace tsms {

class MemoBox;
class PushButton;

/// Makes what a server's database lacks, for its owner: shows the script first, word for word, and runs what
/// it shows. A server that does not answer can be left at any time; what was not at its end is taken back.
class PrepareDialog : public DialogForm
{
    Q_OBJECT

public:
    /// `password` is that of the connection's own log-in, as far as it is known.
    PrepareDialog(StartServices& services, SavedConnection connection, const QString& password,
                  QWidget* owner);

protected:
    bool QueryUnload() override;
    void OnButton(int index) override;

private:
    void BuildFields(const QString& password);
    void BuildScript();
    void KeyPress(int index, char16_t& key);
    void ForgetScript();

    void Look();
    void Run();
    void Stop();

    using Fault = std::optional<RuntimeError>; ///< of the database; nothing when all went well
    void End(const std::exception_ptr& raised);
    void EndLook(const Fault& fault);
    void EndRun(const Fault& fault);

    /// What is done on the owner's connection, beside the window.
    using Task = std::function<void(Connection&, const BackgroundWork::Line&)>;
    void Begin(bool makes, const Task& task);
    void ShowWorking(bool working);
    std::unique_ptr<Connection> OwnersConnection() const;
    void Tell(const QString& words, MsgBoxStyle style);

    StartServices& services_;
    TextHelper textHelper_;
    FieldRows fields_;
    SavedConnection connection_;
    PushButton* look_ = nullptr;
    MemoBox* shown_ = nullptr;
    QString script_;     ///< that stands on view
    bool makes_ = false; ///< what runs, or ran last; otherwise it only looks
    BackgroundWork work_{*this};
};

} // namespace tsms
