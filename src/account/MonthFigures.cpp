#include "account/MonthFigures.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"

#include <cmath>

namespace tsms {

namespace {

/// In the terms of the report, which counts what failed as the rest. All of them are whole numbers.
double Rate(std::int32_t total, std::int32_t done)
{
    const std::int32_t rest = total - done;
    const std::int32_t numerator = total - rest;
    const std::int32_t denominator = numerator + rest;
    return static_cast<double>(numerator) / denominator * 100;
}

/// Through its text, which has 15 digits: what a division leaves behind them is gone.
double Val(double number)
{
    return QString::number(number, 'g', 15).toDouble();
}

/// The pattern "##": a whole number, halves away from 0, and nothing at all for 0.
QString WholeText(double number)
{
    const auto whole = static_cast<std::int64_t>(std::round(number));
    return whole == 0 ? QString() : QString::number(whole);
}

} // namespace

Statement MonthQuery(const QString& year)
{
    Statement query(u"SELECT  LEFT(SendTime,7) AS ppMonth,");
    query.Own(u" Count(*) AS ToTalCnt, ");
    query.Own(u" ISNULL(SUM(CASE WHEN SMSStatus IN ('0','1') THEN 1 ELSE 0 END),0) AS SMS0 ,");
    query.Own(u" ISNULL(SUM(CASE WHEN SMSStatus ='2' THEN 1 ELSE 0 END),0) AS SMS1  ");
    query.Own(u" FROM SMSLog_").Bare(year);
    query.Own(u" GROUP BY LEFT(SendTime,7) ");
    return query;
}

int MonthColumn(const QString& ppMonth)
{
    return ToLong(Trim(ppMonth).right(2));
}

QString RateText(std::int32_t total, std::int32_t done)
{
    return WholeText(RoundHalfToEven(Val(Rate(total, done)), 1)) + u'%';
}

} // namespace tsms
