#pragma once

#include "recipients/PhoneSet.h"

#include <QList>
#include <QString>

namespace tsms {

/// A person of the address book, as stored.
struct BookPerson
{
    QString code;
    QString name;
    QString phone;
};

/// Of members that were ticked one by one, those to add: each whose number is not chosen yet. It is chosen
/// from its turn on.
QList<BookPerson> TakeUnchosen(const QList<BookPerson>& members, PhoneSet& chosen);

/// Of a group that was ticked, the members to add; their numbers are chosen from then on. Meant: the first
/// member whose number is chosen already keeps all that follow it in the group out.
QList<BookPerson> TakeUpToChosen(const QList<BookPerson>& group, PhoneSet& chosen);

} // namespace tsms
