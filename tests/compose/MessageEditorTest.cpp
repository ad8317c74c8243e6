#include "compose/MessageScreen.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>

using namespace tsms;
using namespace tsms::test;

namespace {

class MessageEditor : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    MemoBox& Message() { return program.The<MemoBox>(u"TxtPerSendMsg"_q); }
    MemoBox& Body() { return program.The<MemoBox>(u"txtEditBox"_q); }
    TextBox& Subject() { return program.The<TextBox>(u"txtEditSubject"_q); }
    fpSpread& Symbols() { return program.The<fpSpread>(u"fpSpreadScDoc"_q); }
    QString Count() { return program.Caption(u"LblPerSendMsg"_q); }
    QString BodyCount() { return program.Caption(u"LblEditLength"_q); }
    /// Of the words of the counter and of what they stand on.
    using Colors = std::pair<QColor, QColor>;
    const Colors Resting{theme::Text, Qt::transparent};
    const Colors Warning{theme::Warning, Qt::transparent};
    const Colors Refusing{theme::White, theme::Warning};
    Colors CounterColors()
    {
        const auto& number = program.The<Label>(u"LblPerSendMsg"_q);
        return {number.TextColor(), number.palette().color(QPalette::Window)};
    }
    void OpenTemplatePage() { program.Click(u"BtnToolbarDis(3)"_q); }

    Program program;
};

TEST_F(MessageEditor, StartsWithZeroBesideEighty)
{
    EXPECT_EQ(Count(), u"0 /"_q);
    EXPECT_EQ(program.Caption(u"LblPerSendCnt"_q), u"80"_q);
    EXPECT_EQ(BodyCount(), u"0 /"_q);
    EXPECT_EQ(program.Caption(u"Label13"_q), u"80"_q);
}

TEST_F(MessageEditor, BlanksAloneCountZero)
{
    program.Write(u"   "_q);
    EXPECT_EQ(Count(), u"0 /"_q);
    EXPECT_EQ(program.The<Label>(u"LblPerSendMsg"_q).Tag, u"0"_q);
}

TEST_F(MessageEditor, TwoSyllablesABlankAndALetterCountSix)
{
    program.Write(u"가나 a"_q);
    EXPECT_EQ(Count(), u"6 /"_q);
    EXPECT_EQ(program.The<Label>(u"LblPerSendMsg"_q).Tag, u"6"_q);
}

TEST_F(MessageEditor, ALineBreakCountsOne)
{
    program.Write(u"\n"_q);
    EXPECT_EQ(Count(), u"1 /"_q);
    Message().SetText(QString());
    program.Write(u"a\nb"_q);
    EXPECT_EQ(Message().Text(), u"a\r\nb"_q);
    EXPECT_EQ(Count(), u"3 /"_q);
}

TEST_F(MessageEditor, ATextThatComesWithoutAKeyLeavesTheCountStaleUntilTheNextKey)
{
    program.Write(u"abc"_q);
    Message().SetText(u"가나다라"_q);
    EXPECT_EQ(Count(), u"3 /"_q);
    PressKey(Message(), Qt::Key_Shift);
    EXPECT_EQ(Count(), u"8 /"_q);
}

TEST_F(MessageEditor, TheCounterIsRightWhileBusy)
{
    program.session.Busy = true;
    program.Write(u"ab"_q);
    EXPECT_EQ(Count(), u"2 /"_q);
    program.session.Busy = false;
}

TEST_F(MessageEditor, EightyBytesGoInAndNoMore)
{
    program.Write(QString(u"가"_q).repeated(39) + u"ab"_q);
    EXPECT_EQ(Count(), u"80 /"_q);
    program.Write(u"c"_q);
    EXPECT_EQ(Count(), u"80 /"_q);
    EXPECT_TRUE(Message().Text().endsWith(u"ab"_q));
}

TEST_F(MessageEditor, ATextSetByProgramIsCutAtItsEnd)
{
    Message().SetText(QString(u"가"_q).repeated(100));
    EXPECT_EQ(Message().Text(), QString(u"가"_q).repeated(40));
}

TEST_F(MessageEditor, AHundredThousandPastedCharactersAreCutToWhatFits)
{
    program.Write(u"xy"_q);
    Message().SetSelStart(1);
    PasteText(Message(), QString(u"나"_q).repeated(100000));
    EXPECT_EQ(Message().Text(), u"x"_q + QString(u"나"_q).repeated(39) + u"y"_q);
    EXPECT_EQ(Message().SelStart(), 40);
}

TEST_F(MessageEditor, WhatAnInputMethodCommitsIsLimitedToo)
{
    program.Write(QString(u"a"_q).repeated(79));
    CommitText(Message(), u"가"_q);
    EXPECT_EQ(Message().Text().size(), 79);
}

TEST_F(MessageEditor, TheCounterWarnsAtAFullMessageAndOnlyThere)
{
    program.Write(QString(79, u'a'));
    EXPECT_EQ(CounterColors(), Resting);
    program.Write(u"a"_q);
    EXPECT_EQ(CounterColors(), Warning);
    PressKey(Message(), Qt::Key_Backspace);
    EXPECT_EQ(CounterColors(), Resting);
}

TEST_F(MessageEditor, ARefusedKeyShowsInTheCounterUntilTheNextOneThatFindsRoom)
{
    program.Write(QString(80, u'a'));
    program.Write(u"b"_q);
    EXPECT_EQ(CounterColors(), Refusing);
    PressKey(Message(), Qt::Key_Backspace);
    EXPECT_EQ(CounterColors(), Resting);
    CommitText(Message(), u"가"_q); // two bytes, and there is room for one
    EXPECT_EQ(CounterColors(), Refusing);
    program.Write(u"b"_q);
    EXPECT_EQ(CounterColors(), Warning);
}

TEST_F(MessageEditor, ARefusalIsForgottenWhenTheFocusLeaves)
{
    program.Write(QString(80, u'a'));
    program.Write(u"b"_q);
    ASSERT_EQ(CounterColors(), Refusing);
    program.Control(u"txtSendNo"_q).setFocus();
    EXPECT_EQ(CounterColors(), Warning);
}

TEST_F(MessageEditor, AltWithALetterPutsNothingInAndIsNoRefusal)
{
    PressKey(Message(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(Message().Text(), QString());
    program.Write(QString(80, u'a'));
    PressKey(Message(), Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(Message().Text(), QString(80, u'a'));
    EXPECT_EQ(CounterColors(), Warning);
}

TEST_F(MessageEditor, APasteThatIsCutShowsInTheCounter)
{
    QGuiApplication::clipboard()->setText(QString(81, u'a'));
    PressKey(Message(), Qt::Key_V, Qt::ControlModifier);
    EXPECT_EQ(Count(), u"80 /"_q);
    EXPECT_EQ(CounterColors(), Refusing);
}

TEST_F(MessageEditor, ASelectionMakesRoom)
{
    program.Write(QString(80, u'a'));
    Message().Select(10, 2);
    program.Write(u"가"_q);
    EXPECT_EQ(CounterColors(), Warning);
}

TEST_F(MessageEditor, WhatOfABodyNoMessageHoldsIsMarked)
{
    OpenTemplatePage();
    const auto marked = [this] { return Body().extraSelections().value(0).cursor.selectedText(); };
    TypeText(Body(), u"줄\n"_q + QString(77, u'a'));
    EXPECT_EQ(marked(), QString());
    TypeText(Body(), u"bc"_q);
    EXPECT_EQ(marked(), u"bc"_q);
    Body().SetText(QString(50, u'가'));
    EXPECT_EQ(marked(), QString(10, u'가'));
    EXPECT_EQ(program.The<Label>(u"LblEditLength"_q).TextColor(), theme::Warning); // of the last key still
    program.Click(u"BtnFuncDocEdit(2)"_q);
    EXPECT_EQ(marked(), QString());
    EXPECT_EQ(program.The<Label>(u"LblEditLength"_q).TextColor(), theme::Text);
}

TEST_F(MessageEditor, BothMessageFieldsShowThatTheyHaveTheFocus)
{
    const auto ring = [this](const QString& name) {
        return static_cast<MessageScreen&>(program.Control(name)).HasKeyboard();
    };
    Message().SetFocus();
    EXPECT_TRUE(ring(u"PlPerSendMsg"_q));
    program.Control(u"txtSendNo"_q).setFocus();
    EXPECT_FALSE(ring(u"PlPerSendMsg"_q));
    OpenTemplatePage();
    EXPECT_TRUE(ring(u"PlEditBox"_q));
}

TEST_F(MessageEditor, TheTitleTakesFortyBytesAndEnterChangesNothing)
{
    OpenTemplatePage();
    Subject().setFocus();
    TypeText(Subject(), QString(u"제"_q).repeated(21));
    EXPECT_EQ(Subject().Text(), QString(u"제"_q).repeated(20));
    const QString before = Subject().Text();
    TypeText(Subject(), u"\n"_q);
    EXPECT_EQ(Subject().Text(), before);
    EXPECT_TRUE(Subject().hasFocus());
}

TEST_F(MessageEditor, ABodyOfAHundredSyllablesShowsTwoHundredBesideEighty)
{
    OpenTemplatePage();
    TypeText(Body(), QString(u"가"_q).repeated(100));
    EXPECT_EQ(Body().Text().size(), 100);
    EXPECT_EQ(BodyCount(), u"200 /"_q);
    EXPECT_EQ(program.Caption(u"Label13"_q), u"80"_q);
}

TEST_F(MessageEditor, TheBodyStopsAtAHundredAndSixtyCharacters)
{
    OpenTemplatePage();
    PasteText(Body(), QString(u"a"_q).repeated(100000));
    EXPECT_EQ(Body().Text().size(), 160);
}

TEST_F(MessageEditor, APlaceholderInAnEmptyBodyCountsTenAndLeavesTheCaretBehindIt)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(1)"_q);
    EXPECT_TRUE(program.Control(u"BtnAutoChangeChr(0)"_q).hasFocus());
    program.Click(u"BtnAutoChangeChr(0)"_q);
    EXPECT_EQ(Body().Text(), u"[받는사람]"_q);
    EXPECT_EQ(BodyCount(), u"10 /"_q);
    EXPECT_EQ(Body().SelStart(), 6);
    EXPECT_TRUE(Body().hasFocus());
    EXPECT_TRUE(program.Control(u"PlDocEdit(1)"_q).isVisible());
    program.Click(u"BtnAutoChangeChr(1)"_q);
    EXPECT_EQ(Body().Text(), u"[받는사람][보내는사람]"_q);
    EXPECT_EQ(BodyCount(), u"22 /"_q);
}

TEST_F(MessageEditor, OfTwoSymbolsTheFirstGoesToTheCaretAndTheSecondToTheEnd)
{
    OpenTemplatePage();
    TypeText(Body(), u"abcd"_q);
    Body().SetSelStart(2);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ClickCell(Symbols(), 1, 1);
    EXPECT_EQ(Body().Text(), u"ab☆cd"_q);
    ClickCell(Symbols(), 2, 1);
    EXPECT_EQ(Body().Text(), u"ab☆cd☎"_q);
    EXPECT_EQ(BodyCount(), u"8 /"_q);
    EXPECT_TRUE(program.Control(u"PlDocEdit(0)"_q).isVisible());
}

TEST_F(MessageEditor, EachSymbolAndPlaceholderIsTakenBackInOneStep)
{
    OpenTemplatePage();
    TypeText(Body(), u"two words"_q);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ClickCell(Symbols(), 1, 1);
    program.Click(u"BtnFuncDocEdit(1)"_q);
    program.Click(u"BtnAutoChangeChr(0)"_q);
    ASSERT_EQ(Body().Text(), u"two words☆[받는사람]"_q);
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), u"two words☆"_q);
    EXPECT_EQ(BodyCount(), u"11 /"_q);
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), u"two words"_q);
}

TEST_F(MessageEditor, ASelectionStaysBehindWhatIsInserted)
{
    OpenTemplatePage();
    TypeText(Body(), u"abcde"_q);
    Body().Select(1, 3);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ClickCell(Symbols(), 1, 1);
    EXPECT_EQ(Body().Text(), u"a☆bcde"_q);
}

TEST_F(MessageEditor, ALineBreakBeforeTheCaretCountsTwoPlaces)
{
    OpenTemplatePage();
    TypeText(Body(), u"a\nb"_q);
    Body().SetSelStart(3);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ClickCell(Symbols(), 1, 1);
    EXPECT_EQ(Body().Text(), u"a\r\n☆b"_q);
}

TEST_F(MessageEditor, TheGridShowsTheSameSymbolInTwoCells)
{
    OpenTemplatePage();
    EXPECT_EQ(Symbols().Cells().Text(2, 1), u"☎"_q);
    EXPECT_EQ(Symbols().Cells().Text(1, 2), u"☎"_q);
    EXPECT_EQ(Symbols().Cells().MaxCols(), 8);
    EXPECT_EQ(Symbols().Cells().MaxRows(), 6);
}

TEST_F(MessageEditor, EnterInTheGridInsertsTheActiveSymbolAndClosesThePopup)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(0)"_q);
    EXPECT_TRUE(Symbols().hasFocus());
    PressKey(Symbols(), Qt::Key_Right);
    PressKey(Symbols(), Qt::Key_Return);
    EXPECT_EQ(Body().Text(), u"☎"_q);
    EXPECT_EQ(BodyCount(), u"2 /"_q);
    EXPECT_FALSE(program.Control(u"PlDocEdit(0)"_q).isVisible());
}

TEST_F(MessageEditor, OnePopupClosesTheOtherAndStandsAtItsPlace)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(0)"_q);
    EXPECT_EQ(program.Control(u"PlDocEdit(0)"_q).pos(), QPoint(224, 468));
    program.Click(u"BtnFuncDocEdit(1)"_q);
    EXPECT_FALSE(program.Control(u"PlDocEdit(0)"_q).isVisible());
    EXPECT_EQ(program.Control(u"PlDocEdit(1)"_q).pos(), QPoint(224, 468));
    program.Click(u"BtnDocEdit(1)"_q);
    EXPECT_FALSE(program.Control(u"PlDocEdit(1)"_q).isVisible());
}

TEST_F(MessageEditor, AnOpenPopupStaysAcrossPages)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(0)"_q);
    program.Click(u"BtnToolbarDis(0)"_q);
    EXPECT_TRUE(program.Control(u"PlDocEdit(0)"_q).isVisible());
}

TEST_F(MessageEditor, WhileBusyPopupsAndInsertionsAreDead)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(0)"_q);
    program.session.Busy = true;
    ClickCell(Symbols(), 1, 1);
    EXPECT_EQ(Body().Text(), QString());
    program.Click(u"BtnDocEdit(0)"_q);
    EXPECT_TRUE(program.Control(u"PlDocEdit(0)"_q).isVisible());
    program.Click(u"BtnFuncDocEdit(1)"_q);
    EXPECT_FALSE(program.Control(u"PlDocEdit(1)"_q).isVisible());
    Subject().SetText(u"제목"_q);
    program.Click(u"BtnFuncDocEdit(2)"_q);
    EXPECT_EQ(Subject().Text(), u"제목"_q);
    PressKey(Symbols(), Qt::Key_Return);
    EXPECT_EQ(Body().Text(), QString());
    EXPECT_FALSE(program.Control(u"PlDocEdit(0)"_q).isVisible());
    program.session.Busy = false;
    program.Click(u"BtnFuncDocEdit(1)"_q);
    program.session.Busy = true;
    program.Click(u"BtnAutoChangeChr(0)"_q);
    EXPECT_EQ(Body().Text(), QString());
    program.session.Busy = false;
}

TEST_F(MessageEditor, RewriteEmptiesTheEditorAndItsKeys)
{
    OpenTemplatePage();
    TypeText(Body(), u"abc"_q);
    Body().Tag = u"12"_q;
    Subject().SetText(u"제목"_q);
    Subject().Tag = u"3"_q;
    program.Click(u"BtnFuncDocEdit(2)"_q);
    EXPECT_EQ(Body().Text() + Subject().Text() + Body().Tag + Subject().Tag, QString());
    EXPECT_EQ(program.The<Label>(u"LblEditLength"_q).Tag, u"3"_q);
    EXPECT_EQ(BodyCount(), u"0 /"_q);
    EXPECT_TRUE(Body().hasFocus());
}

TEST_F(MessageEditor, TheSymbolOfTheActiveCellGoesInWhateverCellTheClickReports)
{
    OpenTemplatePage();
    Symbols().SetActiveCell(3, 1);
    Q_EMIT Symbols().Click(8, 6);
    EXPECT_EQ(Body().Text(), u"☏"_q);
}

TEST_F(MessageEditor, TheSpaceBarInTheSymbolGridInsertsNothing)
{
    OpenTemplatePage();
    program.Click(u"BtnFuncDocEdit(0)"_q);
    PressKey(Symbols(), Qt::Key_Space);
    EXPECT_EQ(Body().Text(), QString());
}

TEST_F(MessageEditor, IntoAFullBodyNothingIsInsertedAndNothingLost)
{
    OpenTemplatePage();
    const QString full = QString(u"a"_q).repeated(159);
    Body().SetText(full);
    Body().SetSelStart(0);
    program.Click(u"BtnFuncDocEdit(1)"_q);
    program.Click(u"BtnAutoChangeChr(0)"_q);
    EXPECT_EQ(Body().Text(), full);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ClickCell(Symbols(), 1, 1);
    EXPECT_EQ(Body().Text(), u"☆"_q + full);
}

TEST_F(MessageEditor, EnteringThePageBuildsTheSymbolGridAnew)
{
    Symbols().Cells().SetText(1, 1, u"x"_q);
    OpenTemplatePage();
    EXPECT_EQ(Symbols().Cells().Text(1, 1), u"☆"_q);
}

TEST_F(MessageEditor, FieldsAndGridLookAsTheyShould)
{
    const QColor phone(144, 215, 250);
    EXPECT_EQ(Message().BackColor(), phone);
    EXPECT_EQ(Body().BackColor(), phone);
    EXPECT_EQ(Message().frameShape(), QFrame::NoFrame);
    EXPECT_EQ(Body().frameShape(), QFrame::NoFrame);
    EXPECT_FALSE(Subject().hasFrame());
    for (const QString& name : {u"LblPerSendMsg"_q, u"LblEditLength"_q})
        EXPECT_TRUE(program.The<Label>(name).alignment().testFlag(Qt::AlignRight));
    for (int column = 1; column <= 8; ++column)
        EXPECT_EQ(Symbols().ColWidth(column), 3.0);
    EXPECT_FALSE(Symbols().horizontalHeader()->isVisibleTo(&Symbols()));
    EXPECT_FALSE(Symbols().verticalHeader()->isVisibleTo(&Symbols()));
    EXPECT_EQ(program.The<PushButton>(u"BtnFuncDocEdit(0)"_q).Caption(), u"특수문자"_q);
    EXPECT_EQ(program.The<PushButton>(u"BtnFuncDocEdit(1)"_q).Caption(), u"변환문구"_q);
    EXPECT_EQ(program.The<PushButton>(u"BtnFuncDocEdit(2)"_q).Caption(), u"다시쓰기"_q);
    EXPECT_EQ(program.Caption(u"Label15(0)"_q), u"(발송시 수신성명으로 변환)"_q);
    EXPECT_EQ(program.Caption(u"Label15(1)"_q), u"(발송시 회신명칭으로 변환)"_q);
}

TEST_F(MessageEditor, TextAndCountSurviveAChangeOfPage)
{
    program.Write(u"안녕"_q);
    OpenTemplatePage();
    program.Click(u"BtnToolbarDis(0)"_q);
    EXPECT_EQ(Message().Text(), u"안녕"_q);
    EXPECT_EQ(Count(), u"4 /"_q);
}

TEST_F(MessageEditor, TheFixedLabelsStandToTheLetter)
{
    const QStringList compose{u"총 80 Bytes 단문 문자메세지 전송창입니다. "_q,
                              u"한글은 2Bytes, 영문,숫자 1 Bytes로 책정이 됩니다."_q,
                              u"수신전화번호 입력시 '-' 를 입력하셔도 무방합니다."_q,
                              u"문구자동변환 : [받는사람]은 수신성명으로 자동변환 되어 발송됩니다."_q,
                              u"문자충전후 반드시 요금현황에서 충전내역을 등록하여 주십시오."_q};
    const QStringList templates{
        u"문구자동변환 : [받는사람]은 수신성명으로 자동변환 되어 발송됩니다."_q,
        u"문구자동변환 : [보내는사람]은 환경설정에 지정된 회신명칭으로 자동변환 되어 발송됩니다."_q,
        u"문구자동변환을 하실때는 문자서식에 반드시 \"[\",\"]\" 표기를 하시고 \"받는사람\",\"보내는사람\"을 기재"_q,
        u"한글은 2Bytes, 영문,숫자 1 Bytes로 책정이 됩니다. (총 80 Bytes 단문 문자메세지 입니다. )"_q,
        u"자주 사용하시는 문자메시지 문구를 저장하여 사용하시면 됩니다."_q};
    for (int i = 0; i < 5; ++i) {
        EXPECT_EQ(program.Caption(u"Label3(%1)"_q.arg(i)), compose[i]);
        EXPECT_EQ(program.Caption(u"Label5(%1)"_q.arg(i)), templates[i]);
    }
    EXPECT_EQ(program.Caption(u"Label2(0)"_q), u"문자메시지 전송창"_q);
    EXPECT_EQ(program.Caption(u"Label2(4)"_q), u"문자메시지 서식편집"_q);
    EXPECT_EQ(program.Caption(u"Label1"_q), u"보내는사람"_q);
    EXPECT_EQ(program.Caption(u"Label11"_q), u"제목"_q);
    EXPECT_EQ(program.Caption(u"Label10"_q), u"분류"_q);
}

} // namespace
