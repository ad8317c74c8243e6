#include "toolkit/fields/WrappedLabel.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QImage>
#include <QMenu>
#include <QPixmap>
#include <QTest>

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

    /// Shows the words in one line that begins at the left.
    static void ShowWords(WrappedLabel& of, const QString& words, int top = 0)
    {
        of.SetCaption(words);
        of.setGeometry(0, top, 200, 30);
        of.show();
    }
    /// Between that many characters and the rest.
    static QPoint Behind(const WrappedLabel& of, int characters)
    {
        return QPoint(of.fontMetrics().horizontalAdvance(of.text().left(characters)), 8);
    }
    static void Drag(WrappedLabel& of, int from, int to)
    {
        QTest::mousePress(&of, Qt::LeftButton, {}, Behind(of, from));
        QTest::mouseMove(&of, Behind(of, to));
        QTest::mouseRelease(&of, Qt::LeftButton, {}, Behind(of, to));
    }
    static void Choose(WrappedLabel& of, const QString& entry)
    {
        QContextMenuEvent ask(QContextMenuEvent::Mouse, QPoint(2, 2), of.mapToGlobal(QPoint(2, 2)));
        QCoreApplication::sendEvent(&of, &ask);
        auto* menu = of.findChild<QMenu*>();
        ASSERT_NE(menu, nullptr);
        for (QAction* action : menu->actions())
            if (action->text() == entry && action->isEnabled())
                action->trigger();
        delete menu;
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

TEST_F(WrappedLabelTest, ADragSelectsTheWordsUnderItInEitherDirection)
{
    ShowWords(label, u"010-1234-5678"_q);
    Drag(label, 4, 8);
    EXPECT_EQ(label.SelectedText(), u"1234"_q);
    Drag(label, 13, 9);
    EXPECT_EQ(label.SelectedText(), u"5678"_q);
}

TEST_F(WrappedLabelTest, ADoubleClickSelectsAWord)
{
    ShowWords(label, u"가나 다라마 바"_q);
    QTest::mouseDClick(&label, Qt::LeftButton, {}, Behind(label, 4));
    EXPECT_EQ(label.SelectedText(), u"다라마"_q);
}

TEST_F(WrappedLabelTest, WhatIsSelectedIsSeen)
{
    ShowWords(label, u"가나다라"_q);
    const QImage before = label.grab().toImage();
    Drag(label, 0, 2);
    EXPECT_NE(label.grab().toImage(), before);
    Drag(label, 1, 1);
    EXPECT_EQ(label.grab().toImage(), before);
}

TEST_F(WrappedLabelTest, ItsMenuCopies)
{
    QApplication::clipboard()->setText(u"before"_q);
    ShowWords(label, u"내일 뵙겠습니다"_q);
    Choose(label, u"복사"_q);
    EXPECT_EQ(QApplication::clipboard()->text(), u"before"_q);
    Choose(label, u"모두 선택"_q);
    Choose(label, u"복사"_q);
    EXPECT_EQ(QApplication::clipboard()->text(), u"내일 뵙겠습니다"_q);
}

TEST_F(WrappedLabelTest, OneLabelOfAWindowHasTheSelection)
{
    QWidget window;
    WrappedLabel first(&window, u"LblSendSMS(0)"_q);
    WrappedLabel second(&window, u"LblSendSMS(1)"_q);
    ShowWords(first, u"가나다라"_q);
    ShowWords(second, u"마바사아"_q, 40);
    window.show();
    Drag(first, 0, 2);
    EXPECT_EQ(WrappedLabel::SelectedIn(window), u"가나"_q);
    Drag(second, 1, 3);
    EXPECT_EQ(WrappedLabel::SelectedIn(window), u"바사"_q);
    EXPECT_EQ(first.SelectedText(), QString());
}

TEST_F(WrappedLabelTest, AShorterCaptionEndsTheSelectionWithItself)
{
    ShowWords(label, u"가나다라마바"_q);
    Drag(label, 1, 6);
    label.SetCaption(u"가나"_q);
    EXPECT_EQ(label.SelectedText(), u"나"_q);
    EXPECT_FALSE(label.grab().isNull());
}

} // namespace
