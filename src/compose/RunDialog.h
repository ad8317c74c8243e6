#pragma once

#include "compose/RunDisplay.h"
#include "toolkit/windows/DialogForm.h"

#include <array>
#include <cstdint>

namespace tsms {

class Label;
class ProgressBar;
struct Services;

/// What the dialogs of a send and of a cancellation have in common: counts, a progress line, a bar, and a
/// first button that begins the run.
class RunDialog : public DialogForm, protected RunDisplay
{
    Q_OBJECT

public:
    bool IsBusy() const override;

protected:
    /// What tells the two apart.
    struct Words
    {
        QString title;
        QString totalCaption;
        QString runCaption;  ///< of the first button
        QString firstStatus; ///< the progress line before the run
        QString lastStatus;  ///< and at its end, which has room from the start
    };

    /// A dialog about so many messages.
    RunDialog(Services& services, const Words& words, std::int32_t total, QWidget* owner);

    void OnButton(int index) override;

    /// A press of the first button. Nothing else of the dialog begins before it has returned.
    virtual void Run() = 0;

    // RunDisplay
    void SetRunBusy(bool busy) override;
    void SetBarMaximum(int maximum) override;
    void SetBarValue(int value) override;
    void ShowCounts(const QString& succeeded, const QString& failed) override;
    void ShowStatus(const QString& text) override;

    Services& services_;

private:
    void BuildCounts(const QString& totalCaption);
    void BuildProgress(const Words& words);
    void ShowTotal(std::int32_t total);

    bool running_ = false;            ///< what a press of the first button began has not come to its end
    std::array<Label*, 4> numbers_{}; // LblSendSMS
    Label* status_ = nullptr;         // lblStatus
    ProgressBar* bar_ = nullptr;      // PB
};

} // namespace tsms
