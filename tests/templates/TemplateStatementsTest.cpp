#include "support/Words.h"
#include "templates/ModStep4.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(TemplateStatements, AnInsertReadsSo)
{
    EXPECT_EQ(
        TemplateInsert(3, u"생일"_q, u"축하합니다."_q).Text(),
        u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (3,'생일','축하합니다.')"_q);
}

TEST(TemplateStatements, AnUpdateReadsSo)
{
    EXPECT_EQ(
        TemplateUpdate(3, u"생일"_q, u"축하합니다."_q, 12).Text(),
        u"UPDATE SMSTempLSub SET  TempLCd =3, TempLSubNm ='생일', TempLContent ='축하합니다.' WHERE TempLSeq=12"_q);
}

TEST(TemplateStatements, ADeleteTakesTheKeyAsItStands)
{
    EXPECT_EQ(TemplateDelete(u" 12"_q).Text(), u"DELETE SMSTempLSub WHERE TempLSeq =  12"_q);
}

TEST(TemplateStatements, TextsAreTrimmedOfBlanksAlone)
{
    EXPECT_EQ(
        TemplateInsert(1, u"  제 목 "_q, u" \r\n끝\t "_q).Text(),
        u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (1,'제 목','\r\n끝\t')"_q);
}

TEST(TemplateStatements, ABlankTextIsNull)
{
    EXPECT_EQ(TemplateInsert(0, u"  "_q, QString()).Text(),
              u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (0,Null,Null)"_q);
    EXPECT_EQ(
        TemplateUpdate(-1, QString(), u" "_q, 1).Text(),
        u"UPDATE SMSTempLSub SET  TempLCd =-1, TempLSubNm =Null, TempLContent =Null WHERE TempLSeq=1"_q);
}

TEST(TemplateStatements, AnApostropheIsNotDoubled)
{
    EXPECT_TRUE(TemplateInsert(1, u"it's"_q, u"x"_q).Text().contains(u"'it's'"_q));
}

/// Texts that could change what the statement does, had they left their place.
class HostileTexts : public ::testing::TestWithParam<const char16_t*>
{
};

TEST_P(HostileTexts, NeverReachTheDatabase)
{
    const QString text = QString::fromUtf16(GetParam());
    EXPECT_FALSE(TemplateInsert(1, text, u"x"_q).Fault().isEmpty());
    EXPECT_FALSE(TemplateInsert(1, u"x"_q, text).Fault().isEmpty());
    EXPECT_FALSE(TemplateUpdate(1, u"x"_q, text, 2).Fault().isEmpty());
}

INSTANTIATE_TEST_SUITE_P(Texts, HostileTexts,
                         ::testing::Values(u"a''b", u"a','b'); DELETE SMSTempLSub; --",
                                           u"x' WHERE TempLSeq=1 OR 'a'='a", u"' + 'a' + '"));

TEST(TemplateStatements, AKeyThatIsNoNumberNeverReachesTheDatabase)
{
    EXPECT_FALSE(TemplateDelete(u"1 OR 1=1"_q).Fault().isEmpty());
    EXPECT_FALSE(TemplateDelete(u"TempLSeq"_q).Fault().isEmpty());
    EXPECT_TRUE(TemplateDelete(u"12"_q).Fault().isEmpty());
}

TEST(TemplateStatements, WhatStandsInTheQuotesIsNoFault)
{
    for (const QString& text :
         {u"a -- b /* c */ ; DELETE [x] \"y\" `z`"_q, u"‘홑’ “겹” 「낫」"_q, u"a\r\nb"_q})
        EXPECT_EQ(TemplateInsert(1, text, text).Fault(), QString());
}

} // namespace
