#include "addressbook/BookStatements.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString Members =
    u" SELECT GSubCd, (CASE WHEN P.GroupCd IS NULL THEN '기타' ELSE (SELECT  GroupNm FROM SMSGroupMst WHERE GroupCd = P.GroupCd) END) AS GroupNm,  GSubNm, GSPhone FROM SMSGroupSub AS P "_q;

TEST(BookStatements, TheListOfGroupsIsOrderedByName)
{
    EXPECT_EQ(GroupList().Text(), u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q);
}

TEST(BookStatements, TheGroupsOfTheBrowseListComeInTheDatabasesOrder)
{
    EXPECT_EQ(BrowseGroups().Text(), u" SELECT  GroupCd , GroupNm FROM SMSGroupMst  "_q);
}

TEST(BookStatements, TheFilterDecidesWhichMembersAreRead)
{
    struct Case
    {
        MemberFilter filter;
        QString where;
    };
    const Case cases[] = {
        {{-1, 0}, u""_q},
        {{0, 0}, u""_q},
        {{0, 7}, u""_q}, // the first entry is "all", whatever its number
        {{1, 7}, u" WHERE P.GroupCd = 7"_q},
        {{2, 31}, u" WHERE P.GroupCd = 31"_q},
        {{1, 0}, u" WHERE P.GroupCd IS NULL"_q},
        {{5, 0}, u" WHERE P.GroupCd IS NULL"_q},
    };
    for (const Case& each : cases)
        EXPECT_EQ(BrowseMembers(each.filter).Text(), Members + each.where);
}

TEST(BookStatements, TheMembersOfAGroupAreReadByItsCodeOrByHavingNone)
{
    EXPECT_EQ(MembersOfGroup(u"12"_q).Text(), u"SELECT * FROM SMSGroupSub WHERE GroupCd =12"_q);
    EXPECT_EQ(MembersOfGroup(QString()).Text(), u"SELECT * FROM SMSGroupSub WHERE GroupCd IS NULL"_q);
}

TEST(BookStatements, DeletionsNameOneCode)
{
    EXPECT_EQ(DeleteMember(u"5"_q).Text(), u"DELETE FROM SMSGroupSub WHERE GSubCd =5"_q);
    EXPECT_EQ(DeleteGroup(u"6"_q).Text(), u"DELETE FROM SMSGroupMst WHERE GroupCd =6"_q);
    EXPECT_EQ(ReleaseMembers(u"6"_q).Text(), u"UPDATE SMSGroupSub SET GroupCd = NULL WHERE GroupCd =6"_q);
}

TEST(BookStatements, TheProgramsOwnWordsPassTheGuard)
{
    for (const Statement& statement :
         {GroupList(), BrowseGroups(), BrowseMembers({}), BrowseMembers({1, 0}), BrowseMembers({1, 7}),
          MembersOfGroup(QString()), MembersOfGroup(u"1"_q), DeleteMember(u"1"_q), DeleteGroup(u"1"_q),
          ReleaseMembers(u"1"_q)})
        EXPECT_EQ(statement.Fault(), QString()) << statement.Text().toStdString();
}

TEST(BookStatements, ACodeThatIsNoNumberIsRefused)
{
    for (const Statement& statement : {MembersOfGroup(u"1 OR 1=1"_q), DeleteMember(u"1;DROP"_q),
                                       DeleteGroup(u"GroupCd"_q), ReleaseMembers(u"1--"_q)})
        EXPECT_NE(statement.Fault(), QString()) << statement.Text().toStdString();
}

} // namespace
