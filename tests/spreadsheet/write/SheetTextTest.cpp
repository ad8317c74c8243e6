#include "spreadsheet/write/SheetText.h"

#include "support/Words.h"

#include <gtest/gtest.h>

using namespace tsms;
using namespace tsms::test;

namespace {

struct TextRow
{
    QString text;
    QString cell;
};

class SheetTextTable : public ::testing::TestWithParam<TextRow>
{
};

TEST_P(SheetTextTable, IsWhatTheCellHolds)
{
    QString changed;
    EXPECT_EQ(SheetText(GetParam().text, changed).toString(), GetParam().cell);
}

INSTANTIATE_TEST_SUITE_P(
    Texts, SheetTextTable,
    ::testing::Values(TextRow{u"가나다 abc"_q, u"가나다 abc"_q}, TextRow{u""_q, u""_q},
                      TextRow{u"a\r\nb"_q, u"a\nb"_q}, TextRow{u"a\rb"_q, u"a\nb"_q},
                      TextRow{u"a\nb"_q, u"a\nb"_q}, TextRow{u"a\r\n\r\nb"_q, u"a\n\nb"_q},
                      TextRow{u"a\n\rb"_q, u"a\n\nb"_q}, TextRow{u"a\r"_q, u"a\n"_q},
                      TextRow{u"a\0b"_q, u"a b"_q}, TextRow{u"a\u0001\tb\u001F"_q, u"a\u0001\tb\u001F"_q},
                      TextRow{u"a😀b"_q, u"a😀b"_q}, TextRow{u"a\xD83D"_q, u"a\uFFFD"_q},
                      TextRow{u"\xD83D가"_q, u"\uFFFD가"_q}, TextRow{u"\xDE00\xD83D"_q, u"\uFFFD\uFFFD"_q},
                      TextRow{u"\xD83D😀"_q, u"\uFFFD😀"_q}));

TEST(SheetText, WhatNeedsNoChangeIsNotCopied)
{
    const QString text = u"가나다"_q;
    QString changed;
    EXPECT_EQ(SheetText(text, changed).data(), text.constData());
    EXPECT_TRUE(changed.isEmpty());
}

TEST(SheetText, EndsAfterTheMostThatACellHolds)
{
    QString changed;
    EXPECT_EQ(SheetText(QString(32767, u'a'), changed).size(), 32767);
    EXPECT_EQ(SheetText(QString(32768, u'가'), changed).size(), 32767);
    const QString breaks = u"\r\n"_q.repeated(40000);
    EXPECT_EQ(SheetText(breaks, changed).toString(), QString(32767, u'\n'));
}

TEST(SheetText, DoesNotEndInsideASurrogatePair)
{
    QString changed;
    const QString fits = QString(32765, u'a') + u"😀가"_q;
    EXPECT_EQ(SheetText(fits, changed).toString(), QString(32765, u'a') + u"😀"_q);
    const QString divided = QString(32766, u'a') + u"😀"_q;
    EXPECT_EQ(SheetText(divided, changed).toString(), QString(32766, u'a'));
}

} // namespace
