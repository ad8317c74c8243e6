#include "addressbook/ComparedNumber.h"

#include "runtime/Text.h"

namespace tsms {

QString ComparedNumber(QStringView number)
{
    return Trim(number).removeIf([](QChar c) { return c == u'-' || c == u'/' || c == u'.'; });
}

} // namespace tsms
