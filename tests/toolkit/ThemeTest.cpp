#include "toolkit/Theme.h"

#include "support/Words.h"

#include <QApplication>
#include <QStyle>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

using namespace tsms;
using namespace tsms::test;

namespace {

double Luminance(const QColor& color)
{
    const auto linear = [](double c) {
        return c <= 0.03928 ? c / 12.92 : std::pow((c + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double light = std::max(Luminance(a), Luminance(b));
    const double dark = std::min(Luminance(a), Luminance(b));
    return (light + 0.05) / (dark + 0.05);
}

TEST(Theme, WordsStandOutFromWhatTheyStandOn)
{
    using namespace theme;
    const std::pair<QColor, QColor> pairs[] = {{Text, Page},  {Text, Ground},     {Text, Phone},
                                               {Text, Focus}, {StripText, Strip}, {White, Accent},
                                               {Faint, Page}, {Text, ButtonFace}, {White, Warning}};
    for (const auto& [words, ground] : pairs)
        EXPECT_GE(Contrast(words, ground), 4.5) << words.name().toStdString() << ground.name().toStdString();
}

TEST(Theme, AFaceUnderTheMouseAndPressedLooksDifferent)
{
    for (const QColor& face : {theme::ButtonFace, theme::Accent, theme::Strip}) {
        EXPECT_NE(theme::Hovered(face), face);
        EXPECT_NE(theme::Pressed(face), face);
        EXPECT_NE(theme::Pressed(face), theme::Hovered(face));
    }
}

TEST(Theme, TheFontsAreTriedInOrder)
{
    EXPECT_EQ(theme::Font().families(),
              (QStringList{u"굴림"_q, u"Gulim"_q, u"NanumGothic"_q, u"Noto Sans CJK KR"_q}));
    EXPECT_EQ(theme::Font().pointSize(), 9);
}

TEST(Theme, ItIsAppliedWithoutAStyleSheet)
{
    auto& application = *static_cast<QApplication*>(QCoreApplication::instance());
    theme::ApplyTheme(application);
    EXPECT_EQ(application.styleSheet(), QString());
    EXPECT_EQ(QApplication::palette().color(QPalette::Base), theme::White);
    EXPECT_EQ(QApplication::style()->name(), u"fusion"_q);
}

} // namespace
