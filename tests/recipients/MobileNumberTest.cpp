#include "recipients/MobileNumber.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(MobileNumber, SixPrefixesAreThoseOfMobileNumbers)
{
    for (const char16_t* good : {u"010", u"011", u"016", u"017", u"018", u"019-1"})
        EXPECT_TRUE(HasMobilePrefix(good));
    for (const char16_t* bad : {u"", u"01", u"012", u"013", u"014", u"015", u"02-010", u" 010", u"+82010"})
        EXPECT_FALSE(HasMobilePrefix(bad));
}

TEST(MobileNumber, AGoodOneHasAMobilePrefixAndTenCharactersOfAnyKind)
{
    for (const QString& good :
         {u"0100000001"_q, u"010-0000-0001"_q, u"011-123-4567"_q, u"01612345.."_q, u"017/123/45"_q,
          u"0180000000"_q, u"0190000000"_q, u"  0100000001  "_q, u"010abcdefg"_q, u"010000000000000"_q})
        EXPECT_TRUE(IsMobileNumber(good)) << good.toStdString();
    for (const QString& bad : {u""_q, u"   "_q, u"010"_q, u"010000000"_q, u"  010000000  "_q, u"0120000000"_q,
                               u"02-0000-0001"_q, u"+82-10-0000-0001"_q, u"-0100000001"_q})
        EXPECT_FALSE(IsMobileNumber(bad)) << bad.toStdString();
}

} // namespace
