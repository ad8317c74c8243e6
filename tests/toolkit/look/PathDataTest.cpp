#include "toolkit/look/PathData.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace tsms;

namespace {

/// What describes the same outline at length, in capital letters.
QPainterPath Outline(QStringView data)
{
    return PathOfData(data).value_or(QPainterPath());
}

} // namespace

TEST(PathDataTest, ASmallLetterCountsFromTheLastPoint)
{
    EXPECT_EQ(Outline(u"m2 3l4 5h6v-7z"), Outline(u"M2 3L6 8H12V1Z"));
}

TEST(PathDataTest, ALetterStandsOnceForSeveralPoints)
{
    EXPECT_EQ(Outline(u"M1 1 2 5 3 1"), Outline(u"M1 1L2 5L3 1"));
}

TEST(PathDataTest, ASignAndASecondPointBeginANumber)
{
    EXPECT_EQ(Outline(u"M1.5.5l-2-.25.5,3"), Outline(u"M 1.5 0.5 l -2 -0.25 l 0.5 3"));
}

TEST(PathDataTest, ASmoothCurveMirrorsTheHandleOfTheCurveBefore)
{
    EXPECT_EQ(Outline(u"M0 0C0 5 4 9 9 9S18 5 18 0"), Outline(u"M0 0C0 5 4 9 9 9C14 9 18 5 18 0"));
    EXPECT_EQ(Outline(u"M0 0L9 9S18 5 18 0"), Outline(u"M0 0L9 9C9 9 18 5 18 0"));
}

TEST(PathDataTest, AnArcIsOneOfFour)
{
    const auto middle = [](QStringView data) { return Outline(data).pointAtPercent(0.5); };
    const double far = 1 + std::sqrt(2) / 2; // of the circle's centre, and the radius beyond it
    const double near = 1 - std::sqrt(2) / 2;
    const auto isNear = [](QPointF point, double place) {
        return std::hypot(point.x() - place, point.y() - place) < 0.001;
    };
    EXPECT_TRUE(isNear(middle(u"M0 1A1 1 0 0 0 1 0"), std::sqrt(2) / 2));
    EXPECT_TRUE(isNear(middle(u"M0 1A1 1 0 0 1 1 0"), near));
    EXPECT_TRUE(isNear(middle(u"M0 1A1 1 0 1 0 1 0"), far));
    EXPECT_TRUE(isNear(middle(u"M0 1A1 1 0 1 1 1 0"), -std::sqrt(2) / 2));
}

TEST(PathDataTest, AnArcOfASmallCircleIsHalfOfOneThatReaches)
{
    EXPECT_EQ(Outline(u"M0 0A1 1 0 0 1 8 0"), Outline(u"M0 0A4 4 0 0 1 8 0"));
}

TEST(PathDataTest, WhatIsNotKnownGivesNothing)
{
    for (const QStringView data : {u"M0 0Q1 1 2 2", u"M0 0L1", u"M0 0A1 2 0 0 0 1 1", u"M0 0A1 1 9 0 0 1 1",
                                   u"M0 0A1 1 0 0 0 0 0", u"M0 0L1 1Z2 2", u"0 0", u"M0 0L1 x"})
        EXPECT_FALSE(PathOfData(data)) << qPrintable(data.toString());
}
