#include "addressbook/MemberStatements.h"

#include "runtime/Text.h"

namespace tsms {

namespace {

void AddGroup(Statement& statement, int groupCode)
{
    if (groupCode == 0)
        statement.Own(u"Null");
    else
        statement.Bare(QString::number(groupCode));
}

} // namespace

Statement MemberByCode(const QString& memberCode)
{
    return Statement(u"SELECT GSubCd,GroupCd, GSubNm,GSPhone FROM SMSGroupSub WHERE GSubCd=")
        .Bare(Trim(memberCode));
}

Statement MembersNamed(const QString& name)
{
    return Statement(u"SELECT GSubNm FROM SMSGroupSub   WHERE GSubNm =").InQuotes(Trim(name));
}

Statement InsertMember(const MemberFields& fields)
{
    Statement insert;
    insert.Own(u"Insert INTO SMSGroupSub ");
    insert.Own(u" (GroupCd, GSubNm, GSPhone ) ");
    insert.Own(u" VALUES (");
    AddGroup(insert, fields.groupCode);
    insert.Own(u",");
    insert.Quoted(fields.name).Own(u",");
    insert.Quoted(fields.phone).Own(u")");
    return insert;
}

Statement UpdateMember(const QString& memberCode, const MemberFields& fields)
{
    Statement update;
    update.Own(u"UPDATE SMSGroupSub");
    update.Own(u" SET ");
    update.Own(u" GroupCd =");
    AddGroup(update, fields.groupCode);
    update.Own(u",");
    update.Own(u" GSubNm =").Quoted(fields.name).Own(u",");
    update.Own(u" GSPhone =").Quoted(fields.phone);
    update.Own(u" WHERE GSubCd=").Bare(Trim(memberCode));
    return update;
}

} // namespace tsms
