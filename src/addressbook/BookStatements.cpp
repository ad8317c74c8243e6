#include "addressbook/BookStatements.h"

namespace tsms {

Statement GroupList()
{
    return u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm";
}

Statement BrowseGroups()
{
    return u" SELECT  GroupCd , GroupNm FROM SMSGroupMst  ";
}

Statement BrowseMembers(const MemberFilter& filter)
{
    Statement select;
    select.Own(u" SELECT ");
    select.Own(u"GSubCd, (CASE WHEN P.GroupCd IS NULL THEN '기타' ELSE (SELECT  GroupNm FROM SMSGroupMst "
               u"WHERE GroupCd = P.GroupCd) END) AS GroupNm,  GSubNm, GSPhone ");
    select.Own(u"FROM SMSGroupSub AS P ");
    if (filter.entry < 1)
        return select;
    if (filter.groupCode == 0)
        return select.Own(u" WHERE P.GroupCd IS NULL");
    return select.Own(u" WHERE P.GroupCd = ").Bare(QString::number(filter.groupCode));
}

Statement MembersOfGroup(const QString& groupCode)
{
    if (groupCode.isEmpty())
        return u"SELECT * FROM SMSGroupSub WHERE GroupCd IS NULL";
    return Statement(u"SELECT * FROM SMSGroupSub WHERE GroupCd =").Bare(groupCode);
}

Statement DeleteMember(const QString& memberCode)
{
    return Statement(u"DELETE FROM SMSGroupSub WHERE GSubCd =").Bare(memberCode);
}

Statement DeleteGroup(const QString& groupCode)
{
    return Statement(u"DELETE FROM SMSGroupMst WHERE GroupCd =").Bare(groupCode);
}

Statement ReleaseMembers(const QString& groupCode)
{
    return Statement(u"UPDATE SMSGroupSub SET GroupCd = NULL WHERE GroupCd =").Bare(groupCode);
}

} // namespace tsms
