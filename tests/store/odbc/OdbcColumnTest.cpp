#include "store/odbc/OdbcColumn.h"

#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

TEST(OdbcColumn, AColumnIsFetchedByItsType)
{
    struct Case
    {
        SQLSMALLINT type;
        SQLULEN size;
        OdbcColumn::Form form;
        qsizetype width;
    };
    const Case cases[] = {
        {SQL_BIT, 1, OdbcColumn::Form::Integer, 0},
        {SQL_TINYINT, 3, OdbcColumn::Form::Integer, 0},
        {SQL_SMALLINT, 5, OdbcColumn::Form::Integer, 0},
        {SQL_INTEGER, 10, OdbcColumn::Form::Integer, 0},
        {SQL_BIGINT, 19, OdbcColumn::Form::Integer, 0},
        {SQL_REAL, 7, OdbcColumn::Form::Real, 0},
        {SQL_FLOAT, 15, OdbcColumn::Form::Real, 0},
        {SQL_DOUBLE, 15, OdbcColumn::Form::Real, 0},
        {SQL_DECIMAL, 19, OdbcColumn::Form::Decimal, 64},
        {SQL_NUMERIC, 38, OdbcColumn::Form::Decimal, 64},
        {SQL_TYPE_TIMESTAMP, 23, OdbcColumn::Form::Moment, 0},
        {SQL_CHAR, 1, OdbcColumn::Form::Text, 1},
        {SQL_VARCHAR, 8000, OdbcColumn::Form::Text, 8000},
        {SQL_WVARCHAR, 4000, OdbcColumn::Form::Text, 4000},
        {SQL_VARCHAR, 0, OdbcColumn::Form::Text, 0},
        {SQL_WVARCHAR, 0, OdbcColumn::Form::Text, 0},
        {SQL_VARCHAR, 8001, OdbcColumn::Form::Text, 0},
        {SQL_LONGVARCHAR, 2147483647, OdbcColumn::Form::Text, 0},
        {SQL_WLONGVARCHAR, 1073741823, OdbcColumn::Form::Text, 0},
        {SQL_GUID, 36, OdbcColumn::Form::Text, 0},
        {SQL_TYPE_DATE, 10, OdbcColumn::Form::Text, 0},
    };
    for (const Case& one : cases) {
        const OdbcColumn column = DescribedColumn(u"Name"_q, one.type, one.size);
        EXPECT_EQ(column.name, u"Name"_q);
        EXPECT_EQ(column.form, one.form) << one.type;
        EXPECT_EQ(column.width, one.width) << one.type << ' ' << one.size;
    }
}

TEST(OdbcColumn, ADecimalIsWrittenInPlainDigits)
{
    struct Case
    {
        const char* digits;
        const char* plain;
    };
    const Case cases[] = {
        {"10000.0000", "10000"},
        {"10000", "10000"},
        {"100", "100"},
        {"0", "0"},
        {"0.0000", "0"},
        {".0000", "0"},
        {".5000", "0.5"},
        {"-.5000", "-0.5"},
        {"-5.0000", "-5"},
        {"19.9900", "19.99"},
        {"0.0001", "0.0001"},
        {"922337203685477.5807", "922337203685477.5807"},
        {"-922337203685477.5808", "-922337203685477.5808"},
        {"12345678901234567890123456789012345678", "12345678901234567890123456789012345678"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(PlainDecimal(one.digits), QByteArray(one.plain));
}

TEST(OdbcColumn, AMomentIsWrittenToTheSecond)
{
    EXPECT_EQ(MomentText({2012, 5, 30, 14, 7, 9, 997000000}), QByteArray("2012-05-30 14:07:09"));
    EXPECT_EQ(MomentText({1900, 1, 1, 0, 0, 0, 0}), QByteArray("1900-01-01 00:00:00"));
    EXPECT_EQ(MomentText({9999, 12, 31, 23, 59, 59, 0}), QByteArray("9999-12-31 23:59:59"));
}

} // namespace tsms::test
