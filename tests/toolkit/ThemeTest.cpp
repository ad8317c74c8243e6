#include "toolkit/Theme.h"

#include "support/Words.h"

#include <QApplication>
#include <QDialog>
#include <QLineEdit>
#include <QProxyStyle>
#include <QPushButton>
#include <QScrollBar>
#include <QStyleOption>

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
    const auto* style = qobject_cast<QProxyStyle*>(QApplication::style());
    ASSERT_NE(style, nullptr);
    EXPECT_EQ(style->baseStyle()->name(), u"fusion"_q);
}

class StyledControls : public ::testing::Test
{
protected:
    StyledControls() { theme::ApplyTheme(*static_cast<QApplication*>(QCoreApplication::instance())); }

    static QColor ColorAt(QWidget& widget, QPoint place) { return widget.grab().toImage().pixelColor(place); }
};

TEST_F(StyledControls, APasswordIsShownAsStars)
{
    QLineEdit line;
    line.setEchoMode(QLineEdit::Password);
    line.setText(u"secret"_q);
    EXPECT_EQ(line.displayText(), u"******"_q);
}

TEST_F(StyledControls, TheSignsOfBoxesAreOurOwnAndCrispAtTwiceTheSize)
{
    const QStyle& style = *QApplication::style();
    for (const auto sign : {QStyle::SP_MessageBoxCritical, QStyle::SP_MessageBoxQuestion,
                            QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxInformation}) {
        const QPixmap picture = style.standardIcon(sign).pixmap(QSize(36, 36), 2.0);
        EXPECT_EQ(picture.size(), QSize(72, 72));
        EXPECT_EQ(picture.toImage().pixelColor(36, 14).alpha(), 255);
        EXPECT_EQ(picture.toImage().pixelColor(0, 0).alpha(), 0);
    }
}

TEST_F(StyledControls, TheDefaultButtonOfABoxHasTheAccentAndTheOthersThePlainFace)
{
    QDialog dialog;
    QPushButton yes(u"예"_q, &dialog);
    QPushButton no(u"아니요"_q, &dialog);
    yes.setDefault(true);
    no.setAutoDefault(false);
    yes.resize(80, 28);
    no.resize(80, 28);
    EXPECT_EQ(ColorAt(yes, {10, 14}), theme::Accent);
    EXPECT_EQ(ColorAt(no, {10, 14}), theme::ButtonFace);
    no.setDown(true);
    EXPECT_EQ(ColorAt(no, {10, 14}).rgb(), theme::Pressed(theme::ButtonFace).rgb());
    yes.setEnabled(false);
    EXPECT_EQ(ColorAt(yes, {10, 14}), theme::Ground);
}

TEST_F(StyledControls, TheHandleOfAScrollBarIsDarkerThanItsTrough)
{
    for (const Qt::Orientation orientation : {Qt::Vertical, Qt::Horizontal}) {
        QScrollBar bar(orientation);
        bar.setRange(0, 100);
        bar.setPageStep(100);
        const bool upright = orientation == Qt::Vertical;
        const int across = bar.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
        bar.resize(upright ? QSize(across, 200) : QSize(200, across));
        const auto at = [&](int along) {
            return ColorAt(bar, upright ? QPoint(across / 2, along) : QPoint(along, across / 2));
        };
        EXPECT_EQ(at(50), theme::Handle);
        EXPECT_EQ(at(150), theme::Ground);
        bar.setValue(100);
        EXPECT_EQ(at(50), theme::Ground);
        EXPECT_EQ(at(150), theme::Handle);
    }
    EXPECT_GE(Contrast(theme::Handle, theme::Ground), 3);
}

TEST_F(StyledControls, AScrollBarWithNothingToScrollHasNoHandle)
{
    QScrollBar bar(Qt::Vertical);
    bar.setRange(0, 0);
    bar.resize(14, 200);
    EXPECT_EQ(ColorAt(bar, {7, 100}), theme::Ground);
}

} // namespace
