#include "runtime/MobileNumber.h"

#include <gtest/gtest.h>

using namespace tsms;

namespace {

TEST(MobileNumber, SixPrefixesAreThoseOfMobileNumbers)
{
    for (const char16_t* good : {u"010", u"011", u"016", u"017", u"018", u"019-1"})
        EXPECT_TRUE(HasMobilePrefix(good));
    for (const char16_t* bad : {u"", u"01", u"012", u"013", u"014", u"015", u"02-010", u" 010", u"+82010"})
        EXPECT_FALSE(HasMobilePrefix(bad));
}

} // namespace
