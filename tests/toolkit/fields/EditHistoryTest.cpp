#include "toolkit/fields/EditHistory.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class EditHistoryTest : public testing::Test
{
protected:
    /// Keys that lead to `text`, with the caret at `caret`.
    void Key(const QString& text, qsizetype caret, bool overSelection = false)
    {
        moment += 100;
        history.AddKeys({now, QString()}, text, caret, overSelection, moment);
        now = text;
        history.Rest(caret);
    }
    void Type(const QString& keys)
    {
        for (const QChar key : keys)
            Key(now + key, now.size() + 1);
    }
    void Step(const QString& text)
    {
        history.AddStep({now, QString()});
        now = text;
        history.Rest(text.size());
    }
    /// Everything that stood there, taken back to the first.
    QStringList TakeAllBack()
    {
        QStringList texts;
        while (const auto held = history.Undo({now, QString()})) {
            texts += held->text;
            now = held->text;
        }
        return texts;
    }

    EditHistory history;
    QString now;
    qint64 moment = 5000;
};

TEST_F(EditHistoryTest, WordsAreTakenBackOneByOne)
{
    Type(u"안녕 하세요 ab"_q);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"안녕 하세요 "_q, u"안녕 "_q, QString()}));
}

TEST_F(EditHistoryTest, APauseOfASecondBeginsAStep)
{
    Type(u"안녕"_q);
    moment += 899; // and the key's own hundred
    Type(u"하세요"_q);
    moment += 900;
    Type(u"여러분"_q);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"안녕하세요"_q, QString()}));
}

TEST_F(EditHistoryTest, APauseDividesWhatIsRemovedToo)
{
    Type(u"abcd"_q);
    Key(u"abc"_q, 3);
    moment += 900;
    Key(u"ab"_q, 2);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"abc"_q, u"abcd"_q, QString()}));
}

TEST_F(EditHistoryTest, TypingElsewhereBeginsAStep)
{
    Type(u"ac"_q);
    Key(u"abc"_q, 2);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"ac"_q, QString()}));
}

TEST_F(EditHistoryTest, ARunOfRemovedCharactersIsOneStep)
{
    Step(u"abcd"_q);
    Key(u"abc"_q, 3);
    Key(u"ab"_q, 2);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"abcd"_q, QString()}));
}

TEST_F(EditHistoryTest, SoIsARunRemovedForwards)
{
    Step(u"abcd"_q);
    Key(u"bcd"_q, 0);
    Key(u"cd"_q, 0);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"abcd"_q, QString()}));
}

TEST_F(EditHistoryTest, WhatIsTypedOverASelectionIsOneStepWithIt)
{
    Step(u"abcd"_q);
    Key(u"ad"_q, 1, true); // over "abc"
    Key(u"ayd"_q, 2);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"abcd"_q, QString()}));
}

TEST_F(EditHistoryTest, AStepOfItsOwnIsJoinedByNothing)
{
    Type(u"ab"_q);
    Step(u"abPASTED"_q);
    Type(u"cd"_q);
    EXPECT_EQ(TakeAllBack(), (QStringList{u"abPASTED"_q, u"ab"_q, QString()}));
}

TEST_F(EditHistoryTest, WhatWasTakenBackCanBeDoneAgainUntilSomethingElseIsDone)
{
    Type(u"a b"_q);
    EXPECT_EQ(history.Undo({u"a b"_q, u"key"_q}), (HeldText{u"a "_q, QString()}));
    EXPECT_EQ(history.Redo({u"a "_q, QString()}), (HeldText{u"a b"_q, u"key"_q}));
    history.Undo({u"a b"_q, QString()});
    history.AddStep({u"a "_q, QString()});
    EXPECT_FALSE(history.CanRedo());
    EXPECT_EQ(history.Redo({u"c"_q, QString()}), std::nullopt);
}

TEST_F(EditHistoryTest, TwoHundredStepsAreKept)
{
    for (int i = 1; i <= 300; ++i)
        Step(QString::number(i));
    EXPECT_EQ(TakeAllBack().size(), 200);
}

} // namespace
