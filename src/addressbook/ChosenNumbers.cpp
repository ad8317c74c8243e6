#include "addressbook/ChosenNumbers.h"

namespace tsms {

QList<BookPerson> TakeUnchosen(const QList<BookPerson>& members, ChosenNumbers& chosen)
{
    QList<BookPerson> taken;
    for (const BookPerson& member : members) {
        if (chosen.Contains(member.phone))
            continue;
        chosen.Insert(member.phone);
        taken += member;
    }
    return taken;
}

QList<BookPerson> TakeUpToChosen(const QList<BookPerson>& group, ChosenNumbers& chosen)
{
    QList<BookPerson> taken;
    for (const BookPerson& member : group) {
        if (chosen.Contains(member.phone))
            break;
        chosen.Insert(member.phone);
        taken += member;
    }
    return taken;
}

} // namespace tsms
