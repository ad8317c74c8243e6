#pragma once

#include "compose/Draft.h"
#include "compose/RunDialog.h"

namespace tsms {

class CheckBox;
class ComboBox;
class DatePicker;

/// The dialog that carries out a send, at once or for a chosen time.
class MakeSMSTransport : public RunDialog
{
    Q_OBJECT

public:
    MakeSMSTransport(Services& services, const Draft& draft, QWidget* owner = nullptr);

private:
    void BuildReservation();
    void ChkTimeClick();
    void FillTimeLists();
    void EnableReservation(bool enabled);
    void SetUsable(bool usable) override;
    struct ChosenTime Chosen() const;

    void Run() override;
    bool IsReservationGood();
    void TellOutcome(std::int32_t countOK);

    Draft draft_;
    CheckBox* reserve_ = nullptr;
    DatePicker* date_ = nullptr;
    ComboBox* hour_ = nullptr;
    ComboBox* minute_ = nullptr;
};

} // namespace tsms
