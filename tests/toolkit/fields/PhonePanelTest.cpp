#include "toolkit/fields/PhonePanel.h"
#include "support/Words.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

class PhonePanelTest : public ::testing::Test
{
protected:
    PhonePanelTest() { phone.resize(140, 180); }

    QImage Picture() { return phone.grab().toImage(); }
    QColor PixelAt(QPoint place) { return Picture().pixelColor(place); }

    PhonePanel phone{nullptr, u"PicTmpContent(0)"_q};
    const QPoint screen{70, 90};
    const QPoint side{2, 90};
};

TEST_F(PhonePanelTest, TheScreenIsWhatALayoutFills)
{
    phone.grab(); // lays out
    const QRect inside = phone.contentsRect();
    EXPECT_EQ(PixelAt(inside.topLeft()), theme::Phone);
    EXPECT_EQ(PixelAt(inside.bottomRight()), theme::Phone);
    EXPECT_EQ(PixelAt(inside.topLeft() - QPoint(1, 0)), theme::PhoneBody);
    EXPECT_EQ(PixelAt(inside.bottomRight() + QPoint(1, 0)), theme::PhoneBody);
}

TEST_F(PhonePanelTest, APhoneThatIsOffIsPale)
{
    phone.SetOn(false);
    EXPECT_EQ(PixelAt(screen), theme::Ground);
    EXPECT_EQ(PixelAt(side), theme::Line);
}

TEST_F(PhonePanelTest, TheMouseShowsOnScreenAndBody)
{
    for (const bool on : {true, false}) {
        phone.SetOn(on);
        phone.SetTouched(false);
        const QColor screenAtRest = PixelAt(screen);
        const QColor sideAtRest = PixelAt(side);
        phone.SetTouched(true);
        EXPECT_NE(PixelAt(screen), screenAtRest);
        EXPECT_NE(PixelAt(side), sideAtRest);
    }
}

TEST_F(PhonePanelTest, TheRingLeavesTheScreenFree)
{
    const QRect inside = phone.contentsRect();
    const QImage before = Picture();
    QTest::keyClick(&phone, Qt::Key_F1); // behind the mouse there is none
    phone.SetRing(true);
    EXPECT_NE(Picture(), before);
    EXPECT_EQ(Picture().copy(inside), before.copy(inside));
}

} // namespace
