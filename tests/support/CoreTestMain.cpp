#include "support/TestEnd.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    ::testing::InitGoogleTest(&argc, argv);
    return tsms::test::EndWith(RUN_ALL_TESTS());
}
