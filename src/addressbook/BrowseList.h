#pragma once

#include "addressbook/BookPerson.h"

#include <QStringList>

#include <memory>

namespace tsms {

class fpSpread;
class Recordset;

/// What stands in the browse list of the address book. A row is ticked by its picture alone, so ticks stay on
/// their rows when other records are shown.
class BrowseList
{
public:
    explicit BrowseList(fpSpread& grid) : grid_(grid) {}

    void ShowMembers(const std::shared_ptr<const Recordset>& records);

    /// With "기타" in a last row, which has no code.
    void ShowGroups(const std::shared_ptr<const Recordset>& records);

    QList<BookPerson> TickedMembers() const;

    /// The codes of the ticked groups, trimmed; an empty one stands for "기타".
    QStringList TickedGroups() const;

    /// Of the grid's active row, trimmed.
    QString ActiveText(int column) const;

private:
    QString TextOf(int column, int row) const;

    fpSpread& grid_;
};

/// The entry of every list of groups that stands for the members without one. It is no row of the database.
QString OtherGroup();

} // namespace tsms
