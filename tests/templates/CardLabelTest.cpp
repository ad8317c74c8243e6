#include "templates/CardLabel.h"
#include "support/Words.h"
#include "toolkit/fields/LimitRule.h"
#include "toolkit/look/Fonts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFontMetrics>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr int Width = 120;
constexpr int Plenty = 1000;

QStringList Lines(const QString& text, int most = Plenty)
{
    return WrapText(text, theme::Font(), Width, most).lines;
}

TEST(WrapText, KeepsLineBreaksAndEmptyLines)
{
    EXPECT_EQ(Lines(u"첫째\n\n셋째\n"_q), QStringList({u"첫째"_q, u""_q, u"셋째"_q, u""_q}));
}

TEST(WrapText, AnEmptyTextIsOneEmptyLine)
{
    EXPECT_EQ(Lines(QString()), QStringList{QString()});
}

TEST(WrapText, NoLineIsWiderThanItsPlaceAndNothingIsLost)
{
    const QFontMetrics metrics(theme::Font());
    for (const QString& text : {u"[받는사람]님, 이번 주 토요일 오후 2시 정기 모임에 꼭 와 주세요."_q,
                                QString(160, u'가'), QString(160, u'W'), u"짧음"_q}) {
        const QStringList lines = Lines(text);
        EXPECT_EQ(lines.join(QString()), text);
        for (QString line : lines) {
            while (line.endsWith(u' ')) // blanks at the end of a line hang over
                line.chop(1);
            EXPECT_LE(metrics.horizontalAdvance(line), Width) << line.toStdString();
        }
    }
}

TEST(WrapText, BreaksBetweenWordsWhereItCan)
{
    for (const QString& line : Lines(u"one two three four five six seven eight nine ten eleven twelve"_q))
        EXPECT_TRUE(u"one two three four five six seven eight nine ten eleven twelve "_q.contains(
            line.trimmed() + u' '))
            << line.toStdString();
}

TEST(WrapText, EndsACutTextWithItsSign)
{
    const WrappedText wrapped = WrapText(u"하나\n둘\n셋"_q, theme::Font(), Width, 2);
    EXPECT_TRUE(wrapped.cut);
    EXPECT_EQ(wrapped.lines, QStringList({u"하나"_q, u"둘…"_q}));
}

TEST(WrapText, ACutFullLineMakesRoomForTheSign)
{
    const WrappedText wrapped = WrapText(QString(160, u'가'), theme::Font(), Width, 3);
    ASSERT_EQ(wrapped.lines.size(), 3);
    EXPECT_TRUE(wrapped.lines.last().endsWith(u'…'));
    EXPECT_LE(QFontMetrics(theme::Font()).horizontalAdvance(wrapped.lines.last()), Width);
}

TEST(WrapText, ACutLineIsFullAndDoesNotEndBehindItsLastWholeWord)
{
    const QString title = u"긴 "_q + QString(30, u'가');
    const WrappedText wrapped = WrapText(title, theme::Font(), Width, 1);
    EXPECT_TRUE(wrapped.cut);
    EXPECT_TRUE(wrapped.lines.first().startsWith(u"긴 가가"_q)) << wrapped.lines.first().toStdString();
    EXPECT_TRUE(wrapped.lines.first().endsWith(u'…'));
}

TEST(WrapText, ATextThatJustFitsIsNotCut)
{
    const WrappedText wrapped = WrapText(u"하나\n둘"_q, theme::Font(), Width, 2);
    EXPECT_FALSE(wrapped.cut);
    EXPECT_EQ(wrapped.lines.last(), u"둘"_q);
}

class CardLabelTest : public ::testing::Test
{
protected:
    CardLabelTest()
    {
        label.setFont(theme::Font());
        label.resize(Width, 100);
        label.show();
    }

    QString ToolTip()
    {
        QToolTip::hideText(); // soon
        EXPECT_TRUE(QTest::qWaitFor([] { return !QToolTip::isVisible(); }));
        QHelpEvent event(QEvent::ToolTip, QPoint(5, 5), label.mapToGlobal(QPoint(5, 5)));
        QApplication::sendEvent(&label, &event);
        return QToolTip::isVisible() ? QToolTip::text() : QString();
    }

    CardLabel label{nullptr, u"LblTmpContent(1)"_q};
};

TEST_F(CardLabelTest, ACutCaptionIsWholeInItsToolTip)
{
    label.SetCaption(u"<b> & 첫째\r\n"_q + QString(160, u'가') + u"끝"_q);
    EXPECT_TRUE(label.Shown().cut);
    const QString words = ToolTip();
    EXPECT_TRUE(words.contains(u"&lt;b&gt; &amp; 첫째\n"_q)) << words.toStdString();
    EXPECT_TRUE(words.contains(QString(160, u'가') + u"끝"_q));
}

TEST_F(CardLabelTest, OfAMillionCharactersTheToolTipTakesABeginning)
{
    label.SetCaption(QString(1'000'000, u'가'));
    EXPECT_TRUE(label.Shown().cut);
    EXPECT_EQ(ToolTip().count(u'가'), MostGiven);
}

TEST_F(CardLabelTest, ACaptionThatIsWholeHasNoToolTip)
{
    label.SetCaption(u"첫째\r\n둘째"_q);
    EXPECT_FALSE(label.Shown().cut);
    EXPECT_EQ(ToolTip(), QString());
}

TEST_F(CardLabelTest, ALineOnTheLabelIsALineOfTheCaption)
{
    label.SetCaption(u"첫째\r\n\r\n셋째"_q);
    EXPECT_EQ(label.Shown().lines, QStringList({u"첫째"_q, QString(), u"셋째"_q}));
}

} // namespace
