#include "toolkit/fields/TextHelper.h"

#include "runtime/CodePage949.h"
#include "toolkit/fields/KeyFilter.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"

#include "support/program/Hands.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QTest>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class TextHelperTest : public testing::Test
{
protected:
    void LimitBoth(int limit)
    {
        line.SetByteLimit(limit);
        memo.SetByteLimit(limit);
    }

    void ShowThousands()
    {
        line.SetFilter(GroupThousands);
        line.SetSeparator(u',');
    }

    ScriptedDesktop desktop;
    TextHelper helper{desktop};
    TextBox line;
    MemoBox memo;
};

struct LimitRow
{
    const char* name;
    QString before;
    int selStart;
    int selLength;
    QString put;
    int limit;
    QString text;
    int caret;
};

class LimitBytesTable : public TextHelperTest, public testing::WithParamInterface<LimitRow>
{
protected:
    void Begin(TextField& field)
    {
        field.SetText(GetParam().before);
        field.Select(GetParam().selStart, GetParam().selLength);
    }
    void Check(const TextField& field)
    {
        EXPECT_EQ(field.Text(), GetParam().text);
        EXPECT_EQ(field.SelStart(), GetParam().caret);
        EXPECT_EQ(field.SelLength(), 0);
    }
};

TEST_P(LimitBytesTable, ActsOnACommitInALine)
{
    LimitBoth(GetParam().limit);
    Begin(line);
    CommitText(line, GetParam().put);
    Check(line);
}

TEST_P(LimitBytesTable, ActsOnACommitInAMemo)
{
    LimitBoth(GetParam().limit);
    Begin(memo);
    CommitText(memo, GetParam().put);
    Check(memo);
}

TEST_P(LimitBytesTable, ActsOnAPasteInALine)
{
    LimitBoth(GetParam().limit);
    Begin(line);
    PasteText(line, GetParam().put);
    Check(line);
}

TEST_P(LimitBytesTable, ActsOnAPasteInAMemo)
{
    LimitBoth(GetParam().limit);
    Begin(memo);
    PasteText(memo, GetParam().put);
    Check(memo);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LimitBytesTable,
    testing::Values(LimitRow{"AtTheEnd", u"abc"_q, 3, 0, u"defg"_q, 5, u"abcde"_q, 5},
                    LimitRow{"AtTheStart", u"abc"_q, 0, 0, u"defg"_q, 5, u"deabc"_q, 2},
                    LimitRow{"InTheMiddle", u"abc"_q, 1, 0, u"defg"_q, 5, u"adebc"_q, 3},
                    LimitRow{"OverASelection", u"abcde"_q, 1, 2, u"xyz"_q, 5, u"axyde"_q, 3},
                    LimitRow{"OverAllOfIt", u"abcde"_q, 0, 5, u"가나다"_q, 5, u"가나"_q, 2},
                    LimitRow{"IntoAFullField", u"abcde"_q, 2, 0, u"x"_q, 5, u"abcde"_q, 2},
                    LimitRow{"HangulWithOneByteLeft", u"abcd"_q, 4, 0, u"가"_q, 5, u"abcd"_q, 4},
                    LimitRow{"HangulInTheMiddle", u"가나"_q, 1, 0, u"다라"_q, 7, u"가다나"_q, 2},
                    LimitRow{"Blanks", u""_q, 0, 0, u"      "_q, 5, u"     "_q, 5}),
    [](const auto& row) { return row.param.name; });

TEST_F(TextHelperTest, TypingStopsAtTheLimit)
{
    LimitBoth(4);
    QTest::keyClicks(&line, QStringLiteral("abcdef"));
    EXPECT_EQ(line.Text(), u"abcd"_q);
    line.SetSelStart(1);
    QTest::keyClicks(&line, QStringLiteral("x"));
    EXPECT_EQ(line.Text(), u"abcd"_q);
    EXPECT_EQ(line.SelStart(), 1);
}

TEST_F(TextHelperTest, ALineBreakCountsOneByteAndIsNeverHalved)
{
    LimitBoth(3);
    QTest::keyClicks(&memo, QStringLiteral("ab"));
    QTest::keyClick(&memo, Qt::Key_Return);
    EXPECT_EQ(memo.Text(), u"ab\r\n"_q);
    QTest::keyClick(&memo, Qt::Key_Return);
    EXPECT_EQ(memo.Text(), u"ab\r\n"_q);
    EXPECT_EQ(memo.SelStart(), 4);
}

TEST_F(TextHelperTest, ATextSetByTheProgramIsCutAtItsEnd)
{
    LimitBoth(5);
    line.SetText(u"가나다라"_q);
    EXPECT_EQ(line.Text(), u"가나"_q);
    line.SetText(u"xy가나"_q); // at its end, and not where it differs
    EXPECT_EQ(line.Text(), u"xy가"_q);
    memo.SetText(u"abcd\r\nfg"_q);
    EXPECT_EQ(memo.Text(), u"abcd\r\n"_q);
}

TEST_F(TextHelperTest, AFieldWithinTheLimitIsLeftAlone)
{
    LimitBoth(80);
    const QString text(80, u'a');
    memo.SetText(text);
    EXPECT_EQ(memo.Text(), text);
    memo.SetText(QString(40, u'가'));
    EXPECT_EQ(memo.Text(), QString(40, u'가'));
}

TEST_F(TextHelperTest, AHundredThousandPastedCharactersAreCut)
{
    LimitBoth(80);
    for (TextField* field : {static_cast<TextField*>(&line), static_cast<TextField*>(&memo)}) {
        field->SetText(u"머리꼬리"_q);
        field->SetSelStart(2);
        PasteText(field->Widget(), QString(100'000, u'가'));
        EXPECT_EQ(field->Text(), u"머리"_q + QString(36, u'가') + u"꼬리"_q);
        EXPECT_EQ(field->SelStart(), 38);
        field->SetText(QString(100'000, u'나'));
        EXPECT_EQ(field->Text(), QString(40, u'나'));
    }
}

TEST_F(TextHelperTest, AKeyWithoutRoomNeverReachesTheTextAndASelectionMakesRoom)
{
    LimitBoth(4);
    for (TextField* field : {static_cast<TextField*>(&line), static_cast<TextField*>(&memo)}) {
        field->SetText(u"가나"_q);
        int changes = 0;
        field->OnChange = [&] { ++changes; };
        field->SetSelStart(1);
        QTest::keyClick(&field->Widget(), Qt::Key_A);
        EXPECT_EQ(field->Text(), u"가나"_q);
        EXPECT_EQ(field->SelStart(), 1);
        EXPECT_EQ(changes, 0);
        field->Select(0, 1);
        QTest::keyClick(&field->Widget(), Qt::Key_B);
        EXPECT_EQ(field->Text(), u"b나"_q);
        QTest::keyClick(&field->Widget(), Qt::Key_C);
        EXPECT_EQ(field->Text(), u"bc나"_q);
        QTest::keyClick(&field->Widget(), Qt::Key_D);
        EXPECT_EQ(field->Text(), u"bc나"_q);
        QTest::keyClick(&field->Widget(), Qt::Key_Backspace);
        EXPECT_EQ(field->Text(), u"b나"_q);
        field->OnChange = {};
    }
}

TEST_F(TextHelperTest, NoSequenceOfChangesLeavesMoreThanTheLimit)
{
    LimitBoth(13);
    const QStringList pieces{u"가"_q, u"ab"_q, u"☎ "_q, u"\U0001F600"_q, u"12345678901234567890"_q};
    unsigned state = 7;
    const auto next = [&](int below) {
        state = state * 1103515245U + 12345U;
        return static_cast<int>((state >> 16U) % static_cast<unsigned>(below));
    };
    for (int round = 0; round < 500; ++round) {
        const int size = static_cast<int>(memo.Text().size());
        const int start = next(size + 1);
        memo.Select(start, next(3));
        if (next(4) == 0)
            QTest::keyClick(&memo, next(2) == 0 ? Qt::Key_Return : Qt::Key_Backspace);
        else
            CommitText(memo, pieces[next(static_cast<int>(pieces.size()))]);
        ASSERT_LE(MessageBytes(memo.Text()), 13) << memo.Text().toStdString();
    }
}

TEST_F(TextHelperTest, APhoneFieldKeepsDigitsHyphensDotsAndSlashes)
{
    line.SetFilter(KeepPhoneCharacters);
    PasteText(line, u"(010) 1234-56.7/8 전화"_q);
    EXPECT_EQ(line.Text(), u"0101234-56.7/8"_q);
}

TEST_F(TextHelperTest, APhoneFieldKeepsTheCaretBehindWhatWentIn)
{
    line.SetText(u"010-5678"_q);
    line.SetFilter(KeepPhoneCharacters);
    line.SetSelStart(4);
    PasteText(line, u"a12b34c"_q);
    EXPECT_EQ(line.Text(), u"010-12345678"_q);
    EXPECT_EQ(line.SelStart(), 8);
}

TEST_F(TextHelperTest, AGuardedAndLimitedPhoneFieldCutsWhatWasPutIn)
{
    line.SetFilter(KeepPhoneCharacters);
    line.SetByteLimit(13);
    line.SetText(u"010-5678"_q);
    line.SetSelStart(4);
    PasteText(line, u"x1y2z3 456789"_q);
    EXPECT_EQ(line.Text(), u"010-123455678"_q);
    EXPECT_EQ(line.SelStart(), 9);
}

TEST_F(TextHelperTest, APhoneFieldIsGuardedWhenTheProgramSetsItToo)
{
    line.SetFilter(KeepPhoneCharacters);
    line.SetByteLimit(13);
    line.SetText(u"tel 02-1234-5678-999999"_q);
    EXPECT_EQ(line.Text(), u"02-1234-5678-"_q);
}

struct ThousandsRow
{
    QString before;
    int caret;
    QString typed;
    QString text;
    int caretAfter;
};

class ThousandsTable : public TextHelperTest, public testing::WithParamInterface<ThousandsRow>
{
};

TEST_P(ThousandsTable, TheCaretKeepsItsDistanceFromTheEnd)
{
    line.SetText(GetParam().before);
    ShowThousands();
    line.SetSelStart(GetParam().caret);
    CommitText(line, GetParam().typed);
    EXPECT_EQ(line.Text(), GetParam().text);
    EXPECT_EQ(line.SelStart(), GetParam().caretAfter);
}

INSTANTIATE_TEST_SUITE_P(Rows, ThousandsTable,
                         testing::Values(ThousandsRow{u"123"_q, 3, u"4"_q, u"1,234"_q, 5},
                                         ThousandsRow{u"1,234"_q, 5, u"5"_q, u"12,345"_q, 6},
                                         ThousandsRow{u"1,234"_q, 1, u"9"_q, u"19,234"_q, 2},
                                         ThousandsRow{u"12,345"_q, 0, u"9"_q, u"912,345"_q, 1},
                                         ThousandsRow{u""_q, 0, u"-1234567"_q, u"-1,234,567"_q, 10},
                                         ThousandsRow{u""_q, 0, u"12"_q, u"12"_q, 2},
                                         ThousandsRow{u""_q, 0, u"1234원"_q, u"1234원"_q, 5}));

TEST_F(TextHelperTest, ANumberThatGrowsPastTheLimitByItsSeparatorsIsHeldToIt)
{
    line.SetByteLimit(10);
    ShowThousands();
    PasteText(line, u"1234567890"_q);
    EXPECT_LE(line.Text().size(), 10);
    EXPECT_EQ(line.Text(), u"1,234,567"_q);
}

TEST_F(TextHelperTest, ADigitWhoseSeparatorFindsNoRoomIsRefused)
{
    line.SetMaxLength(4);
    ShowThousands();
    line.SetText(u"234"_q);
    CommitText(line, u"1"_q);
    EXPECT_EQ(line.Text(), u"234"_q);
    EXPECT_EQ(line.SelStart(), 0);
    line.SetText(u"12345"_q);
    EXPECT_EQ(line.Text(), u"123"_q);
}

TEST_F(TextHelperTest, WhileItIsNotHeldAFieldLetsEveryTextStand)
{
    bool held = true;
    line.SetFilter(KeepPhoneCharacters);
    line.SetByteLimit(5);
    line.SetHeldWhile([&held] { return held; });
    line.SetText(u"(010) 123"_q);
    EXPECT_EQ(line.Text(), u"01012"_q);
    held = false;
    line.SetText(u"(010) 123"_q);
    EXPECT_EQ(line.Text(), u"(010) 123"_q);
}

TEST_F(TextHelperTest, AChangeIsToldOnceWithTheTextThatStays)
{
    LimitBoth(3);
    QStringList told;
    line.OnChange = [&] { told += line.Text(); };
    CommitText(line, u"abcde"_q);
    CommitText(line, u"f"_q);
    line.SetText(u"12345"_q);
    EXPECT_EQ(told, (QStringList{u"abc"_q, u"123"_q}));
}

TEST_F(TextHelperTest, RemovingADigitRegroups)
{
    ShowThousands();
    line.SetText(u"1234"_q);
    line.SetSelStart(5);
    QTest::keyClick(&line, Qt::Key_Backspace);
    EXPECT_EQ(line.Text(), u"123"_q);
    EXPECT_EQ(line.SelStart(), 3);
}

TEST_F(TextHelperTest, ASeparatorIsPassedOverByTheKeysThatRemove)
{
    ShowThousands();
    line.SetText(u"1234567"_q);
    line.SetSelStart(6);
    QTest::keyClick(&line, Qt::Key_Backspace);
    EXPECT_EQ(line.Text(), u"123,567"_q);
    EXPECT_EQ(line.SelStart(), 3);
    QTest::keyClick(&line, Qt::Key_Delete);
    EXPECT_EQ(line.Text(), u"12,367"_q);
    EXPECT_EQ(line.SelStart(), 4);
}

TEST_F(TextHelperTest, AGroupedNumberIsTakenBackStepByStep)
{
    line.SetByteLimit(10);
    ShowThousands();
    QTest::keyClicks(&line, QStringLiteral("12345"));
    QTest::keyClick(&line, Qt::Key_Backspace);
    QTest::keyClick(&line, Qt::Key_Backspace);
    ASSERT_EQ(line.Text(), u"123"_q);
    line.Undo();
    EXPECT_EQ(line.Text(), u"12,345"_q);
    line.Undo();
    EXPECT_EQ(line.Text(), QString());
    line.Redo();
    EXPECT_EQ(line.Text(), u"12,345"_q);
}

TEST_F(TextHelperTest, APlainNumberHasNoSeparators)
{
    EXPECT_EQ(helper.PlainNumber(u"1,234,567"_q, QString()), u"1234567"_q);
    EXPECT_EQ(helper.PlainNumber(u"-12"_q, u"looked at by nobody"_q), u"-12"_q);
    EXPECT_EQ(helper.PlainNumber(QString(), QString()), QString());
}

TEST_F(TextHelperTest, ARequiredFieldWithTextPasses)
{
    line.SetText(u" a "_q);
    EXPECT_TRUE(helper.RequireText(line, u"이름"_q));
}

TEST_F(TextHelperTest, ARequiredFieldOfBlanksIsNamedAndGetsTheFocus)
{
    QWidget window;
    auto* other = new TextBox(&window, u"other"_q);
    auto* field = new TextBox(&window, u"field"_q);
    window.show();
    other->setFocus();
    field->SetText(u"  "_q);
    desktop.Expect({u"수신번호"_q, u"'수신번호' 항목을 입력하여 주십시오."_q, MsgBoxExclamation});
    EXPECT_FALSE(helper.RequireText(*field, u"수신번호"_q));
    EXPECT_EQ(window.focusWidget(), field);
}

TEST_F(TextHelperTest, EnterGoesToTheNextField)
{
    QWidget window;
    auto* first = new TextBox(&window, u"first"_q);
    auto* second = new TextBox(&window, u"second"_q);
    second->SetText(u"abc"_q);
    first->OnKeyPress = [&](char16_t& key) {
        if (key != 13)
            return;
        helper.NextFieldOnEnter(key, *second);
        helper.SelectField(*second);
    };
    window.show();
    first->setFocus();
    QTest::keyClick(first, Qt::Key_A);
    EXPECT_EQ(window.focusWidget(), first);
    QTest::keyClick(first, Qt::Key_Return);
    EXPECT_EQ(window.focusWidget(), second);
    EXPECT_EQ(second->SelText(), u"abc"_q);
    EXPECT_EQ(first->Text(), u"a"_q);
}

TEST_F(TextHelperTest, OnlyEnterIsUsedUpInTheLastField)
{
    char16_t key = 13;
    helper.LastFieldOnEnter(key, line);
    EXPECT_EQ(key, 0);
    key = u'a';
    helper.LastFieldOnEnter(key, line);
    EXPECT_EQ(key, u'a');
    helper.NextFieldOnEnter(key, line);
    EXPECT_EQ(key, u'a');
}

TEST_F(TextHelperTest, EnterIsUsedUpWhereItGoesToTheNextField)
{
    char16_t key = 13;
    helper.NextFieldOnEnter(key, line);
    EXPECT_EQ(key, 0);
}

TEST_F(TextHelperTest, AKeyThatMakesNoCharacterIsOfferedToNoFilter)
{
    line.OnKeyPress = [](char16_t& key) { ADD_FAILURE() << int{key}; };
    QTest::keyClick(&line, Qt::Key_Escape);
    QTest::keyClick(&line, Qt::Key_Delete);
    QTest::keyClick(&line, Qt::Key_Left);
}

TEST(Composing, OfAMillionCharactersAManageablePartIsHandedOnWithoutMarks)
{
    const QString million(1'000'000, u'가');
    const QInputMethodEvent::Attribute mark(QInputMethodEvent::Cursor, 999'999, 1);
    QInputMethodEvent event(million, {mark});
    QString composed;
    qsizetype marks = -1;
    SendFilteredCommit(
        event, [](QStringView keys) { return keys.toString(); },
        [&](QInputMethodEvent* handed) {
            composed = handed->preeditString();
            marks = handed->attributes().size();
        });
    EXPECT_EQ(composed.size(), MostGiven);
    EXPECT_EQ(marks, 0);
}

TEST(NumberKeys, AreTheCodes45To57AndThreeEditingKeys)
{
    for (char16_t code = 1; code < 256; ++code) {
        char16_t key = code;
        FilterNumberKey(key);
        const bool passes = QStringView(u"\x08\x09\x0D-./0123456789").contains(QChar(code));
        EXPECT_EQ(key, passes ? code : 0) << static_cast<int>(code);
    }
}

} // namespace
