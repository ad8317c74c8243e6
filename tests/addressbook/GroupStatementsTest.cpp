#include "addressbook/GroupStatements.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(GroupStatements, ANewNameIsLookedForAndStoredTrimmed)
{
    EXPECT_EQ(GroupsNamed(u"  청년부 "_q).Text(),
              u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='청년부'"_q);
    EXPECT_EQ(InsertGroup(u"  청년부 "_q).Text(), u"Insert into SMSGroupMst (GroupNm) values ('청년부')"_q);
}

TEST(GroupStatements, ARenameStoresTheNameAsTyped)
{
    EXPECT_EQ(RenameGroup(u" 3 "_q, u"  청년부 "_q).Text(),
              u"UPDATE SMSGroupMst set GroupNm='  청년부 ' WHERE GroupCd=3"_q);
}

TEST(GroupStatements, ANameWithAnApostropheGoesInAsItIs)
{
    EXPECT_EQ(InsertGroup(u"김's"_q).Text(), u"Insert into SMSGroupMst (GroupNm) values ('김's')"_q);
    EXPECT_EQ(GroupsNamed(u"'"_q).Text(), u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='''"_q);
}

TEST(GroupStatements, ANameThatWouldEndItsLiteralIsRefused)
{
    const QString name = u"x' OR '1'='1"_q;
    for (const Statement& statement : {GroupsNamed(name), InsertGroup(name), RenameGroup(u"3"_q, name)})
        EXPECT_NE(statement.Fault(), QString()) << statement.Text().toStdString();
}

TEST(GroupStatements, OrdinaryNamesPassTheGuard)
{
    for (const QString& name : {u"청년부"_q, u"A; B -- C"_q, u"/* x */"_q, u"DROP TABLE"_q})
        for (const Statement& statement : {GroupsNamed(name), InsertGroup(name), RenameGroup(u"3"_q, name)})
            EXPECT_EQ(statement.Fault(), QString()) << statement.Text().toStdString();
}

} // namespace
