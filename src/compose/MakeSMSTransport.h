#pragma once

#include "compose/DispatchRun.h"
#include "toolkit/DialogForm.h"

namespace tsms {

class CheckBox;
class ComboBox;
class DatePicker;
class Label;
class ProgressBar;
struct Services;

/// The dialog that carries out a send and shows how far it has come. The caller sets the total and the
/// status line before it shows the dialog.
class MakeSMSTransport : public DialogForm, private RunDisplay
{
    Q_OBJECT

public:
    /// `message` and `senderNumber` are read when the run starts.
    struct Source
    {
        const RecipientRows& rows;
        std::function<QString()> message;
        std::function<QString()> senderNumber;
    };

    MakeSMSTransport(Services& services, Source source, QWidget* parent = nullptr);

    /// Empty for a send.
    QString RunMode;

    /// The number of recipients, as Tag and caption of the total, and the status line that goes with it.
    void SetTotal(std::int32_t recipients);

protected:
    void OnButton(int index) override;

private:
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

    // RunDisplay
    void SetRunBusy(bool busy) override;
    QString TotalText() const override;
    void SetBarMaximum(int maximum) override;
    void SetBarValue(int value) override;
    void ShowCounts(const QString& succeeded, const QString& failed) override;
    void ShowStatus(const QString& text) override;

    Services& services_;
    Source source_;
    Label* numbers_[4] = {};
    Label* status_ = nullptr;
    ProgressBar* bar_ = nullptr;
    CheckBox* reserve_ = nullptr;
    DatePicker* date_ = nullptr;
    ComboBox* hour_ = nullptr;
    ComboBox* minute_ = nullptr;
};

} // namespace tsms
