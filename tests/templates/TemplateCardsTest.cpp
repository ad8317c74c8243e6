#include "templates/TemplateCards.h"
#include "gateway/ModSMS.h"
#include "runtime/RuntimeError.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "templates/CardLabel.h"
#include "templates/TemplateCache.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/PhonePanel.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"

#include <QAbstractItemView>
#include <QApplication>
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

    static void Activate(QWidget& window)
    {
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    PhonePanel& Phone(TemplateCards& cards, int card)
    {
        const int first = cards.Mode() == TemplateCards::ComposeSide ? 0 : TemplateCards::Cards;
        return *cards.findChild<PhonePanel*>(IndexedName(u"PicTmpContent", first + card - 1));
    }
    static QColor ScreenAtRest(const PhonePanel& phone)
    {
        return phone.IsOn() ? theme::Phone : theme::Ground;
    }
    static void PressTab(TemplateCards& cards) { QTest::keyClick(cards.focusWidget(), Qt::Key_Tab); }
    /// The card that has the keyboard, 0 when none has.
    static int Focused(TemplateCards& cards)
    {
        for (int card = 1; card <= TemplateCards::Cards; ++card)
            if (cards.Content(card).hasFocus())
                return card;
        return 0;
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
    session.Busy = true;
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
    session.Busy = true;
    ClickOn(compose, u"LblTmpContent(1)"_q);
    EXPECT_EQ(taken, QList<int>{1});
}

TEST_F(TemplateCardsTest, TheTabKeyStopsAtOneCardTheOneLastUsed)
{
    Serve(compose);
    Activate(compose);
    compose.Category().setFocus();
    PressTab(compose);
    EXPECT_EQ(Focused(compose), 1);
    QTest::keyClick(&compose.Content(1), Qt::Key_Right);
    PressTab(compose);
    EXPECT_EQ(compose.focusWidget()->objectName(), u"BtnPageCount(0)"_q);
    QTest::keyClick(compose.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(Focused(compose), 2);
}

TEST_F(TemplateCardsTest, ArrowKeysWalkTheCardsAndStopAtTheRim)
{
    Serve(compose);
    Activate(compose);
    compose.Content(1).setFocus();
    const std::pair<Qt::Key, int> walk[] = {{Qt::Key_Left, 1},  {Qt::Key_Up, 1},   {Qt::Key_Right, 2},
                                            {Qt::Key_Down, 6},  {Qt::Key_Down, 6}, {Qt::Key_Left, 5},
                                            {Qt::Key_Left, 4},  {Qt::Key_Down, 8}, {Qt::Key_Right, 8},
                                            {Qt::Key_Right, 8}, {Qt::Key_Up, 4}};
    for (const auto& [key, card] : walk) {
        QTest::keyClick(compose.focusWidget(), key);
        EXPECT_EQ(Focused(compose), card) << key;
    }
    EXPECT_TRUE(taken.isEmpty());
}

TEST_F(TemplateCardsTest, TheTabKeyStopsAtOnePageButtonTheOneLastUsed)
{
    Serve(compose);
    Activate(compose);
    const auto focused = [this] { return compose.focusWidget()->objectName(); };
    compose.Content(1).setFocus();
    PressTab(compose);
    EXPECT_EQ(focused(), u"BtnPageCount(0)"_q);
    PressTab(compose);
    EXPECT_EQ(focused(), u"CbTempCd"_q);
    ClickOn(compose, u"BtnPageCount(4)"_q);
    EXPECT_EQ(focused(), u"BtnPageCount(4)"_q);
    PressTab(compose);
    QTest::keyClick(compose.focusWidget(), Qt::Key_Backtab);
    EXPECT_EQ(focused(), u"BtnPageCount(4)"_q);
}

TEST_F(TemplateCardsTest, ArrowKeysWalkThePageButtonsAndStopAtTheRim)
{
    Serve(compose);
    Activate(compose);
    compose.findChild<QWidget*>(u"BtnPageCount(8)"_q)->setFocus();
    const std::pair<Qt::Key, int> walk[] = {{Qt::Key_Right, 9}, {Qt::Key_Right, 9}, {Qt::Key_Down, 9},
                                            {Qt::Key_Left, 8},  {Qt::Key_Up, 7},    {Qt::Key_Down, 8}};
    for (const auto& [key, page] : walk) {
        QTest::keyClick(compose.focusWidget(), key);
        EXPECT_EQ(compose.focusWidget()->objectName(), IndexedName(u"BtnPageCount", page)) << key;
    }
    EXPECT_TRUE(shown.isEmpty());
    QTest::keyClick(compose.focusWidget(), Qt::Key_Space);
    EXPECT_EQ(shown, QList<int>{8});
}

TEST_F(TemplateCardsTest, EnterAndTheSpaceBarChooseWhenTheyAreLetGo)
{
    Serve(edit);
    Activate(edit);
    edit.Content(3).setFocus();
    int count = 0;
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Space}) {
        QTest::keyPress(&edit.Content(3), key);
        EXPECT_EQ(taken.size(), count);
        QTest::keyRelease(&edit.Content(3), key);
        EXPECT_EQ(taken.size(), ++count);
    }
    EXPECT_EQ(taken, QList<int>({3, 3, 3}));
}

TEST_F(TemplateCardsTest, AKeyThatWasPressedElsewhereChoosesNothing)
{
    Serve(edit);
    Activate(edit);
    edit.Content(3).setFocus();
    QTest::keyRelease(&edit.Content(3), Qt::Key_Return);
    QTest::keyPress(&edit.Content(3), Qt::Key_Return);
    edit.Content(4).setFocus();
    edit.Content(3).setFocus();
    QTest::keyRelease(&edit.Content(3), Qt::Key_Return);
    EXPECT_TRUE(taken.isEmpty());
}

TEST_F(TemplateCardsTest, AClickDoesNotTakeTheFocus)
{
    Serve(compose);
    Activate(compose);
    compose.Category().setFocus();
    ClickOn(compose, u"LblTmpContent(1)"_q);
    EXPECT_TRUE(compose.Category().hasFocus());
}

TEST_F(TemplateCardsTest, TheCardWithTheFocusHasTheRing)
{
    Serve(compose);
    Activate(compose);
    compose.Content(2).setFocus();
    EXPECT_TRUE(Phone(compose, 2).HasRing());
    QTest::keyClick(&compose.Content(2), Qt::Key_Right);
    EXPECT_FALSE(Phone(compose, 2).HasRing());
    EXPECT_TRUE(Phone(compose, 3).HasRing());
}

TEST_F(TemplateCardsTest, ACardWithoutABodyLooksEmpty)
{
    Serve(compose);
    EXPECT_FALSE(Phone(compose, 1).IsOn());
    compose.Show(1, u"제목"_q, u"내용"_q);
    EXPECT_TRUE(Phone(compose, 1).IsOn());
    compose.Show(1, u"제목"_q, u"  "_q);
    EXPECT_FALSE(Phone(compose, 1).IsOn());
}

TEST_F(TemplateCardsTest, TheMouseShowsOnCardsThatDoSomething)
{
    for (TemplateCards* cards : {&compose, &edit}) {
        Serve(*cards);
        cards->Show(1, u"제목"_q, u"내용"_q);
        for (const int card : {1, 2}) {
            QTest::mouseMove(&cards->Subject(card)); // first onto the window
            QTest::mouseMove(&cards->Content(card));
            const bool acts = card == 1 || cards->Mode() == TemplateCards::TemplateSide;
            EXPECT_EQ(Phone(*cards, card).ScreenColor() != ScreenAtRest(Phone(*cards, card)), acts);
            EXPECT_EQ(cards->Content(card).cursor().shape() == Qt::PointingHandCursor, acts);
        }
        cards->hide();
    }
}

TEST_F(TemplateCardsTest, TitlesAndBodiesHaveTheirColours)
{
    for (TemplateCards* cards : {&compose, &edit}) {
        const Label& subject = cards->Subject(8);
        EXPECT_EQ(subject.palette().color(QPalette::Window), QColor(255, 255, 255));
        EXPECT_EQ(subject.TextColor(), QColor(0, 0, 128));
        EXPECT_EQ(cards->Content(8).TextColor(), QColor(64, 64, 64));
    }
}

TEST_F(TemplateCardsTest, AMessageOfEightyBytesIsWholeOnItsCard)
{
    Serve(compose);
    auto& body = dynamic_cast<CardLabel&>(compose.Content(1));
    for (const QString& message : {QString(40, u'가'), QString(80, u'W'), u"한 줄\r\n두 줄\r\n\r\n네 줄"_q}) {
        compose.Show(1, u"제목"_q, message);
        EXPECT_FALSE(body.Shown().cut) << message.toStdString();
    }
    compose.Show(1, u"제목"_q, QString(160, u'가'));
    EXPECT_TRUE(body.Shown().cut);
}

TEST_F(TemplateCardsTest, ACaptionTooLongForItsCardStaysWhole)
{
    const QString caption = QString(160, u'가') + u"\r\n끝"_q;
    compose.Content(1).SetCaption(caption);
    Serve(compose);
    compose.grab();
    EXPECT_EQ(compose.Content(1).Caption(), caption);
}

TEST_F(TemplateCardsTest, TheListsHaveNoViewOfTheirEntriesBeforeTheyOpen)
{
    for (TemplateCards* cards : {&compose, &edit}) {
        cards->Category().AddItem(u"first"_q);
        EXPECT_FALSE(cards->Category().findChild<QAbstractItemView*>());
    }
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

TEST_F(TemplateCardsTest, NorCanItWhileItIsOpen)
{
    for (TemplateCards* cards : {&compose, &edit}) {
        Serve(*cards);
        cards->Category().AddItem(u"first"_q);
        cards->Category().AddItem(u"second"_q);
        cards->Category().SetListIndex(0);
        cards->Category().showPopup();
        QAbstractItemView& list = *cards->Category().view();
        QTest::keyClick(&list, 's');
        EXPECT_EQ(list.currentIndex().row(), cards->Mode() == TemplateCards::ComposeSide ? 0 : 1);
        cards->Category().hidePopup();
    }
}

TEST(TemplateCache, HasFourTitledColumns)
{
    fpSpread grid;
    InitTemplateCache(grid);
    EXPECT_EQ(grid.Cells().MaxCols(), 4);
    const std::pair<QString, double> columns[] = {
        {u"기본키"_q, 7.0}, {u"그룹키"_q, 7.0}, {u"제목"_q, 20.0}, {u"내용"_q, 60.0}};
    int col = 0;
    for (const auto& [title, width] : columns) {
        ++col;
        EXPECT_EQ(grid.Cells().Text(col, 0), title);
        EXPECT_EQ(grid.ColWidth(col), width);
    }
}

} // namespace

} // namespace tsms::test
