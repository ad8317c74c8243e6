#pragma once

#include "addressbook/ComparedNumber.h"

#include <QList>
#include <QSet>
#include <QString>
#include <QStringView>

namespace tsms {

/// A person of the address book, as stored.
struct BookPerson
{
    QString code;
    QString name;
    QString phone;
};

/// The numbers that stand in the chosen list, by their compared form, so that looking for one costs the same
/// however long the list is. Only rows on view count, and no two of these ever hold the same number.
class ChosenNumbers
{
public:
    bool Contains(QStringView number) const { return numbers_.contains(ComparedNumber(number)); }
    void Insert(QStringView number) { numbers_.insert(ComparedNumber(number)); }
    void Remove(QStringView number) { numbers_.remove(ComparedNumber(number)); }
    void Clear() { numbers_.clear(); }

private:
    QSet<QString> numbers_;
};

/// Of members that were ticked one by one, those to add: each whose number is not chosen yet. It is chosen
/// from its turn on.
QList<BookPerson> TakeUnchosen(const QList<BookPerson>& members, ChosenNumbers& chosen);

/// Of a group that was ticked, the members to add; their numbers are chosen from then on. Meant: the first
/// member whose number is chosen already keeps all that follow it in the group out.
QList<BookPerson> TakeUpToChosen(const QList<BookPerson>& group, ChosenNumbers& chosen);

} // namespace tsms
