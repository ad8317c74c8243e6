#include "toolkit/look/VectorPicture.h"

#include "toolkit/look/Pictures.h"

#include <QDir>
#include <QImage>
#include <QPainter>
#include <QTemporaryFile>

#include <gtest/gtest.h>

using namespace tsms;

namespace {

VectorPicture PictureOfText(const QByteArray& text)
{
    QTemporaryFile file;
    EXPECT_TRUE(file.open());
    file.write(text);
    file.close();
    return VectorPicture(file.fileName());
}

/// The picture of elements in a view of 10 by 10, a pixel a unit.
QImage Drawn(const QByteArray& elements)
{
    QImage image(10, 10, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PictureOfText("<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 10 10\">" + elements + "</svg>")
        .Draw(painter, image.rect());
    return image;
}

} // namespace

TEST(VectorPictureTest, EveryPictureOfTheProgramIsUnderstood)
{
    PictureIcon(QStringLiteral("program")).isNull(); // loads the resource
    const QStringList names = QDir(QStringLiteral(":/toolkit")).entryList({QStringLiteral("*.svg")});
    EXPECT_FALSE(names.isEmpty());
    for (const QString& name : names)
        EXPECT_FALSE(VectorPicture(QStringLiteral(":/toolkit/") + name).IsEmpty()) << qPrintable(name);
}

TEST(VectorPictureTest, AnAreaIsFilledAndALineIsDrawn)
{
    const QImage image =
        Drawn("<path d=\"M2 2H8V8H2z\" fill=\"#ff0000\" stroke=\"#0000ff\" stroke-width=\"2\"/>");
    EXPECT_EQ(image.pixelColor(5, 5), QColor(255, 0, 0));
    EXPECT_EQ(image.pixelColor(1, 5), QColor(0, 0, 255));
    EXPECT_EQ(image.pixelColor(9, 5), QColor(0, 0, 0, 0));
}

TEST(VectorPictureTest, WhereNoColourIsToldAnAreaIsBlackWithoutALine)
{
    const QImage image = Drawn("<rect x=\"2\" y=\"2\" width=\"6\" height=\"6\"/>");
    EXPECT_EQ(image.pixelColor(2, 2), QColor(0, 0, 0));
    EXPECT_EQ(image.pixelColor(1, 2), QColor(0, 0, 0, 0));
}

TEST(VectorPictureTest, AGroupHandsItsStyleDown)
{
    const QImage image = Drawn("<g fill=\"none\" stroke=\"#00ff00\" stroke-width=\"4\">"
                               "<path d=\"M0 5H10\"/><path d=\"M0 1H10\" stroke-width=\"2\"/></g>");
    EXPECT_EQ(image.pixelColor(5, 4), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(5, 1), QColor(0, 255, 0));
    EXPECT_EQ(image.pixelColor(5, 2), QColor(0, 0, 0, 0));
}

TEST(VectorPictureTest, ALineMayBeTransparentInPart)
{
    const QImage image =
        Drawn("<path d=\"M0 5H10\" stroke=\"#000000\" stroke-width=\"2\" stroke-opacity=\".4\"/>");
    EXPECT_NEAR(image.pixelColor(5, 5).alphaF(), 0.4, 0.01);
}

TEST(VectorPictureTest, OnlyARoundCapGoesBeyondTheEndOfALine)
{
    EXPECT_EQ(Drawn("<path d=\"M4 5H6\" stroke=\"#000000\" stroke-width=\"6\"/>").pixelColor(2, 5).alpha(),
              0);
    EXPECT_EQ(Drawn("<path d=\"M4 5H6\" stroke=\"#000000\" stroke-width=\"6\" stroke-linecap=\"round\"/>")
                  .pixelColor(2, 5)
                  .alpha(),
              255);
}

TEST(VectorPictureTest, TheCornersOfARectangleMayBeRound)
{
    const QByteArray square = "<rect x=\"0\" y=\"0\" width=\"10\" height=\"10\"";
    EXPECT_EQ(Drawn(square + "/>").pixelColor(0, 0).alpha(), 255);
    EXPECT_EQ(Drawn(square + " rx=\"5\"/>").pixelColor(0, 0).alpha(), 0);
    EXPECT_EQ(Drawn(square + " rx=\"5\"/>").pixelColor(1, 5).alpha(), 255);
}

TEST(VectorPictureTest, ThePlaceIsFilledWithTheViewBox)
{
    QImage image(40, 20, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    PictureOfText("<svg viewBox=\"10 10 2 2\"><rect x=\"11\" y=\"10\" width=\"1\" height=\"1\"/></svg>")
        .Draw(painter, QRectF(20, 0, 20, 20));
    EXPECT_EQ(image.pixelColor(30, 9).alpha(), 255);
    EXPECT_EQ(image.pixelColor(29, 9).alpha(), 0);
    EXPECT_EQ(image.pixelColor(30, 10).alpha(), 0);
}

TEST(VectorPictureTest, WhatIsNotUnderstoodLeavesThePictureEmpty)
{
    EXPECT_TRUE(VectorPicture(QStringLiteral(":/toolkit/there-is-none.svg")).IsEmpty());
    EXPECT_TRUE(PictureOfText("<svg viewBox=\"0 0 9 9\"><circle r=\"1\"/><text>a</text></svg>").IsEmpty());
    EXPECT_TRUE(PictureOfText("<svg viewBox=\"0 0 9 9\"><circle r=\"1\"/>").IsEmpty());
    EXPECT_TRUE(PictureOfText("<svg><circle r=\"1\"/></svg>").IsEmpty());
    EXPECT_TRUE(PictureOfText("<html viewBox=\"0 0 9 9\"><circle r=\"1\"/></html>").IsEmpty());
}
