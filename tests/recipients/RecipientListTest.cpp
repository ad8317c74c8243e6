#include "support/ListOfRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

TEST(RecipientList, TheFirstCountSeesRemovedRowsAndTheSecondDoesNot)
{
    const ListOfRows list({{.phone = u"010-1"_q},
                           {.phone = u"010-2"_q, .removed = true},
                           {.phone = u"  "_q},
                           {},
                           {.phone = u" "_q},
                           {.phone = u"x"_q}});
    EXPECT_EQ(list.Filled(), 3);
    EXPECT_EQ(list.Count(), 2);
}

} // namespace
