#include "runtime/CodePage949.h"
#include "support/CodePageTable.h"
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

const CountRow CountRows[] = {
    {u""_q, 0},
    {u" "_q, 0},
    {u"     "_q, 0},
    {u"a"_q, 1},
    {u"가"_q, 2},
    {u"ㄱ"_q, 2},
    {u"가나 a"_q, 6},
    {u"a\r\nb"_q, 3},
    {u"\r\n"_q, 1},
    {u"\r\n\r\n"_q, 2},
    {u" a "_q, 3},
    {u"\t"_q, 1},
    {u"뷁똠펲"_q, 6},
    {u"é"_q, 1},
    {u"😀"_q, 2},
    {u"[받는사람]"_q, 10},
    {u"[보내는사람]"_q, 12},
    {u"\n"_q, 1},
    {u"\r"_q, 1},
};

INSTANTIATE_TEST_SUITE_P(Texts, ByteCountTable, ::testing::ValuesIn(CountRows));

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

TEST(CodePage949, ACharacterOutsideTheBasicPlaneBecomesTwoQuestionMarks)
{
    for (char32_t c = 0x10000; c < 0x110000; ++c)
        ASSERT_EQ(ToCodePage949(QString::fromUcs4(&c, 1)), "??") << std::hex << std::uint32_t(c);
}

TEST(CodePage949, EveryUnitIsWrittenAtTheEndAndInTheMiddle)
{
    for (int value = 0; value < 0x10000; ++value) {
        const QChar unit(value);
        const QByteArray bigEndian = QByteArray(1, static_cast<char>(value >> 8)) + static_cast<char>(value);
        const QByteArray code = OneConverted("CP949", "UTF-16BE", bigEndian).value_or("?");
        ASSERT_EQ(ToCodePage949(u"a가"_q + unit), "a\xB0\xA1" + code) << std::hex << value;
        ASSERT_EQ(ToCodePage949(unit + u"가a"_q), code + "\xB0\xA1"
                                                         "a")
            << std::hex << value;
    }
}

TEST(CodePage949, EveryUnitFitsIntoItsBytesAndNotIntoLess)
{
    for (int value = 0; value < 0x10000; ++value) {
        const QString text{QChar(value)};
        const int bytes = static_cast<int>(ToCodePage949(text).size());
        ASSERT_EQ(FittingLength(text, bytes), 1) << std::hex << value;
        ASSERT_EQ(FittingLength(text, bytes - 1), 0) << std::hex << value;
    }
}

TEST(CodePage949, ThePlatformHasEveryPairOfTheCodePage)
{
    // 988 signs, 2,350 + 8,822 syllables, 4,888 Hanja; A2 E8 is a sign in a later edition only.
    const bool hasTheLaterSign = CodePageTable::Get().TextOf("\xA2\xE8") != u"\xFFFD"_q;
#ifdef Q_OS_WIN
    constexpr int PrivateUse = 188; // two rows, C9 and FE
#else
    constexpr int PrivateUse = 0;
#endif
    EXPECT_EQ(CodePageTable::Get().Pairs(), 17048 + PrivateUse + (hasTheLaterSign ? 1 : 0));
}

TEST(CodePage949, EveryByteIsReadAtTheEndAndInTheMiddle)
{
    for (int value = 0; value < 0x100; ++value) {
        const QByteArray byte(1, static_cast<char>(value));
        for (const QByteArray& bytes : {byte, "a" + byte, "\xB0\xA1" + byte, byte + "a", byte + "\xB0\xA1z"})
            ASSERT_EQ(FromCodePage949(bytes), CodePageTable::Get().TextOf(bytes))
                << bytes.toHex(' ').constData();
    }
}

TEST(CodePage949, EveryPairIsReadAtTheEndAndInTheMiddle)
{
    for (int value = 0; value < 0x10000; ++value) {
        const QByteArray pair = QByteArray(1, static_cast<char>(value >> 8)) + static_cast<char>(value);
        for (const QByteArray& bytes :
             {pair, "a" + pair, "\xB0\xA1" + pair, pair + "a", pair + "\xB0\xA1z", pair + "a" + pair})
            ASSERT_EQ(FromCodePage949(bytes), CodePageTable::Get().TextOf(bytes))
                << bytes.toHex(' ').constData();
    }
}

TEST(CodePage949, APairThatTheDecoderTakesAndRefusesLeavesTheByteBehindInItsPlace)
{
    const QString pair = CodePageTable::Get().TextOf("\xA2\xE8");
    ASSERT_EQ(pair.size(), 1);
    EXPECT_EQ(FromCodePage949("\xA2\xE8"), pair);
    EXPECT_EQ(FromCodePage949("\xA2\xE8z"), pair + u'z');
    EXPECT_EQ(FromCodePage949("a\xA2\xE8\xB0\xA1"), u'a' + pair + u'가');
    EXPECT_EQ(FromCodePage949(QByteArray("\xA2\xE8").repeated(5000)), QString(pair).repeated(5000));
}

TEST(CodePage949, KoreanTextGoesThereAndBack)
{
    const QString text = u"안녕하세요, 뷁 ☆ A1"_q;
    EXPECT_EQ(FromCodePage949(ToCodePage949(text)), text);
    EXPECT_EQ(ToCodePage949(u"가"), QByteArray("\xB0\xA1"));
}

TEST(CodePage949, EverySyllableOfHangulGoesThereAndBack)
{
    QString syllables;
    for (char16_t c = u'\xAC00'; c <= u'\xD7A3'; ++c)
        syllables += QChar(c);
    EXPECT_EQ(FromCodePage949(ToCodePage949(syllables)), syllables);
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
