#include "addressbook/ImportRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(ImportRows, ANumberOfAMobilePhoneWithTenCharactersIsGood)
{
    for (const QString& number :
         {u"0101234567"_q, u"01012345678"_q, u"010-1234-5678"_q, u"  011-123-456  "_q, u"016-abc-def"_q,
          u"01712345.."_q, u"018 123 45 6"_q, u"019123456789012345678901234567890"_q})
        EXPECT_EQ(JudgeImportRow(u"홍길동"_q, number), ImportVerdict::Good);
}

TEST(ImportRows, AnyOtherNumberIsLost)
{
    for (const QString& number :
         {u""_q, u"   "_q, u"010-12345"_q, u" 010123456 "_q, u"02-1234-5678"_q, u"0121234567"_q,
          u"1012345678"_q, u"+821012345678"_q, u"(010)1234-5678"_q, u"\t01012345678"_q})
        EXPECT_EQ(JudgeImportRow(u"홍길동"_q, number), ImportVerdict::Lost);
}

TEST(ImportRows, ARowWithoutANameIsNeither)
{
    EXPECT_EQ(JudgeImportRow(u""_q, u"01012345678"_q), ImportVerdict::Blank);
    EXPECT_EQ(JudgeImportRow(u"  "_q, u"x"_q), ImportVerdict::Blank);
    EXPECT_EQ(JudgeImportRow(u"\t"_q, u"01012345678"_q), ImportVerdict::Good); // only blanks are blank
}

TEST(ImportRows, CountsAndProgressReadAsTheyShould)
{
    EXPECT_EQ(ImportCount(0), u"0건"_q);
    EXPECT_EQ(ImportCount(32767), u"32767건"_q);
    EXPECT_EQ(ImportProgress(65536, 7),
              u"■ 엑셀데이터에 있는 휴대번호를 검증합니다....      총 : 65536, 현 : 7"_q);
}

} // namespace
