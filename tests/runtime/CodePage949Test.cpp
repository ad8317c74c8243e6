#include "runtime/CodePage949.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

struct CountRow
{
    QString text;
    int count;
};

class ByteCountTable : public ::testing::TestWithParam<CountRow>
{
};

TEST_P(ByteCountTable, IsTheLengthInTheCodePageLessTheBreaks)
{
    EXPECT_EQ(ByteCount(GetParam().text), GetParam().count) << GetParam().text.toStdString();
}

INSTANTIATE_TEST_SUITE_P(Texts, ByteCountTable,
                         ::testing::Values(CountRow{u""_q, 0}, CountRow{u" "_q, 0}, CountRow{u"     "_q, 0},
                                           CountRow{u"a"_q, 1}, CountRow{u"가"_q, 2}, CountRow{u"ㄱ"_q, 2},
                                           CountRow{u"가나 a"_q, 6}, CountRow{u"a\r\nb"_q, 3},
                                           CountRow{u"\r\n"_q, 1}, CountRow{u"\r\n\r\n"_q, 2},
                                           CountRow{u" a "_q, 3}, CountRow{u"\t"_q, 1},
                                           CountRow{u"뷁똠펲"_q, 6}, CountRow{u"é"_q, 1}, CountRow{u"😀"_q, 2},
                                           CountRow{u"[받는사람]"_q, 10}, CountRow{u"[보내는사람]"_q, 12},
                                           CountRow{u"\n"_q, 1}, CountRow{u"\r"_q, 1}));

TEST(CodePage949, EverySymbolOfTheSymbolTableTakesTwoBytes)
{
    const QString symbols = u"☆☎☏☜＠♪℡※★○●◎◇◆□■△▲▽▼→←↑↓↔〓◁◀▷▶♤♠♡♥♧♣⊙◈▣◐◑▒▤▥▨▧§÷≠"_q;
    ASSERT_EQ(symbols.size(), 49);
    for (const QChar symbol : symbols)
        EXPECT_EQ(ByteCount(QString(symbol)), 2) << QString(symbol).toStdString();
}

TEST(CodePage949, AUnitWithoutACodeBecomesAQuestionMark)
{
    EXPECT_EQ(ToCodePage949(u"aéb"), QByteArray("a?b"));
    EXPECT_EQ(ToCodePage949(u"😀"), QByteArray("??"));
}

TEST(CodePage949, KoreanTextGoesThereAndBack)
{
    const QString text = u"안녕하세요, 뷁 ☆ A1"_q;
    EXPECT_EQ(FromCodePage949(ToCodePage949(text)), text);
    EXPECT_EQ(ToCodePage949(u"가"), QByteArray("\xB0\xA1"));
}

TEST(CodePage949, ABrokenByteIsReplacedAndTheRestIsRead)
{
    EXPECT_EQ(FromCodePage949(QByteArray("a\xFF"
                                         "b")),
              u"a\xFFFD"
              u"b"_q);
    EXPECT_EQ(FromCodePage949(QByteArray("a\xB0")), u"a\xFFFD"_q);
}

struct FitRow
{
    QString text;
    int limit;
    QString fits;
};

class FittingTable : public ::testing::TestWithParam<FitRow>
{
};

TEST_P(FittingTable, IsTheLongestBeginning)
{
    const FitRow& row = GetParam();
    EXPECT_EQ(row.text.first(FittingLength(row.text, row.limit)), row.fits);
}

INSTANTIATE_TEST_SUITE_P(Texts, FittingTable,
                         ::testing::Values(FitRow{u"가나다"_q, 6, u"가나다"_q},
                                           FitRow{u"가나다"_q, 5, u"가나"_q}, FitRow{u"가나다"_q, 1, u""_q},
                                           FitRow{u"a가"_q, 2, u"a"_q}, FitRow{u"a\r\nb"_q, 2, u"a\r\n"_q},
                                           FitRow{u"a\r\nb"_q, 1, u"a"_q}, FitRow{u"😀😀"_q, 3, u"😀"_q},
                                           FitRow{u"   "_q, 2, u"  "_q}, FitRow{u"abc"_q, 0, u""_q}));

TEST(CodePage949, TheFittingLengthAgreesWithTheCount)
{
    const QString text = QString(u"가a\r\n☆é 😀"_q).repeated(20);
    for (int limit = 0; limit <= MessageBytes(text); ++limit) {
        const qsizetype length = FittingLength(text, limit);
        EXPECT_LE(MessageBytes(text.first(length)), limit);
        if (length < text.size()) {
            EXPECT_GT(MessageBytes(text.first(std::min<qsizetype>(length + 2, text.size()))), limit);
        }
    }
}

} // namespace
