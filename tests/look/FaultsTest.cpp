#include "look/LayoutFaults.h"
#include "look/SpeechFaults.h"
#include "support/Words.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A window with one of each, in which nothing is wrong until a test spoils it.
class Faults : public ::testing::Test
{
protected:
    Faults()
    {
        window.setObjectName(u"window"_q);
        window.setWindowTitle(u"창"_q);
        window.resize(400, 300);
        button.setGeometry(10, 10, 100, 32);
        label.setGeometry(10, 50, 100, 20);
        box.setGeometry(120, 50, 100, 24);
        list.setGeometry(240, 50, 120, 30);
        grid.setGeometry(10, 100, 300, 150);
        grid.Cells().SetMaxCols(1);
        grid.Cells().SetMaxRows(1);
        grid.Cells().SetText(1, 0, u"수신번호"_q);
        grid.SetColWidth(1, 12);
        list.AddItem(u"받는사람"_q);
        list.SetListIndex(0);
        DescribeBy(box, u"검색어"_q);
        DescribeBy(list, u"검색 항목"_q);
        DescribeBy(grid, u"목록"_q);
        window.show();
    }

    QString Layout() { return LayoutFaults(window).faults.join(u'\n'); }
    QString Speech() { return SpeechFaults(window).faults.join(u'\n'); }

    QWidget window;
    PushButton button{&window, u"Btn"_q, u"저장(F12)"_q};
    Label label{&window, u"Lbl"_q, u"보내는사람"_q};
    TextBox box{&window, u"txt"_q};
    ComboBox list{&window, u"Cb"_q};
    fpSpread grid{&window};
};

TEST_F(Faults, AreNoneInAGoodWindow)
{
    EXPECT_EQ(Layout(), QString());
    EXPECT_EQ(Speech(), QString());
    EXPECT_EQ(SpeechFaults(window).looked, 4);
    EXPECT_EQ(LayoutFaults(window).looked, 6);
}

TEST_F(Faults, AreAButtonTooNarrowForItsCaption)
{
    button.resize(40, 32);
    EXPECT_TRUE(Layout().startsWith(u"Btn needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreALabelTooLowForItsWords)
{
    label.resize(100, 8);
    EXPECT_TRUE(Layout().startsWith(u"Lbl needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreAFieldTooLowForALine)
{
    box.resize(100, 8);
    EXPECT_TRUE(Layout().startsWith(u"txt needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreAListTooNarrowForItsEntry)
{
    list.resize(40, 30);
    EXPECT_TRUE(Layout().startsWith(u"Cb needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreTheTitleOfAColumnThatIsTooNarrow)
{
    grid.Cells().SetMaxCols(2); // the last one has the room that is left
    grid.SetColWidth(1, 3);
    EXPECT_TRUE(Layout().contains(u"title 수신번호 needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreRowsTooLowForTheirWords)
{
    grid.SetRowHeight(SpreadModel::All, 6);
    EXPECT_TRUE(Layout().contains(u"column 1 needs"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreControlsThatLieOverEachOtherOrStickOut)
{
    label.move(60, 20);
    EXPECT_EQ(Layout(), u"Lbl lies over Btn"_q);
    label.move(350, 20);
    EXPECT_EQ(Layout(), u"Lbl sticks out of window"_q);
}

TEST_F(Faults, AreAWindowThatIsLargerThanASmallDesk)
{
    window.resize(1100, 300);
    EXPECT_TRUE(Layout().contains(u"window is 1100x300"_q)) << Layout().toStdString();
}

TEST_F(Faults, AreAControlThatIsToldOfInNoWords)
{
    box.setAccessibleName(QString());
    EXPECT_EQ(Speech(), u"txt has no words"_q);
    box.setAccessibleName(u"Btn"_q);
    EXPECT_EQ(Speech(), u"txt is told of as Btn"_q);
}

TEST_F(Faults, AreAColumnWithoutATitle)
{
    grid.Cells().SetText(1, 0, QString());
    EXPECT_TRUE(Speech().contains(u"column 1 of "_q)) << Speech().toStdString();
}

TEST_F(Faults, AreAWindowThatIsNotToldOfByItsTitle)
{
    window.setAccessibleName(u"다른 창"_q);
    EXPECT_EQ(Speech(), u"the window is told of as 다른 창"_q);
}

} // namespace
