#include "runtime/DoEvents.h"

#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

using namespace tsms;

namespace {

class PaintedWindow : public QWidget
{
public:
    int paints = 0;

protected:
    void paintEvent(QPaintEvent*) override { ++paints; }
};

TEST(DoEvents, PaintsAtThePaceOfTheScreen)
{
    PaintedWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    window.paints = 0;
    window.update();
    QTest::qSleep(20);
    DoEvents();
    EXPECT_EQ(window.paints, 1);
}

TEST(DoEvents, DoesSomethingRightBehindADrawing)
{
    PaintedWindow window;
    window.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    QTest::qSleep(20);
    DoEvents();
    window.paints = 0;
    window.update();
    FollowDrawing();
    DoEvents();
    EXPECT_EQ(window.paints, 1);
}

} // namespace
