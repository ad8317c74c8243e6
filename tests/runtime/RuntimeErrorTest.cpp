#include "runtime/RuntimeError.h"

#include <gtest/gtest.h>

using namespace tsms;

TEST(CurrentError, IsClearedOnEntryToAnOperationWithAHandler)
{
    Err().Number = 91;
    Err().Description = QStringLiteral("x");
    WithHandler([] { EXPECT_EQ(Err().Number, 0); }, [] { FAIL(); });
    EXPECT_EQ(Err().Number, 0);
    EXPECT_TRUE(Err().Description.isEmpty());
}

TEST(CurrentError, IsTheRaisedOneInTheHandlerAndAfterIt)
{
    const int result = WithHandler([]() -> int { throw RuntimeError(6); },
                                   [] {
                                       EXPECT_EQ(Err().Number, 6);
                                       return 3;
                                   });
    EXPECT_EQ(result, 3);
    EXPECT_EQ(Err().Number, 6);
}

TEST(CurrentError, IsGoneForAHandlerThatFirstEntersAnotherOperation)
{
    long seen = -1;
    WithHandler([] { throw RuntimeError(91); },
                [&] {
                    WithHandler([] {}, [] {});
                    seen = Err().Number;
                });
    EXPECT_EQ(seen, 0);
}

TEST(CurrentError, AnErrorOfTheHandlerGoesToTheCaller)
{
    EXPECT_THROW(WithHandler([] { throw RuntimeError(6); }, [] { throw RuntimeError(13); }), RuntimeError);
}
