#include "addressbook/MemberStatements.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(MemberStatements, AMemberIsReadByItsCode)
{
    EXPECT_EQ(MemberByCode(u" 9 "_q).Text(),
              u"SELECT GSubCd,GroupCd, GSubNm,GSPhone FROM SMSGroupSub WHERE GSubCd=9"_q);
}

TEST(MemberStatements, ANameIsLookedForTrimmedInAllGroups)
{
    EXPECT_EQ(MembersNamed(u" 김하늘 "_q).Text(),
              u"SELECT GSubNm FROM SMSGroupSub   WHERE GSubNm ='김하늘'"_q);
}

TEST(MemberStatements, AnInsertHoldsGroupNameAndNumber)
{
    struct Case
    {
        MemberFields fields;
        QString values;
    };
    const Case cases[] = {
        {{7, u"김하늘"_q, u"010-0000-0001"_q}, u"7,'김하늘','010-0000-0001')"_q},
        {{0, u"김하늘"_q, u"010-0000-0001"_q}, u"Null,'김하늘','010-0000-0001')"_q},
        {{1, u" 김 하늘 "_q, u" 0100000001 "_q}, u"1,'김 하늘','0100000001')"_q},
        {{1, u"  "_q, u""_q}, u"1,Null,Null)"_q},
    };
    for (const Case& each : cases)
        EXPECT_EQ(InsertMember(each.fields).Text(),
                  u"Insert INTO SMSGroupSub  (GroupCd, GSubNm, GSPhone )  VALUES ("_q + each.values);
}

TEST(MemberStatements, AnUpdateHoldsGroupNameAndNumber)
{
    EXPECT_EQ(
        UpdateMember(u" 4 "_q, {7, u" 김하늘"_q, u"010.0000.0001 "_q}).Text(),
        u"UPDATE SMSGroupSub SET  GroupCd =7, GSubNm ='김하늘', GSPhone ='010.0000.0001' WHERE GSubCd=4"_q);
    EXPECT_EQ(UpdateMember(u"4"_q, {0, u""_q, u" "_q}).Text(),
              u"UPDATE SMSGroupSub SET  GroupCd =Null, GSubNm =Null, GSPhone =Null WHERE GSubCd=4"_q);
}

TEST(MemberStatements, ANameThatWouldEndItsLiteralIsRefused)
{
    const MemberFields fields{1, u"x','010'),(1,'y"_q, u"0100000001"_q};
    for (const Statement& statement :
         {MembersNamed(fields.name), InsertMember(fields), UpdateMember(u"1"_q, fields)})
        EXPECT_NE(statement.Fault(), QString()) << statement.Text().toStdString();
}

} // namespace
