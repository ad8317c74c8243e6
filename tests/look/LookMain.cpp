#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"

#include <gtest/gtest.h>

#include <QCursor>

using namespace tsms;

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    ::testing::InitGoogleTest(&argc, argv);
    Application application(argc, argv);
    Application::setQuitOnLastWindowClosed(false);
    theme::ApplyTheme(application);
    // A typed text always shows its caret, and no control lies under the mouse.
    QApplication::setCursorFlashTime(0);
    QCursor::setPos(0, 0);
    return RUN_ALL_TESTS();
}
