#include "compose/GivenRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(Recipients, TheFirstCountSeesRemovedRowsAndTheSecondDoesNot)
{
    const GivenRows rows({{u"010-1"_q}, {u"010-2"_q, true}, {u"  "_q}, {u""_q}, {u" "_q}, {u"x"_q}});
    EXPECT_EQ(CountFilled(rows), 3);
    EXPECT_EQ(CountRecipients(rows), 2);
}

} // namespace
