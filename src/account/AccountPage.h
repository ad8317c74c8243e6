#pragma once

#include "toolkit/fields/Controls.h"

#include <array>
#include <functional>

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
    /// What the page asks of the window it stands on.
    struct Window
    {
        /// The active row of the recipient list. A delete tests that row of the ledger for being there.
        std::function<int()> recipientRow;
        /// Takes a grid away as a workbook of that title. Answers in words what became of it, or nothing.
        std::function<QString(const fpSpread& grid, const QString& title)> exportGrid;
    };

    AccountPage(Services& services, Window window, QWidget* parent);

    /// The years to choose from, at the load of the window, and the present one.
    void Load();

    /// Lays both grids out anew and fills them.
    void Enter();

private:
    void BuildLedger(QVBoxLayout& page);
    void BuildMonths(QVBoxLayout& page);
    PushButton* BuildButton(int index, const QString& caption);
    void SetUpLedger();
    void SetUpMonths();

    void BtnChargeFuncClick(int index);
    void EnterCharge();
    void ShowYear();

    Services& services_;
    Window window_;
    std::array<PushButton*, 4> buttons_{}; // BtnChargeFunc
    fpSpread* ledger_ = nullptr;           // fpSpreadCharge
    fpSpread* months_ = nullptr;           // fpSpreadMonth
    ComboBox* year_ = nullptr;             // CbMonthYear
};

} // namespace tsms
