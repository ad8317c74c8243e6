#include "runtime/ProcessRules.h"

#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    tsms::EndThreadsInOrder();
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
