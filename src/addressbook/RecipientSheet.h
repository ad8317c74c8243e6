#pragma once

#include "addressbook/ComparedNumber.h"

#include <QHash>
#include <QString>

namespace tsms {

/// The recipient list as the reader of recipient files works on it. Rows are counted from 1.
class RecipientSheet
{
public:
    virtual ~RecipientSheet() = default;
    virtual int MaxRows() const = 0;
    virtual void SetMaxRows(int rows) = 0;
    virtual bool RowHidden(int row) const = 0;
    virtual QString PhoneText(int row) const = 0; ///< as it stands in the cell
    virtual void Write(int row, const QString& number, const QString& name, const QString& phone) = 0;
};

/// The numbers in the rows of a list that are not hidden: what a scan of the whole list would find, kept so
/// that no scan is needed.
class ListedNumbers
{
public:
    explicit ListedNumbers(const RecipientSheet& list);

    /// Whether a number, which must not be empty, may come to stand in a row: false when it is listed
    /// already. When it may, it is listed from now on and the one that stands in the row until then is not.
    bool Take(int row, const QString& phone);

private:
    int& RowsWith(const QString& phone);

    const RecipientSheet& list_;
    // How many rows have a number, by its compared form: of digits alone, as nearly all are, or any other.
    QHash<quint64, int> digits_;
    QHash<QString, int> others_;
};

} // namespace tsms
