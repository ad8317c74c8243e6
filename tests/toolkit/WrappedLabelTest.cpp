#include "toolkit/WrappedLabel.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QImage>
#include <QPixmap>

using namespace tsms;
using namespace tsms::test;

namespace {

class WrappedLabelTest : public ::testing::Test
{
protected:
    int Lines(const QString& caption, int width)
    {
        label.SetCaption(caption);
        return qRound(double(label.heightForWidth(width)) / label.fontMetrics().height());
    }
    /// Where the label, drawn in white on black, has a pixel of its words.
    QRect Drawn(QSize size)
    {
        label.SetBackColor(Qt::black);
        label.SetTextColor(Qt::white);
        label.resize(size);
        const QImage picture = label.grab().toImage();
        QRect drawn;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                if (qGray(picture.pixel(x, y)) > 100)
                    drawn |= QRect(x, y, 1, 1);
        return drawn;
    }

    WrappedLabel label{nullptr, u"Label1(0)"_q};
};

TEST_F(WrappedLabelTest, AWordThatIsTooWideGoesOnInTheNextLine)
{
    const int wide = label.fontMetrics().horizontalAdvance(QString(10, u'w')) + 2;
    EXPECT_EQ(Lines(QString(10, u'w'), wide), 1);
    EXPECT_EQ(Lines(QString(30, u'w'), wide), 3);
}

TEST_F(WrappedLabelTest, WordsGoOnBetweenThem)
{
    const int wide = label.fontMetrics().horizontalAdvance(u"wwwwww"_q) + 2;
    EXPECT_EQ(Lines(u"wwww wwww"_q, wide), 2);
}

TEST_F(WrappedLabelTest, EachLineBreakOfTheCaptionBeginsALine)
{
    EXPECT_EQ(Lines(u"가\r\n나\r\n\r\n라"_q, 200), 4);
    EXPECT_EQ(label.Caption(), u"가\r\n나\r\n\r\n라"_q);
}

TEST_F(WrappedLabelTest, TheMarginsAreLeftFree)
{
    label.setContentsMargins(12, 10, 12, 10);
    label.SetCaption(QString(40, u'W'));
    const QSize size(120, label.heightForWidth(120));
    const QRect drawn = Drawn(size);
    EXPECT_FALSE(drawn.isEmpty());
    EXPECT_TRUE(QRect(QPoint(), size).adjusted(12, 10, -12, -10).contains(drawn));
    EXPECT_GT(drawn.height(), size.height() / 2); // in several lines
}

TEST_F(WrappedLabelTest, ItsColourIsThatOfItsText)
{
    label.SetCaption(u"WWWW"_q);
    EXPECT_FALSE(Drawn({120, 30}).isEmpty());
}

TEST_F(WrappedLabelTest, SignsOfMarkupAreShownAsTheyAre)
{
    EXPECT_EQ(Lines(u"<br><br><br>"_q, 500), 1);
}

} // namespace
