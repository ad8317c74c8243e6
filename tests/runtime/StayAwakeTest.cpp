#include "runtime/StayAwake.h"

#include <gtest/gtest.h>

#include <qt_windows.h>

using namespace tsms;

namespace {

/// Whether the thread holds the machine awake. What is asked for once alone changes nothing that lasts.
bool HoldsAwake()
{
    return ::SetThreadExecutionState(ES_SYSTEM_REQUIRED) & ES_SYSTEM_REQUIRED;
}

TEST(StayAwake, HoldsTheMachineForAsLongAsItLives)
{
    ::SetThreadExecutionState(ES_CONTINUOUS);
    {
        const StayAwake awake;
        EXPECT_TRUE(HoldsAwake());
    }
    EXPECT_FALSE(HoldsAwake());
}

} // namespace
