#include "toolkit/grid/PastedRows.h"
#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

using TextRows = QList<QStringList>;

struct Paste
{
    const char* name;
    QString text;
    TextRows rows;
    bool isBlock;
};

class PastedText : public ::testing::TestWithParam<Paste>
{
};

TEST_P(PastedText, HasTheRowsOfTheSpreadsheet)
{
    EXPECT_EQ(PastedRows(GetParam().text), GetParam().rows);
    EXPECT_EQ(IsBlock(PastedRows(GetParam().text)), GetParam().isBlock);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, PastedText,
    ::testing::Values(
        Paste{"Empty", u""_q, {}, false}, Paste{"Word", u"김하늘"_q, {{u"김하늘"_q}}, false},
        Paste{"OneCell", u"김하늘\r\n"_q, {{u"김하늘"_q}}, false},
        Paste{"OneRow", u"김하늘\t010-1\r\n"_q, {{u"김하늘"_q, u"010-1"_q}}, true},
        Paste{"TwoRows", u"a\tb\nc\td"_q, {{u"a"_q, u"b"_q}, {u"c"_q, u"d"_q}}, true},
        Paste{"OneColumn", u"a\rb\rc\r"_q, {{u"a"_q}, {u"b"_q}, {u"c"_q}}, true},
        Paste{"BlankRow", u"a\r\n\r\nb"_q, {{u"a"_q}, {u""_q}, {u"b"_q}}, true},
        Paste{"EmptyLinesAtTheEnd", u"010-1\r\n\r\n \n"_q, {{u"010-1"_q}}, false},
        Paste{"EmptyLinesAlone", u"\n\n"_q, {}, false},
        Paste{"BlankValues", u"\t\t\n\tb"_q, {{u""_q, u""_q, u""_q}, {u""_q, u"b"_q}}, true},
        Paste{"TabAtTheEnd", u"a\t"_q, {{u"a"_q, u""_q}}, true},
        Paste{"Blanks", u"  a \t b\n"_q, {{u"a"_q, u"b"_q}}, true},
        Paste{"Quoted", u"\"a\tb\"\tc"_q, {{u"a\tb"_q, u"c"_q}}, true},
        Paste{"QuotedBreak", u"\"a\nb\"\tc\r\nd\te"_q, {{u"a"_q, u"c"_q}, {u"d"_q, u"e"_q}}, true},
        Paste{"DoubledQuotes", u"\"a\"\"b\"\tc"_q, {{u"a\"b"_q, u"c"_q}}, true},
        Paste{"EmptyQuotes", u"\"\"\tc"_q, {{u""_q, u"c"_q}}, true},
        Paste{"QuoteInside", u"a\"b\tc"_q, {{u"a\"b"_q, u"c"_q}}, true},
        Paste{"QuoteThatIsNotClosed", u"\"a\tb\nc"_q, {{u"\"a"_q, u"b"_q}, {u"c"_q}}, true},
        Paste{"QuoteBeforeMore", u"\"a\"b\tc"_q, {{u"\"a\"b"_q, u"c"_q}}, true}),
    [](const auto& paste) { return std::string(paste.param.name); });

class CopiedRows : public ::testing::TestWithParam<Paste>
{
};

TEST_P(CopiedRows, StandOnTheClipboardAsTheSpreadsheetReadsThem)
{
    EXPECT_EQ(CopiedText(GetParam().rows), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, CopiedRows,
    ::testing::Values(Paste{"None", u""_q, {}, false},
                      Paste{"Rows", u"a\tb\nc\t"_q, {{u"a"_q, u"b"_q}, {u"c"_q, u""_q}}, true},
                      Paste{"Tab", u"\"a\tb\"\tc"_q, {{u"a\tb"_q, u"c"_q}}, true},
                      Paste{"LineBreak", u"\"a\nb\"\tc"_q, {{u"a\r\nb"_q, u"c"_q}}, true},
                      Paste{"QuoteAhead", u"\"\"\"a\"\"\"\tc"_q, {{u"\"a\""_q, u"c"_q}}, true},
                      Paste{"QuoteInside", u"a\"b\tc"_q, {{u"a\"b"_q, u"c"_q}}, true},
                      Paste{"OneValue", u"\"a\"\r\nb"_q, {{u"\"a\"\r\nb"_q}}, false}),
    [](const auto& paste) { return std::string(paste.param.name); });

TEST(CopiedBlock, ComesBackByAPasteAsTheyWere)
{
    const TextRows rows{{u"\"a\""_q, u"b\tc"_q}, {u""_q, u"d\"e"_q}};
    EXPECT_EQ(PastedRows(CopiedText(rows)), rows);
}

} // namespace
