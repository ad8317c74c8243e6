#include "spreadsheet/read/XlsNumberFormat.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QRegularExpression>

#include <limits>
#include <utility>

using namespace tsms;
using namespace tsms::test;

namespace {

struct Case
{
    const char16_t* code;
    double value;
    QString shown;
};

void ExpectShown(const std::vector<Case>& cases)
{
    for (const Case& each : cases)
        EXPECT_EQ(XlsNumberFormat(each.code).Shown(each.value), each.shown)
            << QStringView(each.code).toString().toStdString() << " of " << each.value;
}

/// All codes of one to `most` of these tokens, in every order.
template <class Visit>
void ForEachCode(const std::vector<QString>& tokens, int most, const Visit& visit, const QString& begin = {})
{
    for (const QString& token : tokens) {
        visit(begin + token);
        if (most > 1)
            ForEachCode(tokens, most - 1, visit, begin + token);
    }
}

TEST(XlsNumberFormat, LeadingZerosShow)
{
    ExpectShown({{u"00000000000", 1012345678, u"01012345678"_q},
                 {u"000", 7, u"007"_q},
                 {u"000", 0, u"000"_q},
                 {u"0#########", 1012345678, u"1012345678"_q}, // only as many as there are signs
                 {u"000", 12345, u"12345"_q}});
}

TEST(XlsNumberFormat, HyphensStandBetweenTheDigits)
{
    ExpectShown({{u"000-0000-0000", 1012345678, u"010-1234-5678"_q},
                 {u"000-000-0000", 111234567, u"011-123-4567"_q},
                 {u"0##-####-####", 1012345678, u"010-1234-5678"_q},
                 {u"000\\-0000\\-0000", 1012345678, u"010-1234-5678"_q},
                 {u"000\"-\"0000\"-\"0000", 1012345678, u"010-1234-5678"_q},
                 {u"(000) 0000-0000", 1012345678, u"(010) 1234-5678"_q},
                 {u"000.0000", 10.5, u"010.5000"_q},
                 {u"000-0000-0000", 821012345678, u"8210-1234-5678"_q}}); // the first sign takes the rest
}

TEST(XlsNumberFormat, AConditionChoosesTheSection)
{
    const char16_t* code = u"[<=9999999]###-####;(0##) ###-####";
    ExpectShown({{code, 1234567, u"123-4567"_q},
                 {code, 21234567, u"(02) 123-4567"_q},
                 {code, 311234567, u"(031) 123-4567"_q},
                 {u"[>100]\"many\";[=7]\"seven\";0", 101, u"many"_q},
                 {u"[>100]\"many\";[=7]\"seven\";0", 7, u"seven"_q},
                 {u"[>100]\"many\";[=7]\"seven\";0", 8, u"8"_q},
                 {u"[<>1]\"other\"", 1, u"1"_q}}); // no section takes it
}

TEST(XlsNumberFormat, GeneralShowsAWholeNumberWithAllItsDigits)
{
    for (const char16_t* code : {u"General", u"GENERAL", u"G/표준", u"@", u""})
        ExpectShown({{code, 1012345678, u"1012345678"_q},
                     {code, 821012345678, u"821012345678"_q},
                     {code, 0, u"0"_q},
                     {code, -0.0, u"0"_q},
                     {code, -5, u"-5"_q},
                     {code, 0.1, u"0.1"_q},
                     {code, 1e20, u"1E+20"_q}});
    ExpectShown({{u"General\"명\"", 12, u"12명"_q}});
}

TEST(XlsNumberFormat, DecimalsGroupsAndPercents)
{
    ExpectShown({{u"0.00", 3.14159, u"3.14"_q},
                 {u"0.##", 1.5, u"1.5"_q},
                 {u"0.0?", 1.5, u"1.5 "_q},
                 {u".00", 0.25, u".25"_q},
                 {u".00", 12.25, u"12.25"_q},
                 {u"#,##0", 1234567, u"1,234,567"_q},
                 {u"#,##0", 0, u"0"_q},
                 {u"#,###", 0, u""_q},
                 {u"000,000", 12, u"000,012"_q},
                 {u"#,##0.0", 1234.56, u"1,234.6"_q},
                 {u"0,", 1234567, u"1235"_q},
                 {u"0,,", 1234567, u"1"_q},
                 {u"0%", 0.25, u"25%"_q},
                 {u"0.0%", 0.256, u"25.6%"_q},
                 {u"??0", 5, u"  5"_q}});
}

TEST(XlsNumberFormat, HalvesAreRoundedUpwardsByTheDigitsThatAreKept)
{
    ExpectShown({{u"0", 0.5, u"1"_q},
                 {u"0", 2.5, u"3"_q},
                 {u"0", 2.4999, u"2"_q},
                 {u"0", -2.5, u"-3"_q},
                 {u"0.00", 1.005, u"1.01"_q}, // in binary a little less
                 {u"0.00", 1.00499999999999, u"1.00"_q},
                 {u"0.0000000000", 39308.40673828125, u"39308.4067382813"_q}, // a half of the fifteenth digit
                 {u"0.0", 9.95, u"10.0"_q},
                 {u"0%", 0.125, u"13%"_q},
                 {u"0,", 1500, u"2"_q},
                 {u"000-0000", 1234567.5, u"123-4568"_q}});
}

TEST(XlsNumberFormat, NegativeNumbersAndZeroMayHaveSectionsOfTheirOwn)
{
    ExpectShown({{u"0", -5, u"-5"_q},
                 {u"0;(0)", -5, u"(5)"_q},
                 {u"0;(0)", 0, u"0"_q},
                 {u"0;-0;\"none\"", 0, u"none"_q},
                 {u"0;-0;\"none\"", -5, u"-5"_q},
                 {u"0;-0;\"none\";@", 5, u"5"_q},
                 {u";;;", 5, u""_q}}); // hidden from a person as well
}

TEST(XlsNumberFormat, TheLastSectionIsForTextsWhereItHasTheirSign)
{
    ExpectShown({{u"0;@", -5, u"-5"_q},
                 {u"000-0000;@", -1234567, u"-123-4567"_q},
                 {u"0.0;(0.0);@", 0, u"0.0"_q},
                 {u"0.0;(0.0);@", -5, u"(5.0)"_q},
                 {u"yyyy-mm-dd;@", -1, u"-1"_q},
                 {u"yyyy-mm-dd;@", 41059, u"2012-05-30"_q}});
}

TEST(XlsNumberFormat, ANegativeNumberShowsItsSignWherePositiveOnesShowToo)
{
    ExpectShown({{u"[>100]\"many\";0", -5, u"-5"_q},
                 {u"[>=1]0;0", -2, u"-2"_q},
                 {u"[=0]\"none\";#,##0", -1234, u"-1,234"_q},
                 {u"[>100]\"many\";[=7]\"seven\";0", -5, u"-5"_q},
                 {u"[<100]0;0.0", -5, u"-5"_q},
                 {u"[<=9999999]###-####;(0##) ###-####", -1234567, u"-123-4567"_q}});
}

TEST(XlsNumberFormat, ASectionForNegativeNumbersAloneShowsNoSignOfItsOwn)
{
    ExpectShown({{u"0;0", -2, u"2"_q},
                 {u"#,##0_);\\(#,##0\\)", -1234, u"(1,234)"_q},
                 {u"0;0;0", -2, u"2"_q},
                 {u"[>=1]0;0;0.00", -2, u"2"_q},
                 {u"[>=-1]0;0", -2, u"2"_q},
                 {u"[<0]\"minus \"0;0", -2, u"minus 2"_q},
                 {u"[<=-25]0;[>=25]0;0.0", -25, u"25"_q},
                 {u"[<=-25]0;[>=25]0;0.0", -5, u"-5.0"_q}});
}

TEST(XlsNumberFormat, TheSixteenthDigitAndThoseBehindItAreZeros)
{
    ExpectShown({{u"0", 1234567890123456, u"1234567890123460"_q},
                 {u"0000-0000-0000-0000", 1234567890123456, u"1234-5678-9012-3460"_q},
                 {u"#,##0", 12345678901234567.0, u"12,345,678,901,234,600"_q},
                 {u"0.00", 123456789012345678.0, u"123456789012346000.00"_q},
                 {u"0.0", 12345678901234.56, u"12345678901234.6"_q},
                 {u"0", 999999999999999, u"999999999999999"_q},
                 {u"0", 9999999999999999.0, u"10000000000000000"_q}});
}

TEST(XlsNumberFormat, WhatOnlyAdornsDoesNotShow)
{
    ExpectShown({{u"[Red]0", 5, u"5"_q},
                 {u"[$-412]0", 5, u"5"_q},
                 {u"[$₩-412]#,##0", 5000, u"₩5,000"_q},
                 {u"* 0_)", 5, u"5 "_q},
                 {u"\"전화 \"000", 7, u"전화 007"_q}});
}

TEST(XlsNumberFormat, DatesAndTimesComeOutInOneForm)
{
    ExpectShown({{u"yyyy\"년\" m\"월\" d\"일\"", 41059, u"2012-05-30"_q},
                 {u"m/d/yy", 41059, u"2012-05-30"_q},
                 {u"[$-412]yyyy-mm-dd hh:mm", 41059.5, u"2012-05-30 12:00:00"_q},
                 {u"h:mm AM/PM", 0.75, u"18:00:00"_q},
                 {u"mm:ss", 0.5, u"12:00:00"_q},
                 {u"yyyy-mm-dd", 59, u"1900-02-28"_q},
                 {u"yyyy-mm-dd", 61, u"1900-03-01"_q},
                 {u"yyyy-mm-dd", 2958465, u"9999-12-31"_q},
                 {u"yyyy-mm-dd", -1, u"-1"_q},
                 {u"yyyy-mm-dd", 1e300, u"1E+300"_q}});
    EXPECT_EQ(XlsNumberFormat(u"yyyy-mm-dd").Shown(0, FirstDay::Of1904), u"1904-01-01"_q);
}

TEST(XlsNumberFormat, ElapsedHoursCountOnBeyondADay)
{
    for (const char16_t* code : {u"[h]:mm:ss", u"[h]:mm", u"[h]", u"[hh]", u"[H]", u"[HH]", u"[m]", u"[mm]",
                                 u"[M]", u"[MM]:SS", u"[s]", u"[ss]", u"[S]", u"[SS]"})
        ExpectShown({{code, 0.25, u"06:00:00"_q},
                     {code, 1.5, u"36:00:00"_q},
                     {code, 100.25, u"2406:00:00"_q},
                     {code, -1, u"-1"_q}});
    ExpectShown({{u"h:mm", 1.5, u"12:00:00"_q}, {u"[Magenta]0", 1.5, u"2"_q}, {u"[]0", 1.5, u"2"_q}});
}

TEST(XlsNumberFormat, LettersOfOtherCalendarsAreDatesAndDoNotShow)
{
    for (const char16_t* code :
         {u"bbbb", u"gg", u"[$-411]ggge", u"e", u"aaa", u"[$-412]aaaa", u"e-mm-dd", u"B2yyyy"})
        ExpectShown({{code, 41059, u"2012-05-30"_q}});
    ExpectShown({{u"aaa h:mm", 41059.5, u"2012-05-30 12:00:00"_q},
                 {u"AM/PM", 0.75, u"18:00:00"_q},
                 {u"h:mm A/P", 0.75, u"18:00:00"_q},
                 {u"0ea", 5, u"5ea"_q}}); // beside digits they are words
}

TEST(XlsNumberFormat, FractionsAndExponentsAreShownInFull)
{
    ExpectShown({{u"# ?/?", 0.5, u"0.5"_q}, {u"0.00E+00", 1012345678, u"1012345678"_q}});
}

TEST(XlsNumberFormat, FormatsThatNeedNoCodeAreKnown)
{
    const std::pair<QString, QList<int>> known[] = {
        {u"41060"_q, {1}},
        {u"41059.50"_q, {2}},
        {u"41,060"_q, {3, 5, 6, 37, 38, 41, 42}},
        {u"41,059.50"_q, {4, 7, 8, 39, 40, 43, 44}},
        {u"4105950%"_q, {9}},
        {u"4105950.00%"_q, {10}},
        {u"2012-05-30"_q,
         {14, 15, 16, 17, 27, 28, 29, 30, 31, 34, 35, 36, 50, 51, 52, 53, 54, 55, 56, 57, 58}},
        {u"12:00:00"_q, {18, 19, 20, 21, 32, 33, 45, 47}},
        {u"2012-05-30 12:00:00"_q, {22}},
        {u"985428:00:00"_q, {46}}};
    QStringList expected(60, u"41059.5"_q); // of a format that is General
    for (const auto& [shown, numbers] : known)
        for (const int number : numbers)
            expected[number] = shown;
    for (int number = 0; number < expected.size(); ++number)
        EXPECT_EQ(XlsNumberFormat(XlsNumberFormat::BuiltInCode(number)).Shown(41059.5), expected[number])
            << number;
    EXPECT_EQ(XlsNumberFormat(XlsNumberFormat::BuiltInCode(4711)).Shown(5), u"5"_q);
}

TEST(XlsNumberFormat, WhatIsNoNumberSaysSo)
{
    EXPECT_EQ(XlsNumberFormat(u"0").Shown(std::nan("")), u"#NUM!"_q);
    EXPECT_EQ(XlsNumberFormat(u"0").Shown(std::numeric_limits<double>::infinity()), u"#NUM!"_q);
}

TEST(XlsNumberFormat, NumbersBeyondADoubleKeepTheirPlaces)
{
    const QString zeros(308, u'0');
    ExpectShown({{u"0.00%", 1e308, u"1"_q + zeros + u"00.00%"_q},
                 {u"0.0#%%", 1e308, u"1"_q + zeros + u"0000.0%%"_q},
                 {u".0?%", 1e308, u"1"_q + zeros + u"00.0 %"_q},
                 {u"%0", 0, u"%0"_q},
                 {u"0.0,,,,", 1e308, u"1"_q + zeros.chopped(12) + u".0"_q},
                 {u"0.00", 5e-324, u"0.00"_q}});
    const QString percents(200, u'%'); // their power of ten alone is beyond a double
    EXPECT_EQ(XlsNumberFormat(u"0.0"_q + percents).Shown(0), u"0.0"_q + percents);
    EXPECT_EQ(XlsNumberFormat(u"0.0"_q + percents).Shown(7),
              u"7"_q + QString(400, u'0') + u".0"_q + percents);
    EXPECT_EQ(XlsNumberFormat(u"0.0"_q + QString(200, u',')).Shown(1e308), u"0.0"_q);
}

TEST(XlsNumberFormat, InWhateverOrderPlacesPointsAndWordsStandAllDigitsShow)
{
    struct Number
    {
        double value;
        QString digits;
    };
    const Number numbers[] = {
        {0, {}}, {7, u"7"_q}, {120034, u"120034"_q}, {1.7e308, u"17"_q + QString(307, u'0')}};
    const QRegularExpression place(u"[0#?.]"_q);
    const QRegularExpression words(u"[^0-9.]"_q);
    const QRegularExpression leadingZeros(u"^0+"_q);
    const auto expectDigits = [&](const QString& code) {
        for (const auto& [value, digits] : numbers) {
            const QString hundreds = digits.isEmpty() ? QString() : u"00"_q.repeated(code.count(u'%'));
            const QString shown = XlsNumberFormat(code).Shown(value).remove(words).remove(leadingZeros);
            const QString decimals = shown.section(u'.', 1);
            ASSERT_EQ(shown.section(u'.', 0, 0), code.contains(place) ? digits + hundreds : QString())
                << code.toStdString() << " of " << value;
            ASSERT_EQ(decimals.count(u'0') + decimals.count(u'.'), decimals.size())
                << code.toStdString() << " of " << value;
        }
    };
    ForEachCode({u"0"_q, u"#"_q, u"?"_q, u"."_q, u"%"_q, u"\"x\""_q, u"_)"_q}, 5, expectDigits);
}

TEST(XlsNumberFormat, NoOrderOfTokensReadsAPlaceThatIsNotThere)
{
    const auto expectEnd = [](const QString& code) {
        const XlsNumberFormat format(code);
        for (const double value : {0.0, 0.5, -5.0, 1234567.0, 1.7e308, -1.7e308, 5e-324}) {
            const QString shown = format.Shown(value);
            ASSERT_LE(shown.size(), 500) << code.toStdString();
            ASSERT_FALSE(shown.contains(u"inf") || shown.contains(u"nan")) << code.toStdString();
        }
    };
    ForEachCode({u"0"_q, u"#"_q, u"?"_q, u"."_q, u","_q, u"%"_q, u"\""_q, u"\\"_q, u"_"_q, u"*"_q, u";"_q,
                 u"[<5]"_q, u"["_q, u"General"_q, u"@"_q, u"E+"_q, u"/"_q, u"h"_q},
                4, expectEnd);
}

TEST(XlsNumberFormat, BrokenCodesEndSomewhere)
{
    for (const QString& code : {u"\""_q, u"\\"_q, u"["_q, u"[<"_q, u"[<=x]0"_q, u"_"_q, u"*"_q, u";;;;;;"_q,
                                u","_q, u"0,,,,,,,,,,,,,,,,"_q, u"%%%%0"_q, u"."_q, u"0..0"_q, u"[$"_q,
                                QString(255, u'%') + u"0"_q, QString(255, u'['), QString(255, u'?')})
        EXPECT_LE(XlsNumberFormat(code).Shown(1012345678).size(), 1000) << code.toStdString();
}

TEST(XlsNumberFormat, ACodeLongerThanAnyIsGeneral)
{
    EXPECT_EQ(XlsNumberFormat(QString(255, u'0')).Shown(1).size(), 255);
    EXPECT_EQ(XlsNumberFormat(QString(256, u'0')).Shown(1), u"1"_q);
}

} // namespace
