#pragma once

#include "toolkit/fields/Controls.h"

#include <array>
#include <cstdint>
#include <functional>

class QHBoxLayout;
class QVBoxLayout;

namespace tsms {

class ComboBox;
class DatePicker;
class fpSpread;
class SentRows;
class TextBox;
struct SendListSearch;
struct Services;

/// The page on which sent messages are looked for and listed.
class HistoryPage : public Panel
{
    Q_OBJECT

public:
    /// What the page needs of the window around it.
    struct Window
    {
        /// Withdraws the ticked rows, `count` of them, and returns when that is over.
        std::function<void(const SentRows& rows, std::int32_t count)> cancel;
        /// Takes the list away as a workbook. Answers in words what became of it, or nothing.
        std::function<QString(const fpSpread& list, const QString& title)> exportGrid;
    };

    HistoryPage(Services& services, Window window, QWidget* parent);

    /// First state of the search, at the load of the window: today, all fields, all statuses.
    void Load();

    /// An entry to the page: the focus goes to the search text and the search runs.
    void Enter();

private:
    QWidget* BuildSearch();
    void BuildPeriod(QHBoxLayout& row, QWidget& parent);
    void BuildStatus(QHBoxLayout& row, QWidget& parent);
    void BuildListHead(QVBoxLayout& page);
    void BuildButtons(QVBoxLayout& page);

    void BtnSendListSerchClick();
    bool IsWithinOneYear();
    void RunQuery(const QString& period);
    void FillList(const QString& period);
    SendListSearch Asked(const QString& period);
    int ChosenStatus() const;
    void ShowCount(int records);

    void StatusClick();
    void BtnSendListFunClick(int index);
    void ShowDetail();
    void CancelTicked();

    Services& services_;
    Window window_;
    std::array<DatePicker*, 2> dates_{};   // DTPSendDt
    ComboBox* field_ = nullptr;            // CbSerch
    TextBox* search_ = nullptr;            // txtSerch
    std::array<RadioButton*, 4> status_{}; // OptSendStatus
    Label* count_ = nullptr;               // LblSendListCnt
    CheckBox* all_ = nullptr;              // chkAll
    fpSpread* list_ = nullptr;             // fpSpreadSendList
    PushButton* export_ = nullptr;         // BtnSendListFun(2)
};

} // namespace tsms
