#include "addressbook/BookPerson.h"

namespace tsms {

QList<BookPerson> TakeUnchosen(const QList<BookPerson>& members, PhoneSet& chosen)
{
    QList<BookPerson> taken;
    for (const BookPerson& member : members)
        if (chosen.InsertNew(member.phone))
            taken += member;
    return taken;
}

QList<BookPerson> TakeUpToChosen(const QList<BookPerson>& group, PhoneSet& chosen)
{
    QList<BookPerson> taken;
    for (const BookPerson& member : group) {
        if (!chosen.InsertNew(member.phone))
            break;
        taken += member;
    }
    return taken;
}

} // namespace tsms
