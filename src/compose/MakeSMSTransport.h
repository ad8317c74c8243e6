#pragma once

#include "compose/RunDisplay.h"
#include "toolkit/windows/DialogForm.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tsms {

class CheckBox;
class ComboBox;
class DatePicker;
class Label;
class ProgressBar;
class RecipientList;
class SentRows;
struct Services;

/// The dialog that carries out a send or a cancellation and shows how far it has come. The caller says how
/// many messages it is about, by SetTotal or PrepareCancellation, before it shows the dialog.
class MakeSMSTransport : public DialogForm, private RunDisplay
{
    Q_OBJECT

public:
    /// `message` and `senderNumber` are read when the run starts.
    struct Source
    {
        const RecipientList& recipients;
        std::function<QString()> message;
        std::function<QString()> senderNumber;
    };

    /// For a send.
    MakeSMSTransport(Services& services, Source source, QWidget* parent = nullptr);

    /// For a cancellation of the ticked rows.
    MakeSMSTransport(Services& services, const SentRows& sent, QWidget* parent = nullptr);

    /// Empty for a send, "DEL" for a cancellation. With anything else the dialog does nothing.
    QString RunMode;

    /// The number of recipients, as Tag and caption of the total, and the status line that goes with it.
    void SetTotal(std::int32_t recipients);

    /// Makes it a cancellation of that many messages.
    void PrepareCancellation(std::int32_t messages);

    /// The first time it is shown, a cancellation takes its form before anything is drawn.
    void setVisible(bool visible) override;

protected:
    bool IsBusy() const override;
    void OnButton(int index) override;

private:
    MakeSMSTransport(Services& services, QWidget* parent);

    void BuildCounts(QVBoxLayout& body);
    void BuildReservation(QVBoxLayout& body);
    void ChkTimeClick();
    void FillTimeLists();
    void EnableReservation(bool enabled);
    struct ChosenTime Chosen();

    void Send();
    bool ReservationPasses();
    bool BalanceCovers();
    void TellOutcome(std::int32_t countOK);

    void TurnIntoCancellation();
    void ShowTotal(std::int32_t count, const QString& lastStatus);
    void Cancel();
    void TellCancelOutcome(std::int32_t countOK);

    // RunDisplay
    void SetRunBusy(bool busy) override;
    QString TotalText() const override;
    void SetBarMaximum(int maximum) override;
    void SetBarValue(int value) override;
    void ShowCounts(const QString& succeeded, const QString& failed) override;
    void ShowStatus(const QString& text) override;

    Services& services_;
    std::optional<Source> source_;
    const SentRows* sent_ = nullptr;
    bool shown_ = false;
    bool running_ = false; ///< what a press of the first button began has not come to its end
    Label* numbers_[4] = {};
    Label* totalCaption_ = nullptr; // Label1(0)
    Label* status_ = nullptr;
    ProgressBar* bar_ = nullptr;
    CheckBox* reserve_ = nullptr;
    DatePicker* date_ = nullptr;
    ComboBox* hour_ = nullptr;
    ComboBox* minute_ = nullptr;
};

} // namespace tsms
