#include "addressbook/GroupStatements.h"

#include "runtime/Text.h"

namespace tsms {

Statement GroupsNamed(const QString& name)
{
    return Statement(u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm =").InQuotes(Trim(name));
}

Statement InsertGroup(const QString& name)
{
    return Statement(u"Insert into SMSGroupMst (GroupNm) values (").InQuotes(Trim(name)).Own(u")");
}

Statement RenameGroup(const QString& groupCode, const QString& name)
{
    return Statement(u"UPDATE SMSGroupMst set GroupNm=")
        .InQuotes(name)
        .Own(u" WHERE GroupCd=")
        .Bare(Trim(groupCode));
}

} // namespace tsms
