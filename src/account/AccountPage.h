#pragma once

#include "toolkit/Controls.h"

#include <array>

class QVBoxLayout;

namespace tsms {

class ComboBox;
class fpSpread;
struct Services;

/// The page of the charge ledger and of the monthly statistics.
class AccountPage : public Panel
{
    Q_OBJECT

public:
    AccountPage(Services& services, QWidget* parent);

    /// The years to choose from, at the load of the window, and the present one.
    void Load();

    /// Lays both grids out anew, at each entry to the page.
    void SetUpGrids();

    fpSpread& Ledger() { return *ledger_; }
    fpSpread& MonthGrid() { return *months_; }

private:
    void BuildLedger(QVBoxLayout& page);
    void BuildMonths(QVBoxLayout& page);
    PushButton* BuildButton(int index, const QString& caption);

    Services& services_;
    fpSpread* ledger_ = nullptr;           // fpSpreadCharge
    fpSpread* months_ = nullptr;           // fpSpreadMonth
    ComboBox* year_ = nullptr;             // CbMonthYear
    std::array<PushButton*, 4> buttons_{}; // BtnChargeFunc
};

} // namespace tsms
