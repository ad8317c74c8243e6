#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Pictures.h"

#include <gtest/gtest.h>

#include <QAccessible>

using namespace tsms;
using namespace tsms::test;

namespace {

class Accessibility : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    QAccessibleInterface& Told(QWidget& control)
    {
        QAccessibleInterface* told = QAccessible::queryAccessibleInterface(&control);
        if (!told)
            throw std::runtime_error("nothing is told of " + control.objectName().toStdString());
        return *told;
    }
    QAccessibleInterface& Told(const QString& name) { return Told(program.Control(name)); }
    QString WordsOf(const QString& control) { return Told(control).text(QAccessible::Name); }
    void Press(const QString& control)
    {
        Told(control).actionInterface()->doAction(QAccessibleActionInterface::pressAction());
        Settle();
    }

    Program program;
};

TEST_F(Accessibility, AFieldHasTheWordsOfItsLabel)
{
    EXPECT_EQ(WordsOf(u"txtSendNo"_q), u"보내는사람"_q);
    const auto related = Told(u"txtSendNo"_q).relations(QAccessible::Label);
    ASSERT_EQ(related.size(), 1);
    EXPECT_EQ(related[0].first->object(), &program.Control(u"Label1"_q));
}

TEST_F(Accessibility, TheWordsOfAFieldLackTheColonAndTheGapsOfItsCaption)
{
    WhenShown(u"dlgSMSSetup"_q, [this](QWidget& dialog) {
        QStringList words;
        for (int i = 0; i < 5; ++i)
            words += Told(program.On<QWidget>(dialog, u"txtUpdate(%1)"_q.arg(i))).text(QAccessible::Name);
        EXPECT_EQ(words,
                  QStringList({u"아이디"_q, u"비밀번호"_q, u"도메인"_q, u"회신번호"_q, u"회신명칭"_q}));
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnToolbarDis(4)"_q);
}

TEST_F(Accessibility, APictureButtonTellsItsWordsAndIsPressed)
{
    EXPECT_EQ(WordsOf(u"BtnToolbarDis(3)"_q), u"문자서식"_q);
    Press(u"BtnToolbarDis(3)"_q);
    EXPECT_TRUE(program.Control(u"txtEditBox"_q).isVisible());
}

TEST_F(Accessibility, OfTheToolbarTheButtonOfThePageOnViewIsTheSelectedOne)
{
    EXPECT_TRUE(Told(u"BtnToolbarEn(0)"_q).state().selected);
    EXPECT_FALSE(Told(u"BtnToolbarDis(1)"_q).state().selected);
}

TEST_F(Accessibility, TheWindowButtonsSayWhatTheyDoAlsoUnderTheMouse)
{
    const QStringList words{u"최소화"_q, u"최대화"_q, u"닫기"_q};
    for (int i = 0; i < words.size(); ++i) {
        const QString button = u"BtnWindows(%1)"_q.arg(i);
        EXPECT_EQ(WordsOf(button), words[i]);
        EXPECT_EQ(program.Control(button).toolTip(), words[i]);
    }
}

TEST_F(Accessibility, TheSignAtTheHeadOfADialogIsAPictureAndItsCloserAButton)
{
    WhenShown(u"dlgSMSSetup"_q, [this](QWidget& dialog) {
        QAccessibleInterface& sign = Told(program.On<QWidget>(dialog, u"BtnTopFunc(0)"_q));
        EXPECT_EQ(sign.role(), QAccessible::Graphic);
        EXPECT_EQ(sign.actionInterface()->actionNames(), QStringList());
        QWidget& closer = program.On<QWidget>(dialog, u"BtnTopFunc(1)"_q);
        EXPECT_EQ(Told(closer).text(QAccessible::Name), u"닫기"_q);
        EXPECT_EQ(closer.toolTip(), u"닫기"_q);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnToolbarDis(4)"_q);
}

class CardAccessibility : public Accessibility
{
protected:
    void SetUp() override
    {
        program.database.Execute(u"INSERT INTO SMSTempLMst VALUES (1,'인사')"_q);
        program.database.Execute(u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) "
                                 u"VALUES (1,'봄','시간: 새봄입니다')"_q);
        Accessibility::SetUp();
    }
};

TEST_F(CardAccessibility, ACardTellsTitleAndTextAndAnEmptyOneThatItIsEmpty)
{
    EXPECT_EQ(WordsOf(u"LblTmpContent(1)"_q), u"시간: 새봄입니다"_q);
    EXPECT_EQ(Told(u"LblTmpContent(1)"_q).text(QAccessible::Description), u"봄"_q);
    EXPECT_EQ(WordsOf(u"LblTmpContent(2)"_q), u"빈 서식"_q);
}

TEST_F(CardAccessibility, ACardIsPressed)
{
    Press(u"LblTmpContent(1)"_q);
    EXPECT_EQ(program.The<TextField>(u"TxtPerSendMsg"_q).Text(), u"시간: 새봄입니다"_q);
}

TEST_F(Accessibility, AMarkCellSaysWhetherItIsTicked)
{
    program.database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus, SMSNo, SendTime) "
                             u"VALUES ('1', '1', '2012-05-31-10-00'), ('1', '2', '2012-05-30-10-00')"_q);
    program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(program.clock.Date().addDays(1));
    program.Click(u"BtnToolbarDis(1)"_q);
    const auto said = [this](int row) {
        return Told(u"fpSpreadSendList"_q).tableInterface()->cellAt(row - 1, 0)->text(QAccessible::Name);
    };
    auto& list = program.The<fpSpread>(u"fpSpreadSendList"_q);
    const int open = list.Cells().CellPicture(2, 1) == CheckLocked ? 2 : 1;
    EXPECT_EQ(said(open), u"선택 안 됨"_q);
    EXPECT_EQ(said(3 - open), u"선택할 수 없음"_q);
    ClickCell(list, 2, open);
    EXPECT_EQ(said(open), u"선택됨"_q);
}

TEST_F(Accessibility, ARemovedRecipientIsNotMetInTheList)
{
    auto& list = program.The<fpSpread>(u"fpSpread"_q);
    list.Cells().SetText(3, 1, u"010-0000-0001"_q);
    list.Cells().SetText(3, 2, u"010-0000-0002"_q);
    QAccessibleTableInterface& table = *Told(list).tableInterface();
    EXPECT_EQ(table.rowCount(), 20);
    ClickCell(list, 4, 1);
    EXPECT_EQ(table.rowCount(), 19);
    EXPECT_EQ(table.cellAt(0, 2)->text(QAccessible::Name), u"010-0000-0002"_q);
    for (int i = 0; i < Told(list).childCount(); ++i)
        EXPECT_NE(Told(list).child(i)->text(QAccessible::Name), u"010-0000-0001"_q);
}

TEST_F(Accessibility, TheCellsOfARecipientSayWhatTheyAreForThoughTheListHasNoTitles)
{
    QStringList words;
    for (int column = 0; column < 4; ++column)
        words += Told(u"fpSpread"_q).tableInterface()->cellAt(0, column)->text(QAccessible::Description);
    EXPECT_EQ(words, QStringList({u"번호"_q, u"받는사람"_q, u"수신번호"_q, u"삭제"_q}));
}

} // namespace
