#pragma once

#include "recipients/RecipientList.h"

#include <QList>
#include <QStringList>

namespace tsms {

class fpSpread;

/// The list of recipients as the grid of the compose page holds it: the grid is the only store.
class GridRecipientList final : public RecipientList
{
public:
    enum Column : int {
        RunningNumberColumn = 1,
        NameColumn = 2,
        PhoneColumn = 3,
        RemoveColumn = 4,
        ThirdValueColumn = 5, ///< hidden
    };

    /// The grid is laid out by Reset, and not before.
    explicit GridRecipientList(fpSpread& grid) : grid_(grid) {}

    int Rows() const override;
    QString Name(int row) const override;
    QString Phone(int row) const override;
    bool IsRemoved(int row) const override;
    void Reset() override;
    void Resize(int rows) override;
    void Write(int row, QString name, QString phone) override;
    void WriteRunningNumber(int row, QString number) override;
    void WriteThirdValue(int row, QString value) override;
    void InOneGo(const std::function<void()>& changes) override;

    /// Hides the active row, which keeps what it holds, and numbers the rows that are left. Raises 6 beyond
    /// 32,767 rows: its counters have 16 bits.
    void RemoveActive();

    /// Puts rows of names and numbers, or of numbers alone, into the rows on view from the active cell on,
    /// each value up to its column's limit, as if it had been typed. From the number column on a row's first
    /// value is the number; from any other but the remove button's the name. Further values are left out. The
    /// list grows as long as rows are left, and its new rows are numbered on.
    void Paste(const QList<QStringList>& rows);

    /// The walk of the Enter key: from name to number to the next row's name.
    void WalkOnEnter();

    /// Makes the name of the first row on view that is empty the active cell; without one the name in the
    /// active row.
    void GoToFreeName();

private:
    bool IsFree(int row) const;
    int CountOnView(int first) const;
    void AddNumberedRows(int count);
    void NumberAnew();

    fpSpread& grid_;
};

} // namespace tsms
