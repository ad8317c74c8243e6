#include "toolkit/fields/FieldRows.h"

#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/look/Theme.h"

#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class FieldRowsTest : public testing::Test
{
protected:
    FieldRowsTest()
    {
        rows.AddControl(0, u"일시 :"_q, *new Panel(&window, u"Date"_q));
        rows.AddBox(1, u"이 름 :"_q, 5).SetText(u"김하늘"_q);
        rows.AddBox(2, u"번호 :"_q, 5).SetText(u"123"_q);
        rows.AddMemo(3, u" 메모 :"_q, 7).SetText(u"가"_q);
        rows.AddNote(u"Note"_q, u"※ 안내"_q);
        window.show();
    }
    QWidget& Find(const QString& name) { return *window.findChild<QWidget*>(name); }

    QWidget window;
    QVBoxLayout place{&window};
    ScriptedDesktop desktop;
    TextHelper helper{desktop};
    FieldRows rows{window, place, helper};
};

TEST_F(FieldRowsTest, EachBoxStandsOnItsBackingBehindItsCaption)
{
    for (int i = 1; i <= 3; ++i) {
        QWidget& box = Find(u"txtUpdate(%1)"_q.arg(i));
        QWidget& backing = Find(u"PLtxtBack(%1)"_q.arg(i));
        EXPECT_EQ(box.parentWidget(), &backing);
        EXPECT_EQ(&rows.Box(i).Widget(), &box);
        EXPECT_LT(Find(u"lblTitle(%1)"_q.arg(i)).geometry().right(), backing.geometry().left());
    }
    EXPECT_EQ(dynamic_cast<Label&>(Find(u"lblTitle(1)"_q)).Caption(), u"이 름 :"_q);
}

TEST_F(FieldRowsTest, TheRowsStandOneBelowTheOther)
{
    int bottom = 0;
    for (const QString& name :
         {u"Date"_q, u"PLtxtBack(1)"_q, u"PLtxtBack(2)"_q, u"PLtxtBack(3)"_q, u"Note"_q}) {
        EXPECT_GE(Find(name).geometry().top(), bottom) << name.toStdString();
        bottom = Find(name).geometry().bottom();
    }
}

TEST_F(FieldRowsTest, ABoxHasItsMaximumLength)
{
    rows.Box(1).SetText(u"1234567"_q);
    EXPECT_EQ(rows.Box(1).Text(), u"12345"_q);
    rows.Box(3).SetText(u"12\r\n345678"_q);
    EXPECT_EQ(rows.Box(3).Text(), u"12\r\n345"_q);
}

TEST_F(FieldRowsTest, FilledBoxesPassWithoutAWord)
{
    EXPECT_TRUE(rows.RequireAll());
    EXPECT_TRUE(desktop.boxes.isEmpty());
}

TEST_F(FieldRowsTest, TheFirstEmptyBoxIsNamedByItsCaptionWithoutBlanks)
{
    rows.Box(1).SetText(u" "_q);
    rows.Box(3).SetText(QString());
    desktop.Expect({u"이름:"_q, u"'이름:' 항목을 입력하여 주십시오."_q, MsgBoxExclamation});
    EXPECT_FALSE(rows.RequireAll());
    EXPECT_EQ(window.focusWidget(), &rows.Box(1).Widget());
}

TEST_F(FieldRowsTest, EnterGoesToTheNextBoxAndMarksItsText)
{
    char16_t key = u'\r';
    rows.NextOnEnter(1, key);
    EXPECT_EQ(key, 0);
    EXPECT_EQ(window.focusWidget(), &rows.Box(2).Widget());
    EXPECT_EQ(rows.Box(2).SelText(), u"123"_q);
}

TEST_F(FieldRowsTest, TheBackingFollowsTheFocusColour)
{
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    const auto& backing = dynamic_cast<Panel&>(Find(u"PLtxtBack(2)"_q));
    rows.Box(2).SetFocus();
    EXPECT_EQ(backing.BackColor(), theme::Focus);
    rows.Box(1).SetFocus();
    EXPECT_EQ(backing.BackColor(), theme::White);
}

} // namespace
