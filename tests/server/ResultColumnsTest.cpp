#include "support/server/ResultColumns.h"

#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// "name:type" for each column; a "?" behind the type when it may be NULL, and a "*" when its value is given
/// by the server.
QStringList Described(const QString& select, int fields)
{
    static const char* const kinds[] = {"int",      "numeric", "money",   "float",
                                        "datetime", "varchar", "nvarchar"};
    QStringList words;
    for (const ServerColumn& column : ResultColumns(select, QStringList(fields, u"x"_q))) {
        const ServerType& type = column.Type;
        QString text = column.Name + u":"_q + QLatin1String(kinds[static_cast<int>(type.kind)]);
        if (type.IsText())
            text += QStringLiteral("(%1)").arg(type.width);
        if (type.kind == ServerType::Kind::Numeric)
            text += QStringLiteral("(%1,%2)").arg(type.precision).arg(type.scale);
        words += text + (type.nullable ? u"?"_q : QString()) + (column.IsKey ? u"*"_q : QString());
    }
    return words;
}

QString TypeOfExpression(const QString& expression)
{
    return Described(u"SELECT "_q + expression + u" FROM SMSCharge"_q, 1).value(0).sliced(1);
}

} // namespace

TEST(ResultColumns, AreThoseOfTheTable)
{
    EXPECT_EQ(Described(u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q, 2),
              (QStringList{u"GroupCd:int*"_q, u"GroupNm:varchar(100)?"_q}));
    EXPECT_EQ(Described(u" SELECT  [groupcd] , dbo.SMSGroupMst.GroupNm FROM dbo.SMSGroupMst "_q, 2).first(),
              u"groupcd:int*"_q);
    EXPECT_EQ(Described(u"SELECT * FROM SMSTempLMst"_q, 2),
              (QStringList{u"TempLCd:int"_q, u"TempLNm:varchar(100)?"_q}));
    EXPECT_EQ(Described(u"SELECT SMSStatus, SendTime, RegDt FROM SMSLog_2031 AS P"_q, 3),
              (QStringList{u"SMSStatus:varchar(1)"_q, u"SendTime:varchar(16)?"_q, u"RegDt:datetime?"_q}));
}

TEST(ResultColumns, OfTheHistoryAreTyped)
{
    EXPECT_EQ(
        Described(
            u"SELECT  SMSKey, SMSStatus, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' THEN '성공' ELSE '실패' END) END), (LEFT(SendTime,10) + ' ' + REPLACE(RIGHT(SendTime,5),'-',':')) AS nSendTime FROM SMSLog_2012 AS P WHERE  1 = 1  ORDER BY SendTime DESC "_q,
            4),
        (QStringList{u"SMSKey:int*"_q, u"SMSStatus:varchar(1)"_q, u":varchar(6)"_q,
                     u"nSendTime:varchar(8000)?"_q}));
}

TEST(ResultColumns, OfTheStatisticsAreTyped)
{
    EXPECT_EQ(
        Described(
            u"SELECT  LEFT(SendTime,7) AS ppMonth, Count(*) AS ToTalCnt,  ISNULL(SUM(CASE WHEN SMSStatus IN ('0','1') THEN 1 ELSE 0 END),0) AS SMS0 FROM SMSLog_2012 GROUP BY LEFT(SendTime,7) "_q,
            3),
        (QStringList{u"ppMonth:varchar(7)?"_q, u"ToTalCnt:int?"_q, u"SMS0:int"_q}));
}

TEST(ResultColumns, OfAnInnerSelectAreThoseOfItsTable)
{
    EXPECT_EQ(
        Described(
            u" SELECT GSubCd, (CASE WHEN P.GroupCd IS NULL THEN '기타' ELSE (SELECT  GroupNm FROM SMSGroupMst WHERE GroupCd = P.GroupCd) END) AS GroupNm,  GSubNm FROM SMSGroupSub AS P "_q,
            3),
        (QStringList{u"GSubCd:int*"_q, u"GroupNm:varchar(100)?"_q, u"GSubNm:varchar(100)?"_q}));
}

TEST(ResultColumns, ExpressionsFollowTheServersRules)
{
    const std::pair<const char16_t*, const char16_t*> cases[] = {
        {u"1", u"int"},
        {u"-7", u"int"},
        {u"2147483648", u"numeric(10,0)"},
        {u"1.25", u"numeric(3,2)"},
        {u"''", u"varchar(1)"},
        {u"'it''s'", u"varchar(4)"},
        {u"'가나'", u"varchar(4)"},
        {u"N'가나'", u"nvarchar(2)"},
        {u"NULL", u"int?"},
        {u"getdate()", u"datetime"},
        {u"COUNT(*)", u"int?"},
        {u"ChargeCnt + 1", u"int?"},
        {u"ChargeCnt * ChargeUnit", u"money?"},
        {u"SUM(ChargeAmt)", u"money?"},
        {u"1.5 + 1.25", u"numeric(4,2)"},
        {u"1.5 * 1.25", u"numeric(6,3)"},
        {u"1 + 1.5", u"numeric(12,1)"},
        {u"SUM(1.5)", u"numeric(38,1)?"},
        {u"'a' + Remark", u"varchar(501)?"},
        {u"N'a' + Remark", u"nvarchar(501)?"},
        {u"LEFT(ChargeDt, 7)", u"varchar(7)?"},
        {u"RIGHT(ChargeDt, 99)", u"varchar(10)?"},
        {u"REPLACE(ChargeDt,'-','')", u"varchar(8000)?"},
        {u"CONVERT(varchar(10),RegDt,111)", u"varchar(10)?"},
        {u"CONVERT(varchar(10),getdate(),111)", u"varchar(10)"},
        {u"DATEADD(DAY, -1, ChargeDt)", u"datetime?"},
        {u"ISNULL(Remark,'')", u"varchar(500)"},
        {u"MAX(ChargeDt)", u"varchar(10)?"},
        {u"CASE WHEN ChargeCnt > 0 THEN 'a' END", u"varchar(1)?"},
        {u"CASE WHEN ChargeCnt > 0 THEN NULL ELSE 'ab' END", u"varchar(2)?"},
        {u"CASE ChargeCnt WHEN 1 THEN 1 ELSE 0 END", u"int"},
        {u"SOUNDEX(Remark)", u"varchar(8000)?"},
        {u"ChargeCnt % 2", u"varchar(8000)?"},
    };
    for (const auto& [expression, type] : cases)
        EXPECT_EQ(TypeOfExpression(QString::fromUtf16(expression)), QString::fromUtf16(type))
            << QString::fromUtf16(expression).toStdString();
}

TEST(ResultColumns, HaveTheNamesThatTheyAreGiven)
{
    EXPECT_EQ(Described(u"SELECT ChargeCnt AS n, ChargeCnt + 1 m, 'x' [한 글], COUNT(*) FROM SMSCharge"_q, 4),
              (QStringList{u"n:int?"_q, u"m:int?"_q, u"한 글:varchar(1)"_q, u":int?"_q}));
    EXPECT_EQ(Described(u"SELECT DISTINCT TOP 5 ChargeCnt FROM SMSCharge"_q, 1),
              QStringList{u"ChargeCnt:int?"_q});
}

TEST(ResultColumns, AreTextsWhereTheListIsNotUnderstood)
{
    EXPECT_EQ(Described(u"SELECT * FROM sqlite_master"_q, 2),
              (QStringList{u"x:varchar(8000)?"_q, u"x:varchar(8000)?"_q}));
}

} // namespace tsms::test
