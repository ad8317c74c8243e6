#include "support/program/Program.h"
#include "toolkit/fields/DatePicker.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QtTest/QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

QStringList Names(const QString& pattern, int first, int last)
{
    QStringList names;
    for (int i = first; i <= last; ++i)
        names += pattern.arg(i);
    return names;
}

/// The controls that the Tab key visits, from one on until it comes back to that one.
QStringList Walk(QWidget& start)
{
    constexpr int MostKeys = 100;
    start.setFocus(Qt::TabFocusReason);
    QStringList visited{start.objectName()};
    for (int key = 0; key < MostKeys; ++key) {
        QTest::keyClick(start.window()->focusWidget(), Qt::Key_Tab);
        const QWidget* next = start.window()->focusWidget();
        if (next == &start && visited.size() > 1)
            return visited;
        if (visited.last() != next->objectName()) // a date takes a key for each of its parts
            visited += next->objectName();
    }
    return visited + QStringList{u"(never came back)"_q};
}

class TabOrder : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(program.Start());
        // What cannot be used at the moment has its place in the order, too.
        for (QWidget* control : program.form->findChildren<QWidget*>())
            control->setEnabled(true);
    }

    /// Puts a message that is due tomorrow into the log and the search.
    void LogReservation()
    {
        program.database.Execute(u"INSERT INTO SMSLog_2012 (SMSStatus, SMSNo, SendTime) "
                                 u"VALUES ('1', '100001', '2012-05-31-10-00')"_q);
        program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(program.clock.Date().addDays(1));
    }

    Program program;
};

TEST_F(TabOrder, TheFirstKeysGoIntoTheMessage)
{
    EXPECT_TRUE(program.Control(u"TxtPerSendMsg"_q).hasFocus());
}

TEST_F(TabOrder, TheComposePageRunsFromTheMessageToTheCardsAndOnToTheToolbar)
{
    const QStringList order = QStringList{u"TxtPerSendMsg"_q} + Names(u"BtnFuncMain(%1)"_q, 0, 2) +
                              QStringList{u"fpSpread"_q, u"txtSendNo"_q} + Names(u"BtnSend(%1)"_q, 0, 1) +
                              QStringList{u"CbTempCd"_q, u"LblTmpContent(1)"_q} +
                              QStringList{u"BtnPageCount(0)"_q, u"BtnToolbarEn(0)"_q} +
                              Names(u"BtnToolbarDis(%1)"_q, 1, 4) + Names(u"BtnWebPage(%1)"_q, 0, 1);
    EXPECT_EQ(Walk(program.Control(u"TxtPerSendMsg"_q)), order);
}

TEST_F(TabOrder, TheTemplatePageRunsFromTheEditorToTheCards)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    const QStringList page =
        QStringList{u"CbSMSGroup(1)"_q, u"txtEditSubject"_q, u"txtEditBox"_q} +
        Names(u"BtnFuncDocEdit(%1)"_q, 0, 2) + Names(u"BtnFuncDoc(%1)"_q, 0, 2) +
        QStringList{u"CbSMSGroup(0)"_q, u"LblTmpContentEdit(1)"_q, u"BtnPageCount(10)"_q};
    const QStringList visited = Walk(program.Control(u"CbSMSGroup(1)"_q));
    EXPECT_EQ(visited.mid(0, page.size()), page);
    EXPECT_EQ(visited.value(page.size()), u"BtnToolbarDis(0)"_q);
}

TEST_F(TabOrder, TheHistoryPageRunsFromTheSearchToTheListAndItsButtons)
{
    LogReservation(); // without a row there are no ticks to turn round
    program.Click(u"BtnToolbarDis(1)"_q);
    const QStringList visited = Walk(program.Control(u"DTPSendDt(0)"_q));
    // Of the four choices only the chosen one is a stop.
    const QStringList page =
        QStringList{u"DTPSendDt(0)"_q,     u"DTPSendDt(1)"_q,     u"CbSerch"_q, u"txtSerch"_q,
                    u"OptSendStatus(0)"_q, u"BtnSendListSerch"_q, u"chkAll"_q,  u"fpSpreadSendList"_q} +
        Names(u"BtnSendListFun(%1)"_q, 0, 2);
    EXPECT_EQ(visited.mid(0, page.size()), page);
}

TEST_F(TabOrder, TheChargePageRunsFromTheLedgerToTheMonths)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    const QStringList page =
        Names(u"BtnChargeFunc(%1)"_q, 0, 2) +
        QStringList{u"fpSpreadCharge"_q, u"CbMonthYear"_q, u"BtnChargeFunc(3)"_q, u"fpSpreadMonth"_q};
    EXPECT_EQ(Walk(program.Control(u"BtnChargeFunc(0)"_q)).mid(0, page.size()), page);
}

TEST_F(TabOrder, APageWithoutAFieldOfItsOwnLeavesTheFocusOnItsTab)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    EXPECT_TRUE(program.Control(u"BtnToolbarEn(2)"_q).hasFocus());
}

class HistoryTabOrder : public TabOrder
{
protected:
    /// Lists a message that is due tomorrow, clicks the button and runs `look` in the dialog that opens.
    void InDialog(const QString& button, const QString& form, std::function<void(QWidget& dialog)> look)
    {
        LogReservation();
        program.Click(u"BtnToolbarDis(1)"_q);
        ClickCell(program.The<fpSpread>(u"fpSpreadSendList"_q), 2, 1);
        WhenShown(form, [look](QWidget& dialog) {
            look(dialog);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(button);
    }
};

TEST_F(HistoryTabOrder, OfTheDetailDialogBeginsAtTheButtonThatCloses)
{
    InDialog(u"BtnSendListFun(0)"_q, u"dlgSMSShowDetail"_q, [this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"BtnSendS(1)"_q).hasFocus());
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"BtnSendS(0)"_q)), Names(u"BtnSendS(%1)"_q, 0, 1));
    });
}

TEST_F(HistoryTabOrder, OfTheCancellationRunsOverItsButtons)
{
    program.desktop.Expect({u"예약취소"_q,
                            u"예약취소확인 : 총1건에 대한 문자메시지를 예약취소 하시겠습니까.?"_q,
                            MsgBoxQuestion},
                           AnswerYes);
    InDialog(u"BtnSendListFun(1)"_q, u"MakeSMSTransport"_q, [this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"BtnSendS(0)"_q).hasFocus());
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"BtnSendS(0)"_q)), Names(u"BtnSendS(%1)"_q, 0, 1));
    });
}

TEST_F(TabOrder, TheChargeDialogRunsFromTheDateToTheButtons)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    WhenShown(u"dlgSMSCharge"_q, [this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"DTPChargeDt"_q).hasFocus());
        const QStringList order =
            QStringList{u"DTPChargeDt"_q} + Names(u"txtUpdate(%1)"_q, 1, 4) + Names(u"BtnFunc(%1)"_q, 0, 1);
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"DTPChargeDt"_q)), order);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnChargeFunc(0)"_q);
}

TEST_F(TabOrder, TheSettingsRunFromTheFirstBoxToTheButtons)
{
    WhenShown(u"dlgSMSSetup"_q, [this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"txtUpdate(0)"_q).hasFocus());
        const QStringList order =
            Names(u"txtUpdate(%1)"_q, 0, 4) + Names(u"ChkOption(%1)"_q, 0, 1) + Names(u"BtnFunc(%1)"_q, 0, 1);
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"txtUpdate(0)"_q)), order);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnToolbarDis(4)"_q);
}

TEST_F(TabOrder, TheAddressBookRunsFromTheViewOverTheTwoListsToTheButtons)
{
    WhenShown(u"dlgSMSGroupSelect"_q, [this](QWidget& book) {
        EXPECT_TRUE(program.On<QWidget>(book, u"OptType(0)"_q).hasFocus());
        // Of the two views only the chosen one is a stop.
        const QStringList order = QStringList{u"OptType(0)"_q, u"CbGroup"_q} + Names(u"BtnAdd(%1)"_q, 0, 1) +
                                  QStringList{u"fpSpreadMst"_q} + Names(u"BtnFuncAdd(%1)"_q, 0, 1) +
                                  QStringList{u"fpSpread"_q} + Names(u"BtnFunc(%1)"_q, 0, 1);
        EXPECT_EQ(Walk(program.On<QWidget>(book, u"OptType(0)"_q)), order);
        PressKey(book, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(0)"_q);
}

TEST_F(TabOrder, TheDialogsOfGroupsAndMembersRunFromTheirFirstFieldToTheButtons)
{
    const auto see = [this](QWidget& book, const QString& form, const QString& button,
                            const QStringList& fields) {
        WhenShown(form, [this, fields](QWidget& dialog) {
            EXPECT_TRUE(program.On<QWidget>(dialog, fields.first()).hasFocus());
            EXPECT_EQ(Walk(program.On<QWidget>(dialog, fields.first())),
                      fields + Names(u"BtnFunc(%1)"_q, 0, 1));
            PressKey(dialog, Qt::Key_Escape);
        });
        ClickOn(program.On<QWidget>(book, button));
    };
    WhenShown(u"dlgSMSGroupSelect"_q, [see](QWidget& book) {
        see(book, u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, {u"txtGroupNm"_q});
        see(book, u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q,
            {u"CbGroup"_q, u"txtGroupSub(0)"_q, u"txtGroupSub(1)"_q});
        PressKey(book, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(0)"_q);
}

class DispatchTabOrder : public TabOrder
{
protected:
    /// Runs `look` in the dialog, which is then left without a send.
    void InDialog(std::function<void(QWidget& dialog)> look)
    {
        program.Write(u"안녕하세요"_q);
        program.List({{u"김하늘"_q, u"010-0000-0001"_q}});
        WhenShown(u"MakeSMSTransport"_q, [look](QWidget& dialog) {
            look(dialog);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(u"BtnSend(0)"_q);
    }
};

TEST_F(DispatchTabOrder, RunsFromTheReservationToTheButtons)
{
    InDialog([this](QWidget& dialog) {
        ClickOn(program.On<QWidget>(dialog, u"ChkTime"_q));
        const QStringList order{u"ChkTime"_q,  u"DTPicker1"_q,   u"CbTime"_q,
                                u"CbMintue"_q, u"BtnSendS(0)"_q, u"BtnSendS(1)"_q};
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"ChkTime"_q)), order);
    });
}

TEST_F(DispatchTabOrder, PassesWhatCannotBeUsedWithoutAReservation)
{
    InDialog([this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"BtnSendS(0)"_q).hasFocus());
        const QStringList order{u"ChkTime"_q, u"BtnSendS(0)"_q, u"BtnSendS(1)"_q};
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"ChkTime"_q)), order);
    });
}

TEST_F(TabOrder, TheImportDialogRunsFromTheSearchToItsButton)
{
    WhenShown(u"MakeSMSExcel"_q, [this](QWidget& dialog) {
        EXPECT_TRUE(program.On<QWidget>(dialog, u"cmdSearch"_q).hasFocus());
        const QStringList order{u"cmdSearch"_q, u"CbExcelSheet"_q, u"TEMPfpSpread"_q, u"BtnFunc(1)"_q};
        EXPECT_EQ(Walk(program.On<QWidget>(dialog, u"cmdSearch"_q)), order);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(1)"_q);
}

} // namespace
