#include "store/odbc/OdbcColumn.h"

#include <cstdio>

namespace tsms {

namespace {

constexpr SQLULEN LongestBounded = 8000; // of varchar(n); what is wider is of a kind without a limit
constexpr qsizetype LongestDecimal = 64; // 38 digits, sign, point

} // namespace

OdbcColumn DescribedColumn(const QString& name, SQLSMALLINT type, SQLULEN size)
{
    switch (type) {
    case SQL_BIT:
    case SQL_TINYINT:
    case SQL_SMALLINT:
    case SQL_INTEGER:
    case SQL_BIGINT:
        return {name, OdbcColumn::Form::Integer};
    case SQL_REAL:
    case SQL_FLOAT:
    case SQL_DOUBLE:
        return {name, OdbcColumn::Form::Real};
    case SQL_DECIMAL:
    case SQL_NUMERIC:
        return {name, OdbcColumn::Form::Decimal, LongestDecimal};
    case SQL_TYPE_TIMESTAMP:
        return {name, OdbcColumn::Form::Moment};
    case SQL_CHAR:
    case SQL_VARCHAR:
    case SQL_WCHAR:
    case SQL_WVARCHAR:
        // A byte of the server's is never more than one unit of ours.
        return {name, OdbcColumn::Form::Text, size <= LongestBounded ? static_cast<qsizetype>(size) : 0};
    default:
        return {name, OdbcColumn::Form::Text};
    }
}

QByteArray PlainDecimal(QByteArrayView digits)
{
    QByteArray plain = digits.toByteArray();
    const qsizetype point = plain.indexOf('.');
    if (point < 0)
        return plain;
    while (plain.endsWith('0'))
        plain.chop(1);
    if (plain.endsWith('.'))
        plain.chop(1);
    if (point == 0 || plain[point - 1] == '-')
        plain.insert(point, '0');
    return plain;
}

QByteArray MomentText(const SQL_TIMESTAMP_STRUCT& moment)
{
    char text[48];
    const int size = std::snprintf(text, sizeof text, "%04d-%02u-%02u %02u:%02u:%02u", moment.year,
                                   moment.month, moment.day, moment.hour, moment.minute, moment.second);
    return {text, size};
}

} // namespace tsms
