#include "toolkit/fields/LimitRule.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/fields/TextHelper.h"

#include "support/program/Hands.h"
#include "support/Words.h"

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

void Compose(QWidget& field, const QString& preedit)
{
    QInputMethodEvent event(preedit, {});
    QApplication::sendEvent(&field, &event);
}

/// What holds for both text boxes.
template <class Field> class AnyTextField : public testing::Test
{
protected:
    Field field{nullptr, QStringLiteral("txtAny")};
};

using Fields = testing::Types<TextBox, MemoBox>;

class FieldNames
{
public:
    template <class Field> static std::string GetName(int)
    {
        return std::is_same_v<Field, TextBox> ? "TextBox" : "MemoBox";
    }
};

TYPED_TEST_SUITE(AnyTextField, Fields, FieldNames);

TYPED_TEST(AnyTextField, AsksForItsInputMethodOrForNone)
{
    const auto enabled = [this] { return this->field.testAttribute(Qt::WA_InputMethodEnabled); };
    EXPECT_TRUE(enabled());
    this->field.SetImeMode(ImeMode::Off);
    EXPECT_FALSE(enabled());
    this->field.SetImeMode(ImeMode::Latin);
    EXPECT_TRUE(enabled());
    EXPECT_TRUE(this->field.inputMethodHints().testFlag(Qt::ImhPreferLatin));
    this->field.SetImeMode(ImeMode::Hangul);
    EXPECT_FALSE(this->field.inputMethodHints().testFlag(Qt::ImhPreferLatin));
}

TYPED_TEST(AnyTextField, ItsNameIsForToolsAndNotForThoseWhoListen)
{
    EXPECT_EQ(this->field.objectName(), u"txtAny"_q);
    EXPECT_EQ(this->field.accessibleName(), QString());
}

TYPED_TEST(AnyTextField, EveryChangeIsToldOnce)
{
    QStringList told;
    this->field.OnChange = [&] { told += this->field.Text(); };
    QTest::keyClicks(&this->field, QStringLiteral("ab"));
    CommitText(this->field, u"가"_q);
    PasteText(this->field, u"c"_q);
    this->field.SetText(u"by program"_q);
    EXPECT_EQ(told, (QStringList{u"a"_q, u"ab"_q, u"ab가"_q, u"ab가c"_q, u"by program"_q}));
}

TYPED_TEST(AnyTextField, TheSameTextSetAgainIsNoChange)
{
    this->field.SetText(u"a"_q);
    int told = 0;
    this->field.OnChange = [&] { ++told; };
    this->field.SetText(u"a"_q);
    EXPECT_EQ(told, 0);
}

TYPED_TEST(AnyTextField, AHandlerThatSetsTheTextIsToldOfThatToo)
{
    QStringList told;
    this->field.OnChange = [&] {
        told += this->field.Text();
        if (this->field.Text() == u"a"_q)
            this->field.SetText(u"b"_q);
    };
    QTest::keyClicks(&this->field, QStringLiteral("a"));
    EXPECT_EQ(told, (QStringList{u"a"_q, u"b"_q}));
    EXPECT_EQ(this->field.Text(), u"b"_q);
}

TYPED_TEST(AnyTextField, AKeyIsFilteredBeforeItActs)
{
    this->field.OnKeyPress = [](char16_t& key) {
        if (key == u'b')
            key = 0;
    };
    QTest::keyClicks(&this->field, QStringLiteral("abc"));
    EXPECT_EQ(this->field.Text(), u"ac"_q);
}

TYPED_TEST(AnyTextField, AKeyCanBeReplaced)
{
    this->field.OnKeyPress = [](char16_t& key) { key = u'X'; };
    QTest::keyClick(&this->field, Qt::Key_A);
    EXPECT_EQ(this->field.Text(), u"X"_q);
}

TYPED_TEST(AnyTextField, WhatAnInputMethodCommitsIsFilteredLikeKeys)
{
    this->field.OnKeyPress = FilterNumberKey;
    CommitText(this->field, u"010-가나12"_q);
    EXPECT_EQ(this->field.Text(), u"010-12"_q);
}

TYPED_TEST(AnyTextField, WhatIsStillBeingComposedIsNoText)
{
    int told = 0;
    this->field.OnChange = [&] { ++told; };
    Compose(this->field, u"가"_q);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(this->field.Text(), QString());
}

TYPED_TEST(AnyTextField, EnterBackspaceAndTabComeAsTheirCodes)
{
    QList<int> keys;
    this->field.OnKeyPress = [&](char16_t& key) {
        keys += key;
        key = 0;
    };
    this->field.SetText(u"ab"_q);
    this->field.SetSelStart(2);
    for (const auto key : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Backspace, Qt::Key_Tab})
        QTest::keyClick(&this->field, key);
    EXPECT_EQ(keys, (QList<int>{13, 13, 8, 9}));
    EXPECT_EQ(this->field.Text(), u"ab"_q);
}

TYPED_TEST(AnyTextField, EditingCommandsPassTheFilterUntouched)
{
    int asked = 0;
    this->field.SetText(u"ab"_q);
    this->field.OnKeyPress = [&](char16_t& key) {
        ++asked;
        key = 0;
    };
    QTest::keyClick(&this->field, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&this->field, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QApplication::clipboard()->text(), u"ab"_q);
    PasteText(this->field, u"cd"_q);
    QTest::keyClick(&this->field, Qt::Key_Left);
    EXPECT_EQ(this->field.Text(), u"cd"_q);
    EXPECT_EQ(asked, 0);
}

TYPED_TEST(AnyTextField, ACharacterMadeWithAltGrIsFilteredAsAnyOther)
{
    this->field.OnKeyPress = [](char16_t& key) { key = key == u'@' ? u'X' : u'?'; };
    QKeyEvent press(QEvent::KeyPress, Qt::Key_At, Qt::ControlModifier | Qt::AltModifier, u"@"_q);
    QApplication::sendEvent(&this->field, &press);
    EXPECT_EQ(this->field.Text(), u"X"_q);
}

TYPED_TEST(AnyTextField, EveryReleaseOfAKeyIsTold)
{
    QList<int> released;
    this->field.OnKeyUp = [&](int key, int) { released += key; };
    QTest::keyClick(&this->field, Qt::Key_A);
    QTest::keyClick(&this->field, Qt::Key_Left);
    QTest::keyClick(&this->field, Qt::Key_Shift);
    EXPECT_EQ(released, (QList<int>{Qt::Key_A, Qt::Key_Left, Qt::Key_Shift}));
}

TYPED_TEST(AnyTextField, ItsOwnLimitStopsTypingPasteAndCommit)
{
    this->field.SetMaxLength(3);
    QTest::keyClicks(&this->field, QStringLiteral("abcd"));
    EXPECT_EQ(this->field.Text(), u"abc"_q);
    this->field.SetSelStart(1);
    PasteText(this->field, u"xyz"_q);
    EXPECT_EQ(this->field.Text(), u"abc"_q);
    EXPECT_EQ(this->field.SelStart(), 1);
    this->field.Select(1, 1);
    CommitText(this->field, u"가나"_q);
    EXPECT_EQ(this->field.Text(), u"a가c"_q);
    this->field.SetText(u"12345"_q);
    EXPECT_EQ(this->field.Text(), u"123"_q);
}

TYPED_TEST(AnyTextField, TheSelectionIsToldInCharacters)
{
    this->field.SetText(u"abcdef"_q);
    this->field.Select(1, 3);
    EXPECT_EQ(this->field.SelStart(), 1);
    EXPECT_EQ(this->field.SelLength(), 3);
    EXPECT_EQ(this->field.SelText(), u"bcd"_q);
    this->field.SetSelStart(99);
    EXPECT_EQ(this->field.SelStart(), 6);
    EXPECT_EQ(this->field.SelLength(), 0);
    this->field.SelectAll();
    EXPECT_EQ(this->field.SelLength(), 6);
}

TYPED_TEST(AnyTextField, ATextSetByTheProgramLeavesTheCaretAtItsStart)
{
    this->field.SetText(u"abc"_q);
    EXPECT_EQ(this->field.SelStart(), 0);
}

TYPED_TEST(AnyTextField, BackColorIsTheColourThatWasSet)
{
    this->field.SetBackColor(QColor(144, 215, 250));
    EXPECT_EQ(this->field.BackColor(), QColor(144, 215, 250));
}

/// The longest text that a control has laid out.
class LongestText
{
public:
    explicit LongestText(TextBox& field)
    {
        watch_ = QObject::connect(&field, &QLineEdit::textChanged, &field,
                                  [this](const QString& text) { Note(text.size()); });
    }
    explicit LongestText(MemoBox& field)
    {
        watch_ = QObject::connect(field.document(), &QTextDocument::contentsChange, &field,
                                  [this](int, int, int added) { Note(added); });
    }
    ~LongestText() { QObject::disconnect(watch_); }
    LongestText(const LongestText&) = delete;
    LongestText& operator=(const LongestText&) = delete;

    qsizetype Length() const { return length_; }

private:
    void Note(qsizetype length) { length_ = std::max(length_, length); }

    QMetaObject::Connection watch_;
    qsizetype length_ = 0;
};

void Drop(QWidget& field, const QMimeData& data)
{
    const QPoint place(4, 4);
    QDragEnterEvent enter(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &enter);
    QDropEvent drop(place, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&field, &drop);
}
void DropOn(TextBox& field, const QMimeData& data)
{
    Drop(field, data);
}
void DropOn(MemoBox& field, const QMimeData& data)
{
    Drop(*field.viewport(), data);
}

TYPED_TEST(AnyTextField, AMillionCharactersAreCutBeforeTheyAreLaidOut)
{
    const QString million(1'000'000, u'가');
    QMimeData plain;
    plain.setText(million);
    const auto put = [&](const char* way, const std::function<void()>& act) {
        this->field.SetMaxLength(0);
        this->field.SetText(QString());
        this->field.SetMaxLength(7);
        const LongestText longest(this->field);
        act();
        EXPECT_EQ(this->field.Text(), QString(7, u'가')) << way;
        EXPECT_LE(longest.Length(), MostGiven + 1) << way; // a paragraph's end may count
    };
    put("set by the program", [&] { this->field.SetText(million); });
    put("typed", [&] {
        QKeyEvent key(QEvent::KeyPress, 0, Qt::NoModifier, million);
        QApplication::sendEvent(&this->field, &key);
    });
    put("pasted", [&] { PasteText(this->field, million); });
    put("pasted as rich text", [&] {
        auto* rich = new QMimeData;
        rich->setHtml(u"<b>"_q + million + u"</b>"_q);
        rich->setText(million);
        QApplication::clipboard()->setMimeData(rich);
        QTest::keyClick(&this->field, Qt::Key_V, Qt::ControlModifier);
    });
    put("dropped", [&] { DropOn(this->field, plain); });
    put("committed", [&] {
        Compose(this->field, million);
        QInputMethodEvent commit;
        commit.setCommitString(million);
        QApplication::sendEvent(&this->field, &commit);
    });
}

/// Two fields in a window that the focus can leave for another one.
template <class Field> class FieldFocus : public testing::Test
{
protected:
    FieldFocus()
    {
        window.resize(120, 120);
        first.setGeometry(10, 10, 100, 40);
        second.setGeometry(10, 60, 100, 40);
        Listen(first, u"first"_q);
        Listen(second, u"second"_q);
        Activate(window);
        first.setFocus();
        told.clear();
    }
    void Listen(Field& field, const QString& name)
    {
        field.OnGotFocus = [this, name] { told += u"+"_q + name; };
        field.OnLostFocus = [this, name] { told += u"-"_q + name; };
    }
    static void Activate(QWidget& one)
    {
        one.show();
        one.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&one));
    }

    QWidget window;
    QWidget other;
    Field first{&window, QStringLiteral("first")};
    Field second{&window, QStringLiteral("second")};
    QStringList told;
};

TYPED_TEST_SUITE(FieldFocus, Fields, FieldNames);

TYPED_TEST(FieldFocus, IsToldWhenItMovesWithinTheWindow)
{
    this->second.setFocus();
    this->first.setFocus(Qt::TabFocusReason);
    EXPECT_EQ(this->told, (QStringList{u"-first"_q, u"+second"_q, u"-second"_q, u"+first"_q}));
}

TYPED_TEST(FieldFocus, IsNotToldWhenTheWindowLeavesAndReturns)
{
    for (int i = 0; i < 2; ++i) {
        this->Activate(this->other);
        ASSERT_FALSE(this->first.hasFocus());
        this->Activate(this->window);
        ASSERT_TRUE(this->first.hasFocus());
    }
    EXPECT_EQ(this->told, QStringList());
    this->second.setFocus();
    EXPECT_EQ(this->told, (QStringList{u"-first"_q, u"+second"_q}));
}

TYPED_TEST(FieldFocus, IsToldOnReturnWhenItWasPutElsewhereMeanwhile)
{
    this->Activate(this->other);
    this->second.setFocus();
    EXPECT_EQ(this->told, QStringList());
    this->Activate(this->window);
    ASSERT_TRUE(this->second.hasFocus());
    this->told.sort();
    EXPECT_EQ(this->told, (QStringList{u"+second"_q, u"-first"_q}));
}

TYPED_TEST(FieldFocus, IsNotToldWhenTheMenuOfTheFieldOpensAndCloses)
{
    QTest::mousePress(this->window.windowHandle(), Qt::RightButton, {}, this->first.geometry().center());
    QWidget* menu = QApplication::activePopupWidget();
    ASSERT_NE(menu, nullptr);
    menu->close();
    QTest::mouseRelease(this->window.windowHandle(), Qt::RightButton, {}, this->first.geometry().center());
    EXPECT_EQ(this->told, QStringList());
    this->second.setFocus();
    EXPECT_EQ(this->told, (QStringList{u"-first"_q, u"+second"_q}));
}

TYPED_TEST(FieldFocus, AFieldMayEndWhileItsWindowIsAway)
{
    auto* brief = new TypeParam(&this->window, QStringLiteral("brief"));
    int lost = 0;
    brief->OnLostFocus = [&] { ++lost; };
    brief->show();
    brief->setFocus();
    this->Activate(this->other);
    delete brief;
    this->Activate(this->window);
    EXPECT_EQ(lost, 0);
}

TYPED_TEST(AnyTextField, UndoAndRedoGoByWords)
{
    const auto undo = [this] { QTest::keyClick(&this->field, Qt::Key_Z, Qt::ControlModifier); };
    QTest::keyClicks(&this->field, QStringLiteral("ab cd"));
    CommitText(this->field, u"가"_q);
    CommitText(this->field, u"나"_q);
    undo();
    EXPECT_EQ(this->field.Text(), u"ab "_q);
    EXPECT_EQ(this->field.SelStart(), 3);
    undo();
    EXPECT_EQ(this->field.Text(), QString());
    QTest::keyClick(&this->field, Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(this->field.Text(), u"ab "_q);
    QTest::keyClick(&this->field, Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(this->field.Text(), u"ab cd가나"_q);
}

TYPED_TEST(AnyTextField, UndoIsTold)
{
    QTest::keyClicks(&this->field, QStringLiteral("ab"));
    QStringList told;
    this->field.OnChange = [&] { told += this->field.Text(); };
    this->field.Undo();
    EXPECT_EQ(told, QStringList{QString()});
}

TYPED_TEST(AnyTextField, WhatIsTypedInPlaceOfAMarkedTextIsOneStep)
{
    this->field.SetText(u"02-1234"_q);
    this->field.SelectAll();
    QTest::keyClicks(&this->field, QStringLiteral("0255")); // begins as the text did
    this->field.Undo();
    EXPECT_EQ(this->field.Text(), u"02-1234"_q);
}

TYPED_TEST(AnyTextField, APasteIsAStepAndWhatWasRefusedIsNone)
{
    this->field.SetMaxLength(5);
    QTest::keyClicks(&this->field, QStringLiteral("ab"));
    PasteText(this->field, u"cdefgh"_q);
    PasteText(this->field, u"x"_q);
    ASSERT_EQ(this->field.Text(), u"abcde"_q);
    this->field.Undo();
    EXPECT_EQ(this->field.Text(), u"ab"_q);
}

TYPED_TEST(AnyTextField, ATextThatWasChosenIsOneStepAndBringsItsTagBack)
{
    QTest::keyClicks(&this->field, QStringLiteral("two words"));
    this->field.Tag = u"typed"_q;
    this->field.PutText(u"chosen text"_q);
    this->field.Tag = u"chosen"_q;
    EXPECT_EQ(this->field.SelStart(), 0);
    this->field.Undo();
    EXPECT_EQ(this->field.Text(), u"two words"_q);
    EXPECT_EQ(this->field.Tag, u"typed"_q);
    this->field.Redo();
    EXPECT_EQ(this->field.Text(), u"chosen text"_q);
    EXPECT_EQ(this->field.Tag, u"chosen"_q);
}

TYPED_TEST(AnyTextField, ASyllableUnderWayBelongsToTheTextThatIsReplaced)
{
    QTest::keyClicks(&this->field, QStringLiteral("a"));
    Compose(this->field, u"가"_q);
    this->field.PutText(u"chosen"_q);
    EXPECT_EQ(this->field.Text(), u"chosen"_q);
    this->field.Undo();
    EXPECT_EQ(this->field.Text(), u"a가"_q);
}

TYPED_TEST(AnyTextField, WhatTheProgramSetIsNotTakenBack)
{
    QTest::keyClicks(&this->field, QStringLiteral("typed"));
    this->field.SetText(u"set"_q);
    this->field.Undo();
    EXPECT_EQ(this->field.Text(), u"set"_q);
}

TYPED_TEST(AnyTextField, ItsMenuTakesBackAndDoesAgain)
{
    this->field.show();
    const auto choose = [this](int entry) {
        QContextMenuEvent ask(QContextMenuEvent::Keyboard, QPoint(2, 2), QPoint(2, 2));
        QApplication::sendEvent(&this->field, &ask);
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        ASSERT_NE(menu, nullptr);
        EXPECT_TRUE(menu->actions().at(entry)->isEnabled());
        EXPECT_FALSE(menu->actions().at(1 - entry)->isEnabled());
        menu->actions().at(entry)->trigger();
        menu->close();
    };
    QTest::keyClicks(&this->field, QStringLiteral("ab"));
    choose(0);
    EXPECT_EQ(this->field.Text(), QString());
    choose(1);
    EXPECT_EQ(this->field.Text(), u"ab"_q);
}

/// A box that marks its text when it gains the focus, beside another one.
class MarkingBox : public FieldFocus<TextBox>
{
protected:
    void SetUp() override
    {
        second.SetText(u"0212345678"_q);
        second.OnGotFocus = [this] { second.SelectAll(); };
    }
    QPoint In(int x) const { return {x, second.height() / 2}; }
};

TEST_F(MarkingBox, KeepsTheMarkOfTheClickThatBringsTheFocus)
{
    QTest::mousePress(&second, Qt::LeftButton, {}, In(30));
    QTest::mouseMove(&second, In(32)); // no hand holds still
    QTest::mouseRelease(&second, Qt::LeftButton, {}, In(32));
    EXPECT_EQ(second.SelText(), u"0212345678"_q);
    QTest::keyClick(&second, Qt::Key_7);
    EXPECT_EQ(second.Text(), u"7"_q);
}

TEST_F(MarkingBox, TheNextClickSetsTheCaret)
{
    QTest::mouseClick(&second, Qt::LeftButton, {}, In(30));
    QTest::mouseClick(&second, Qt::LeftButton, {}, In(2));
    EXPECT_EQ(second.SelLength(), 0);
    EXPECT_EQ(second.SelStart(), 0);
}

TEST_F(MarkingBox, APartCanBeMarkedByDraggingAtOnce)
{
    QTest::mousePress(&second, Qt::LeftButton, {}, In(2));
    QTest::mouseMove(&second, In(2 + second.fontMetrics().horizontalAdvance(u"0212"_q)));
    QTest::mouseRelease(&second, Qt::LeftButton, {},
                        In(2 + second.fontMetrics().horizontalAdvance(u"0212"_q)));
    EXPECT_TRUE(u"0212345678"_q.startsWith(second.SelText()));
    EXPECT_GT(second.SelLength(), 0);
    EXPECT_LT(second.SelLength(), 10);
}

TEST(TextBox, OfAPastedTextItTakesTheFirstLine)
{
    TextBox field;
    field.SetText(u"ab"_q);
    field.SetSelStart(1);
    PasteText(field, u"12\n34"_q);
    EXPECT_EQ(field.Text(), u"a12b"_q);
    EXPECT_EQ(field.SelStart(), 3);
}

TEST(MemoBox, EnterMakesALineBreakOfTwoCharacters)
{
    MemoBox field;
    QTest::keyClicks(&field, QStringLiteral("a"));
    QTest::keyClick(&field, Qt::Key_Return);
    QTest::keyClicks(&field, QStringLiteral("b"));
    EXPECT_EQ(field.Text(), u"a\r\nb"_q);
    EXPECT_EQ(field.SelStart(), 4);
}

TEST(MemoBox, ShiftAndEnterMakeTheSameLineBreak)
{
    MemoBox field;
    QTest::keyClick(&field, Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(field.Text(), u"\r\n"_q);
}

TEST(MemoBox, LineBreaksOfEveryKindComeOutAsCrLf)
{
    MemoBox field;
    field.SetText(u"a\r\nb\nc"_q);
    EXPECT_EQ(field.Text(), u"a\r\nb\r\nc"_q);
    field.SetText(QString());
    PasteText(field, QStringLiteral("a\nb") + QChar(QChar::LineSeparator) + QStringLiteral("c"));
    EXPECT_EQ(field.Text(), u"a\r\nb\r\nc"_q);
}

TEST(MemoBox, ANoBreakBlankStaysWhatItIs)
{
    MemoBox field;
    field.SetText(u"a\u00A0b"_q);
    EXPECT_EQ(field.Text(), u"a\u00A0b"_q);
}

struct PositionRow
{
    int set;
    int read;
};

class MemoPositions : public testing::TestWithParam<PositionRow>
{
};

TEST_P(MemoPositions, CountALineBreakAsTwo)
{
    MemoBox field;
    field.SetText(u"ab\r\n\r\ncd"_q);
    field.SetSelStart(GetParam().set);
    EXPECT_EQ(field.SelStart(), GetParam().read);
}

// A position inside of a line break is the one before it.
INSTANTIATE_TEST_SUITE_P(Rows, MemoPositions,
                         testing::Values(PositionRow{0, 0}, PositionRow{2, 2}, PositionRow{4, 4},
                                         PositionRow{6, 6}, PositionRow{7, 7}, PositionRow{8, 8},
                                         PositionRow{99, 8}, PositionRow{-1, 0}));

TEST(MemoBox, ASelectionOverALineBreakCountsItAsTwo)
{
    MemoBox field;
    field.SetText(u"ab\r\ncd"_q);
    field.Select(1, 4);
    EXPECT_EQ(field.SelLength(), 4);
    EXPECT_EQ(field.SelText(), u"b\r\nc"_q);
}

TEST(MemoBox, TabLeavesIt)
{
    QWidget window;
    auto* first = new MemoBox(&window, u"first"_q);
    auto* second = new TextBox(&window, u"second"_q);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    first->setFocus();
    QTest::keyClick(first, Qt::Key_Tab);
    EXPECT_TRUE(second->hasFocus());
    EXPECT_EQ(first->Text(), QString());
}

TEST(MemoBox, TheCaretStaysInViewWhileLinesAreAdded)
{
    MemoBox field;
    field.resize(120, 60);
    field.show();
    for (int i = 0; i < 20; ++i) {
        QTest::keyClick(&field, Qt::Key_Return);
        ASSERT_TRUE(field.viewport()->rect().contains(field.cursorRect().center())) << i;
    }
    PasteText(field, u"a\nb\nc\nd\ne"_q);
    EXPECT_TRUE(field.viewport()->rect().contains(field.cursorRect().center()));
}

TEST(MemoBox, WhatAnInputMethodCommitsCountsAsAReleasedKey)
{
    MemoBox field;
    QStringList told;
    field.OnKeyUp = [&](int key, int shift) {
        EXPECT_EQ(key, 0);
        EXPECT_EQ(shift, 0);
        told += field.Text();
    };
    Compose(field, u"가"_q);
    EXPECT_EQ(told, QStringList());
    CommitText(field, u"가"_q);
    EXPECT_EQ(told, QStringList{u"가"_q});
}

} // namespace
