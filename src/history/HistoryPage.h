#pragma once

#include "toolkit/Controls.h"
#include "toolkit/TextHelper.h"

#include <array>

class QHBoxLayout;
class QVBoxLayout;

namespace tsms {

class ComboBox;
class DatePicker;
class fpSpread;
class TextBox;
struct Services;

/// The page on which sent messages are looked for and listed.
class HistoryPage : public Panel
{
    Q_OBJECT

public:
    HistoryPage(Services& services, QWidget* parent);

    /// First state of the search, at the load of the window: today, all fields, all statuses.
    void Load();

    /// The focus that belongs to an entry to the page.
    void FocusSearch();

    fpSpread& SendList() { return *list_; }

private:
    QWidget* BuildSearch();
    void BuildPeriod(QHBoxLayout& row, QWidget& parent);
    void BuildStatus(QHBoxLayout& row, QWidget& parent);
    void BuildListHead(QVBoxLayout& page);
    void BuildButtons(QVBoxLayout& page);

    Services& services_;
    TextHelper textHelper_;
    std::array<DatePicker*, 2> dates_{};   // DTPSendDt
    ComboBox* field_ = nullptr;            // CbSerch
    TextBox* search_ = nullptr;            // txtSerch
    std::array<RadioButton*, 4> status_{}; // OptSendStatus
    PushButton* run_ = nullptr;            // BtnSendListSerch
    Label* count_ = nullptr;               // LblSendListCnt
    CheckBox* all_ = nullptr;              // chkAll
    fpSpread* list_ = nullptr;             // fpSpreadSendList
    std::array<PushButton*, 3> buttons_{}; // BtnSendListFun
};

} // namespace tsms
