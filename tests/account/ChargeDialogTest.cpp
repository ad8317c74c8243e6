#include "account/AccountBoxes.h"
#include "account/ModStep3.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/Program.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QTableView>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString InsertHead =
    u"Insert INTO SMSCharge  (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt )  VALUES ("_q;

Box SavedBox()
{
    return {u"문자메시지 충전!!!"_q, u"정상적으로 문자메시지 충전내역을 등록하였습니다."_q,
            MsgBoxInformation};
}

Box BadCountBox()
{
    return {u"문자메시지 충전"_q, u"올바른 충전건수를 입력하여 주십시오.!!!"_q, MsgBoxCritical};
}

class ChargeDialog : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(program.Start());
        program.Click(u"BtnToolbarDis(2)"_q);
        before_ = program.connections.Statements().size();
    }

    /// Opens the dialog and acts in it. What `act` leaves open is left by Esc.
    void Open(std::function<void()> act)
    {
        WhenShown(u"dlgSMSCharge"_q, [this, act](QWidget& dialog) {
            dialog_ = &dialog;
            act();
            if (IsOpen())
                PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(u"BtnChargeFunc(0)"_q);
        EXPECT_FALSE(IsOpen());
    }
    static bool IsOpen() { return Form::Find(u"dlgSMSCharge"_q) != nullptr; }
    template <class W> W& The(const QString& name) { return program.On<W>(*dialog_, name); }
    QWidget& BoxWidget(int index) { return The<QWidget>(u"txtUpdate(%1)"_q.arg(index)); }
    TextField& Field(int index) { return dynamic_cast<TextField&>(BoxWidget(index)); }
    DatePicker& Date() { return The<DatePicker>(u"DTPChargeDt"_q); }
    void Type(int index, const QString& text)
    {
        BoxWidget(index).setFocus();
        TypeText(BoxWidget(index), text);
    }
    void Fill(const QString& count = u"1000"_q, const QString& amount = u"20000"_q,
              const QString& unit = u"20"_q, const QString& remark = u"첫 충전"_q)
    {
        Type(1, count);
        Type(2, amount);
        Type(3, unit);
        Type(4, remark);
    }
    void Save() { PressKey(*dialog_, Qt::Key_F12); }
    /// The statements since the page was entered.
    QStringList Statements() { return program.connections.Statements().mid(before_); }
    QStringList StoredRow()
    {
        const auto rows = program.database.Rows(
            u"SELECT ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark FROM SMSCharge"_q);
        return rows.size() == 1 ? rows.first() : QStringList{u"%1 rows"_q.arg(rows.size())};
    }
    void ExpectNothingStored()
    {
        EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 0);
        EXPECT_EQ(program.Balance(), 100);
        EXPECT_EQ(Statements(), QStringList());
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.Busy);
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    }

    Program program;
    QWidget* dialog_ = nullptr;

private:
    qsizetype before_ = 0;
};

using ChargeDialogInSqlServerWords = InSqlServerWords<ChargeDialog>;

TEST_F(ChargeDialog, ReadsAsItShould)
{
    Open([this] {
        EXPECT_EQ(dialog_->windowTitle(), u"문자메시지 충전"_q);
        EXPECT_EQ(The<Label>(u"lblTitle1(1)"_q).Caption(), u"문자메시지 충전"_q);
        EXPECT_EQ(The<Label>(u"lblTitle1(0)"_q).Caption(),
                  u"문자메시지 사이트에 충전한 내역을 등록하십시오."_q);
        const QStringList captions{u"충전일시 :"_q, u"충전건수 :"_q, u"충전금액 :"_q, u"건당단가 :"_q,
                                   u"메모사항 :"_q};
        for (int i = 0; i < captions.size(); ++i)
            EXPECT_EQ(The<Label>(u"lblTitle(%1)"_q.arg(i)).Caption(), captions[i]);
        EXPECT_EQ(The<PushButton>(u"BtnFunc(0)"_q).Caption(), u"저장(F12)"_q);
        EXPECT_EQ(The<PushButton>(u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
        EXPECT_EQ(dialog_->findChild<QWidget*>(u"txtUpdate(0)"_q), nullptr);
    });
}

TEST_F(ChargeDialog, OpensOnTodayWithEmptyBoxes)
{
    Open([this] {
        EXPECT_EQ(Date().Value(), u"2012-05-30"_q);
        for (int i = 1; i <= 4; ++i)
            EXPECT_EQ(Field(i).Text(), QString());
    });
}

TEST_F(ChargeDialog, KeepsNothingFromOneShowingToTheNext)
{
    Open([this] {
        Fill();
        Date().SetValue(QDate(2012, 1, 2));
    });
    Open([this] {
        EXPECT_EQ(Date().Value(), u"2012-05-30"_q);
        EXPECT_EQ(Field(1).Text(), QString());
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, AnEntryGoesIntoTheLedgerAndItsCountOntoTheBalance)
{
    program.desktop.Expect(SavedBox(), AnswerOK, [this] {
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
        ExpectAtRest();
    });
    Open([this] {
        Fill();
        Save();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(StoredRow(), (QStringList{u"2012-05-30"_q, u"1000"_q, u"20000"_q, u"20"_q, u"첫 충전"_q}));
    EXPECT_EQ(program.Balance(), 1100);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"1,100건 남았습니다."_q);
    EXPECT_EQ(program.session.SMSRemainCnt, 1100);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().MaxRows(), 1);
    ExpectAtRest();
}

TEST_F(ChargeDialog, AnEntryIsRegisteredByTheClockOfTheDatabase)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill();
        const QString before = program.database.Value(u"SELECT getdate()"_q);
        Save();
        const QString stored = program.database.Value(u"SELECT RegDt FROM SMSCharge"_q);
        EXPECT_GE(stored, before);
        EXPECT_LE(stored, program.database.Value(u"SELECT getdate()"_q));
        EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().Text(ChargeRegistered, 1), stored);
    });
}

TEST_F(ChargeDialog, TheStatementsRunInTheirOrder)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"1234567"_q, u"20000"_q, u"20"_q, u"메모"_q);
        Date().SetValue(QDate(2012, 1, 2));
        ClickOn(The<QWidget>(u"BtnFunc(0)"_q));
    });
    EXPECT_EQ(Statements(),
              (QStringList{
                  InsertHead + u"'2012-01-02',1234567,20000,'20','메모',getdate())"_q,
                  u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + 1234567"_q, u"SELECT * FROM SMSSetup"_q,
                  u"SELECT  SMSChargeKey, ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark, RegDt  FROM "
                  u"SMSCharge ORDER BY ChargeDt DESC "_q}));
}

TEST_F(ChargeDialog, BalanceAndLedgerAreReadAgainWhenTheDialogIsGone)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill();
        program.connections.BeforeStatement(
            [](const QString& sql) { EXPECT_EQ(IsOpen(), !sql.startsWith(u"SELECT"_q)); });
        Save();
    });
    EXPECT_EQ(Statements().size(), 4);
}

TEST_F(ChargeDialog, IsBusyUnderTheHourglassWhileItSaves)
{
    QList<bool> busy;
    program.connections.BeforeStatement([&](const QString& sql) {
        if (!sql.startsWith(u"SELECT"_q)) {
            busy += program.session.Busy;
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Hourglass);
        }
    });
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill();
        Save();
    });
    EXPECT_EQ(busy, (QList<bool>{true, true}));
}

TEST_F(ChargeDialog, ANegativeCountLowersTheBalance)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"-5"_q);
        Save();
    });
    EXPECT_EQ(program.Balance(), 95);
    EXPECT_EQ(StoredRow()[1], u"-5"_q);
    EXPECT_TRUE(Statements().contains(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + -5"_q));
}

TEST_F(ChargeDialog, ACountOfZeroStoresARowAndChangesNothing)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"0"_q);
        Save();
    });
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(StoredRow()[1], u"0"_q);
}

TEST_F(ChargeDialog, NothingIsComputedOfAmountAndUnitPrice)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"10"_q, u"7"_q, u"9.9"_q);
        Save();
    });
    EXPECT_EQ(StoredRow().mid(1, 3), (QStringList{u"10"_q, u"7"_q, u"9.9"_q}));
    EXPECT_EQ(program.Balance(), 110);
}

TEST_F(ChargeDialog, TheFirstEmptyBoxIsNamedAndGetsTheFocus)
{
    const QStringList names{u"충전건수:"_q, u"충전금액:"_q, u"건당단가:"_q, u"메모사항:"_q};
    for (int empty = 1; empty <= 4; ++empty)
        program.desktop.Expect(RequiredBox(names[empty - 1]));
    Open([this] {
        for (int empty = 1; empty <= 4; ++empty) {
            Save();
            EXPECT_TRUE(BoxWidget(empty).hasFocus()) << empty;
            PasteText(BoxWidget(empty), u"1"_q);
        }
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, ARemarkOfBlanksIsNone)
{
    program.desktop.Expect(RequiredBox(u"메모사항:"_q));
    Open([this] {
        Fill(u"1"_q, u"1"_q, u"1"_q, u"   "_q);
        Save();
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, ACountThatIsNoNumberIsRefusedBehindTheRequiredBoxes)
{
    program.desktop.Expect(BadCountBox());
    Open([this] {
        Fill(u"1-2"_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_TRUE(BoxWidget(1).hasFocus());
        EXPECT_EQ(Field(1).Text(), u"1-2"_q);
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, ACountShownWithSeparatorsIsANumber)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"12345678"_q);
        EXPECT_EQ(Field(1).Text(), u"12,345,678"_q);
        Save();
    });
    EXPECT_EQ(StoredRow()[1], u"12345678"_q);
    EXPECT_EQ(program.Balance(), 12345778);
}

TEST_F(ChargeDialog, AnAmountIsNotCheckedAndTheServerComputesIt)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"1"_q, u"1-2"_q);
        Save();
    });
    EXPECT_EQ(StoredRow()[2], u"-1"_q);
}

TEST_F(ChargeDialogInSqlServerWords, AUnitPriceThatIsNoNumberIsRefusedByTheServerAndNothingMoves)
{
    program.desktop.Expect(
        ErrorBox(u"Cannot convert a char value to money. The char value has incorrect syntax."_q));
    Open([this] {
        Fill(u"1000"_q, u"1"_q, u"1-2"_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Field(3).Text(), u"1-2"_q);
    });
    EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 0);
    EXPECT_EQ(program.Balance(), 100);
    ExpectAtRest();
}

TEST_F(ChargeDialogInSqlServerWords, AnApostropheInTheRemarkMakesTheStatementFail)
{
    program.desktop.Expect(ErrorBox(u"Unclosed quotation mark after the character string ',getdate())'."_q));
    Open([this] {
        Fill(u"1000"_q, u"1"_q, u"1"_q, u"O'Brien"_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Field(4).Text(), u"O'Brien"_q);
    });
    EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 0);
    EXPECT_EQ(program.Balance(), 100);
    ExpectAtRest();
}

TEST_F(ChargeDialog, AFailedInsertLeavesTheBalanceAndTheDialogWithItsInput)
{
    program.desktop.Expect(ErrorBox(u"Insert refused."_q));
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill();
        program.connections.FailStatement(1, StatementFailure, u"Insert refused."_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Field(1).Text(), u"1,000"_q);
        EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 0);
        EXPECT_EQ(program.Balance(), 100);
        ExpectAtRest();
        Save();
    });
    EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 1);
    EXPECT_EQ(program.Balance(), 1100);
}

TEST_F(ChargeDialog, AFailedUpdateLeavesTheRowWithoutItsCredit)
{
    program.desktop.Expect(ErrorBox(u"Update refused."_q));
    Open([this] {
        Fill();
        program.connections.FailStatement(2, StatementFailure, u"Update refused."_q);
        Save();
        EXPECT_TRUE(IsOpen());
        ExpectAtRest();
    });
    EXPECT_EQ(program.database.Count(u"SMSCharge"_q), 1);
    EXPECT_EQ(program.Balance(), 100);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().MaxRows(), 0);
}

TEST_F(ChargeDialog, ABalanceThatCannotBeReadAgainStandsAsItWas)
{
    program.desktop.Expect(SavedBox());
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    Open([this] {
        Fill();
        program.connections.FailStatement(3, StatementFailure, u"Select refused."_q);
        Save();
    });
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(program.Balance(), 1100);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().MaxRows(), 1);
    ExpectAtRest();
}

TEST_F(ChargeDialog, AListThatCannotBeReadAgainStandsAsItWas)
{
    program.desktop.Expect(SavedBox());
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    Open([this] {
        Fill();
        program.connections.FailStatement(4, StatementFailure, u"Select refused."_q);
        Save();
    });
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"1,100건 남았습니다."_q);
    EXPECT_EQ(program.The<fpSpread>(u"fpSpreadCharge"_q).Cells().MaxRows(), 0);
    ExpectAtRest();
}

TEST_F(ChargeDialog, AServerThatIsDownStoresNothing)
{
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    Open([this] {
        Fill();
        program.connections.RefuseOpens(2);
        Save();
        EXPECT_TRUE(IsOpen());
    });
    ExpectNothingStored();
    ExpectAtRest();
}

TEST_F(ChargeDialogInSqlServerWords, AMissingLedgerIsToldInTheServersWords)
{
    program.database.Execute(u"DROP TABLE SMSCharge"_q);
    program.desktop.Expect(ErrorBox(u"Invalid object name 'SMSCharge'."_q));
    Open([this] {
        Fill();
        Save();
    });
    EXPECT_EQ(program.Balance(), 100);
}

TEST_F(ChargeDialog, CancelEscAndTheClosingSignStoreNothing)
{
    for (const QString& name : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
        Open([&] {
            Fill();
            ClickOn(The<QWidget>(name));
            EXPECT_FALSE(IsOpen()) << name.toStdString();
        });
    Open([&] {
        Fill();
        PressKey(BoxWidget(4), Qt::Key_Escape);
        EXPECT_FALSE(IsOpen());
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, WhileBusyKeysAndButtonsAreDead)
{
    Open([this] {
        Fill();
        program.session.Busy = true;
        for (const Qt::Key key : {Qt::Key_F12, Qt::Key_Escape})
            PressKey(*dialog_, key);
        for (const QString& name : {u"BtnFunc(0)"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            ClickOn(The<QWidget>(name));
        EXPECT_TRUE(IsOpen());
        program.session.Busy = false;
    });
    ExpectNothingStored();
}

struct NumberRow
{
    int box;
    QString typed;
    QString text;

    friend void PrintTo(const NumberRow& row, std::ostream* out)
    {
        *out << "box " << row.box << ": " << row.typed.toStdString();
    }
};

class NumberBoxes : public ChargeDialog, public ::testing::WithParamInterface<NumberRow>
{
};

TEST_P(NumberBoxes, TakeTheirKeysAndGroupTheirDigits)
{
    Open([this] {
        Type(GetParam().box, GetParam().typed);
        EXPECT_EQ(Field(GetParam().box).Text(), GetParam().text);
        EXPECT_EQ(Field(GetParam().box).SelStart(), GetParam().text.size());
    });
}

INSTANTIATE_TEST_SUITE_P(
    Typed, NumberBoxes,
    ::testing::Values(NumberRow{1, u"1a2 b,3+가"_q, u"123"_q}, NumberRow{1, u"-./"_q, u"-./"_q},
                      NumberRow{1, u"1000"_q, u"1,000"_q}, NumberRow{1, u"-1234"_q, u"-1,234"_q},
                      // The separators take their part of the ten characters.
                      NumberRow{1, u"1234567890"_q, u"12,345,678"_q},
                      NumberRow{2, u"1234567890"_q, u"12,345,678"_q}, NumberRow{2, u"x9"_q, u"9"_q},
                      NumberRow{3, u"20원"_q, u"20"_q}, NumberRow{3, u"9.95"_q, u"9.95"_q},
                      // With its separator a fourth digit finds no room.
                      NumberRow{3, u"1000"_q, u"100"_q}));

TEST_F(ChargeDialog, WhatIsPastedIsHeldToTheSameLimits)
{
    Open([this] {
        PasteText(BoxWidget(1), u"123456789012"_q);
        EXPECT_EQ(Field(1).Text(), u"1,234,567"_q);
        Field(1).SetText(QString());
        PasteText(BoxWidget(1), QString(10, u'가'));
        EXPECT_EQ(Field(1).Text(), QString(5, u'가'));
        PasteText(BoxWidget(3), u"12345"_q);
        EXPECT_LE(Field(3).Text().size(), 4);
    });
}

TEST_F(ChargeDialog, ARemarkTakesTwoHundredBytesAndSeveralLines)
{
    Open([this] {
        PasteText(BoxWidget(4), QString(u"가"_q).repeated(150));
        EXPECT_EQ(Field(4).Text(), QString(u"가"_q).repeated(100));
        Field(4).SetText(QString());
        PasteText(BoxWidget(4), u"첫째\n둘째"_q);
        EXPECT_EQ(Field(4).Text(), u"첫째\r\n둘째"_q);
        EXPECT_EQ(Field(4).MaxLength(), 200);
    });
}

TEST_F(ChargeDialog, ARemarkOfTwoLinesIsStoredAsItStands)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill(u"1"_q, u"1"_q, u"1"_q, QString());
        PasteText(BoxWidget(4), u" 첫째\n둘째 "_q);
        Save();
    });
    EXPECT_EQ(StoredRow()[4], u"첫째\r\n둘째"_q);
}

TEST_F(ChargeDialog, EnterWalksToTheNextBoxAndMarksItsText)
{
    Open([this] {
        Fill();
        BoxWidget(1).setFocus();
        for (int next = 2; next <= 4; ++next) {
            PressKey(BoxWidget(next - 1), Qt::Key_Return);
            EXPECT_TRUE(BoxWidget(next).hasFocus()) << next;
            EXPECT_EQ(Field(next).SelText(), Field(next).Text());
        }
        EXPECT_EQ(Field(1).Text(), u"1,000"_q);
    });
}

TEST_F(ChargeDialog, EnterInTheRemarkIsSwallowed)
{
    Open([this] {
        Type(4, u"메모"_q);
        PressKey(BoxWidget(4), Qt::Key_Return);
        PressKey(BoxWidget(4), Qt::Key_Enter);
        EXPECT_EQ(Field(4).Text(), u"메모"_q);
        EXPECT_TRUE(BoxWidget(4).hasFocus());
        EXPECT_TRUE(IsOpen());
    });
    ExpectNothingStored();
}

TEST_F(ChargeDialog, ArrowsWalkOutOfABoxAtItsEnds)
{
    Open([this] {
        BoxWidget(2).setFocus();
        PressKey(BoxWidget(2), Qt::Key_Down);
        EXPECT_TRUE(BoxWidget(3).hasFocus());
        PressKey(BoxWidget(3), Qt::Key_Up);
        EXPECT_TRUE(BoxWidget(2).hasFocus());
        Type(2, u"12"_q);
        PressKey(BoxWidget(2), Qt::Key_Left);
        EXPECT_TRUE(BoxWidget(2).hasFocus());
        EXPECT_EQ(Field(2).SelStart(), 1);
    });
}

TEST_F(ChargeDialog, TheBoxWithTheFocusAndItsBackingAreColoured)
{
    Open([this] {
        for (int i = 1; i <= 4; ++i) {
            BoxWidget(i).setFocus();
            EXPECT_EQ(Field(i).BackColor(), theme::Focus);
            EXPECT_EQ(The<Panel>(u"PLtxtBack(%1)"_q.arg(i)).BackColor(), theme::Focus);
            The<QWidget>(u"BtnFunc(1)"_q).setFocus();
            EXPECT_EQ(Field(i).BackColor(), theme::White);
            EXPECT_EQ(The<Panel>(u"PLtxtBack(%1)"_q.arg(i)).BackColor(), theme::White);
        }
    });
}

TEST_F(ChargeDialog, ADayChosenInTheCalendarMovesTheFocusToTheCount)
{
    Open([this] {
        Date().setFocus();
        PressKey(Date(), Qt::Key_F4);
        auto* days = Date().findChild<QTableView*>();
        PressKey(*days, Qt::Key_Left);
        PressKey(*days, Qt::Key_Return);
        EXPECT_FALSE(Date().IsCalendarOpen());
        EXPECT_EQ(Date().Value(), u"2012-05-29"_q);
        EXPECT_TRUE(BoxWidget(1).hasFocus());
    });
}

TEST_F(ChargeDialog, ADayChosenWhileBusyLeavesTheFocusAlone)
{
    Open([this] {
        Date().setFocus();
        PressKey(Date(), Qt::Key_F4);
        program.session.Busy = true;
        PressKey(*Date().findChild<QTableView*>(), Qt::Key_Return);
        program.session.Busy = false;
        EXPECT_FALSE(BoxWidget(1).hasFocus());
    });
}

TEST_F(ChargeDialog, ADateThatIsTypedIsNotLeftInItsMiddle)
{
    program.desktop.Expect(SavedBox());
    Open([this] {
        Fill();
        Date().setFocus();
        Date().SelectPart(DatePart::Month);
        TypeText(Date(), u"0102"_q);
        EXPECT_TRUE(Date().hasFocus());
        Save();
    });
    EXPECT_EQ(StoredRow().first(), u"2012-01-02"_q);
}

} // namespace
