#include "toolkit/fields/Composition.h"

#include "support/Words.h"

#include <QInputMethodEvent>
#include <QKeyEvent>

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

class InputEvents : public ::testing::Test
{
protected:
    bool Composed(const QString& text) { return composition.Withholds(QInputMethodEvent(text, {})); }
    bool Committed(const QString& text)
    {
        QInputMethodEvent event;
        event.setCommitString(text);
        return composition.Withholds(event);
    }
    bool Pressed() { return composition.Withholds(QKeyEvent(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier)); }

    Composition composition;
};

TEST_F(InputEvents, TheSameTextOnceMoreAfterACompositionEndedIsAnEcho)
{
    EXPECT_FALSE(Composed(u"녀"_q));
    EXPECT_FALSE(Composed(u"녕"_q));
    EXPECT_FALSE(Committed(u"녕"_q));
    EXPECT_TRUE(Committed(u"녕"_q));
}

TEST_F(InputEvents, AnEchoIsOneWhenTheCompositionWasClearedInBetween)
{
    Composed(u"녕"_q);
    Committed(u"녕"_q);
    EXPECT_FALSE(Composed(QString()));
    EXPECT_TRUE(Committed(u"녕"_q));
}

TEST_F(InputEvents, ThereIsOneEchoAndNoSecond)
{
    Composed(u"녕"_q);
    Committed(u"녕"_q);
    EXPECT_TRUE(Committed(u"녕"_q));
    EXPECT_FALSE(Committed(u"녕"_q));
}

TEST_F(InputEvents, AnotherTextIsNoEcho)
{
    Composed(u"녕"_q);
    Committed(u"녕"_q);
    EXPECT_FALSE(Committed(u"하"_q));
    EXPECT_FALSE(Committed(u"녕"_q));
}

TEST_F(InputEvents, ASyllableThatIsComposedAgainIsNoEcho)
{
    for (int i = 0; i < 3; ++i) {
        EXPECT_FALSE(Composed(u"하"_q));
        EXPECT_FALSE(Committed(u"하"_q));
    }
}

TEST_F(InputEvents, WhatComesBehindAKeyIsNoEcho)
{
    Composed(u"녕"_q);
    Committed(u"녕"_q);
    EXPECT_FALSE(Pressed());
    EXPECT_FALSE(Committed(u"녕"_q));
}

TEST_F(InputEvents, WhatIsCommittedWithoutACompositionMayComeTwice)
{
    EXPECT_FALSE(Committed(u"♥"_q));
    EXPECT_FALSE(Committed(u"♥"_q));
}

} // namespace
