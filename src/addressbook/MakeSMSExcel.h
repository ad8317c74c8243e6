#pragma once

#include "runtime/Numbers.h"
#include "toolkit/windows/DialogForm.h"

namespace tsms {

class ComboBox;
class fpSpread;
class Label;
class ProgressBar;
class RecipientList;
class SheetOperations;
struct Services;

/// The dialog that fills the recipient list from a spreadsheet: choosing a file starts the import at once,
/// and a good one ends the dialog. Meant: from a workbook with fewer than three sheets, and from a file that
/// is no workbook, it takes nothing and says nothing.
class MakeSMSExcel : public DialogForm
{
    Q_OBJECT

public:
    MakeSMSExcel(Services& services, RecipientList& recipients, QWidget* owner = nullptr);

protected:
    void GiveHeight(int pixels) override;

private:
    /// How many rows were taken and how many lost. A step beyond 32,767 raises 6.
    struct Counts
    {
        Counter16 good;
        Counter16 lose;
    };

    void BuildFile();
    void BuildNotes();
    void BuildResult();
    void Load();

    void cmdSearchClick();
    void Import(const QString& path);
    void ListSheets(SheetOperations& operations, const QString& path);
    void ReadSheet(const SheetOperations& operations);
    std::int32_t FindEnd();
    void TakeRows(std::int32_t total);
    Counts JudgeRows(std::int32_t total);
    void TakeRow(int row, Counts& counts);
    void WriteGoodRow(int row, QString name, QString phone, Counts& counts);
    void ShowProgress(std::int32_t total, int row, const Counts& counts);
    void SetRunBusy(bool busy);
    QString SheetText(int column, int row) const;

    Services& services_;
    RecipientList& recipients_;
    Label* path_ = nullptr; // PlExcelPath
    PushButton* search_ = nullptr;
    ComboBox* sheets_ = nullptr; // CbExcelSheet
    fpSpread* sheet_ = nullptr;  // TEMPfpSpread
    Label* progress_ = nullptr;  // lblCountNm
    Label* goodCount_ = nullptr; // LblTotalCnt
    Label* loseCount_ = nullptr; // LblLoseCnt
    ProgressBar* bar_ = nullptr; // PB
};

} // namespace tsms
