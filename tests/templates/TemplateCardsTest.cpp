#include "templates/TemplateCards.h"
#include "gateway/ModSMS.h"
#include "runtime/RuntimeError.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "templates/TemplateCache.h"
#include "toolkit/ComboBox.h"
#include "toolkit/fpSpread.h"
#include "toolkit/Naming.h"

#include <QTest>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class TemplateCardsTest : public ::testing::Test
{
protected:
    void Serve(TemplateCards& cards)
    {
        cards.Serve(
            {[this](int page) { shown << page; }, [this](int card) { taken << card; }, [this] { ++chosen; }});
        cards.resize(632, 440);
        cards.show();
    }
    void ClickOn(TemplateCards& cards, const QString& name)
    {
        auto* control = cards.findChild<QWidget*>(name);
        ASSERT_TRUE(control) << name.toStdString();
        QTest::mouseClick(control, Qt::LeftButton);
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    TemplateCards compose{services, TemplateCards::ComposeSide, nullptr};
    TemplateCards edit{services, TemplateCards::TemplateSide, nullptr};
    QList<int> shown;
    QList<int> taken;
    int chosen = 0;
};

TEST_F(TemplateCardsTest, EachSideHasNamesOfItsOwn)
{
    EXPECT_EQ(compose.objectName(), u"Panel3"_q);
    EXPECT_EQ(edit.objectName(), u"Panel14"_q);
    for (int i = 0; i < 8; ++i) {
        EXPECT_TRUE(compose.findChild<QWidget*>(IndexedName(u"PicTmpContent", i)));
        EXPECT_TRUE(edit.findChild<QWidget*>(IndexedName(u"PicTmpContent", i + 8)));
        EXPECT_EQ(compose.Subject(i + 1).objectName(), IndexedName(u"LblTmpSubject", i + 1));
        EXPECT_EQ(compose.Content(i + 1).objectName(), IndexedName(u"LblTmpContent", i + 1));
        EXPECT_EQ(edit.Subject(i + 1).objectName(), IndexedName(u"LblTmpSubjectEdit", i + 1));
        EXPECT_EQ(edit.Content(i + 1).objectName(), IndexedName(u"LblTmpContentEdit", i + 1));
    }
    EXPECT_EQ(compose.Category().objectName(), u"CbTempCd"_q);
    EXPECT_EQ(edit.Category().objectName(), u"CbSMSGroup(0)"_q);
    EXPECT_TRUE(compose.findChild<Panel*>(u"PLPageCount(0)"_q));
    EXPECT_TRUE(edit.findChild<Panel*>(u"PLPageCount(1)"_q));
}

TEST_F(TemplateCardsTest, PageButtonsCountFromOneToTen)
{
    for (int i = 0; i < 10; ++i) {
        EXPECT_EQ(compose.findChild<PushButton*>(IndexedName(u"BtnPageCount", i))->Caption(),
                  QString::number(i + 1));
        EXPECT_EQ(edit.findChild<PushButton*>(IndexedName(u"BtnPageCount", i + 10))->Caption(),
                  QString::number(i + 1));
    }
}

TEST_F(TemplateCardsTest, TheFirstPageIsZero)
{
    EXPECT_EQ(compose.findChild<Panel*>(u"PLPageCount(0)"_q)->Tag, u"0"_q);
    EXPECT_EQ(compose.Page(), 0);
}

TEST_F(TemplateCardsTest, APageButtonMakesItsPageTheCurrentOne)
{
    Serve(edit);
    ClickOn(edit, u"BtnPageCount(13)"_q);
    EXPECT_EQ(shown, QList<int>{3});
    EXPECT_EQ(edit.findChild<Panel*>(u"PLPageCount(1)"_q)->Tag, u"3"_q);
    EXPECT_EQ(edit.Page(), 3);
}

TEST_F(TemplateCardsTest, PageButtonsDoNothingWhileBusy)
{
    Serve(compose);
    session.Busy = Boolean::True;
    ClickOn(compose, u"BtnPageCount(3)"_q);
    EXPECT_TRUE(shown.isEmpty());
    EXPECT_EQ(compose.Page(), 0);
}

TEST_F(TemplateCardsTest, OnlyTheBodyOfACardTakesTheClick)
{
    Serve(compose);
    ClickOn(compose, u"LblTmpSubject(2)"_q);
    ClickOn(compose, u"PicTmpContent(1)"_q);
    EXPECT_TRUE(taken.isEmpty());
    ClickOn(compose, u"LblTmpContent(8)"_q);
    EXPECT_EQ(taken, QList<int>{8});
}

TEST_F(TemplateCardsTest, ACardTakesTheClickWhileBusyToo)
{
    Serve(compose);
    session.Busy = Boolean::True;
    ClickOn(compose, u"LblTmpContent(1)"_q);
    EXPECT_EQ(taken, QList<int>{1});
}

TEST_F(TemplateCardsTest, ACaptionTooLongForItsCardStaysWhole)
{
    const QString caption = QString(160, u'가') + u"\r\n끝"_q;
    compose.Content(1).SetCaption(caption);
    Serve(compose);
    compose.grab();
    EXPECT_EQ(compose.Content(1).Caption(), caption);
}

TEST_F(TemplateCardsTest, TheListOfTheComposePageCannotBeTypedIn)
{
    for (TemplateCards* cards : {&compose, &edit}) {
        cards->Category().AddItem(u"first"_q);
        cards->Category().AddItem(u"second"_q);
        cards->Category().SetListIndex(0);
        QTest::keyClick(&cards->Category(), 's');
    }
    EXPECT_EQ(compose.Category().ListIndex(), 0);
    EXPECT_EQ(edit.Category().ListIndex(), 1);
    QTest::keyClick(&compose.Category(), Qt::Key_Down);
    EXPECT_EQ(compose.Category().ListIndex(), 1);
}

TEST(TemplateCache, HasFourTitledColumns)
{
    fpSpread grid;
    InitTemplateCache(grid);
    EXPECT_EQ(grid.MaxCols(), 4);
    const std::pair<QString, double> columns[] = {
        {u"기본키"_q, 7.0}, {u"그룹키"_q, 7.0}, {u"제목"_q, 20.0}, {u"내용"_q, 60.0}};
    int col = 0;
    for (const auto& [title, width] : columns) {
        ++col;
        EXPECT_EQ(grid.GetText(col, 0), title);
        EXPECT_EQ(grid.ColWidth(col), width);
    }
}

} // namespace

} // namespace tsms::test
