#include "account/ChargeStatements.h"

namespace tsms {

namespace {

void AddNumber(Statement& statement, const std::optional<QString>& number)
{
    if (number)
        statement.Bare(*number);
    else
        statement.Own(u"Null");
}

} // namespace

Statement ChargeQuery()
{
    Statement query(u"SELECT  SMSChargeKey,");
    query.Own(u" ChargeDt, ChargeCnt, ChargeAmt, ChargeUnit, Remark, RegDt ");
    query.Own(u" FROM SMSCharge");
    query.Own(u" ORDER BY ChargeDt DESC ");
    return query;
}

Statement ChargeInsert(const ChargeEntry& entry)
{
    Statement insert(u"Insert INTO SMSCharge ");
    insert.Own(u" (ChargeDt, ChargeCnt, ChargeAmt,ChargeUnit,Remark,RegDt ) ");
    insert.Own(u" VALUES (");
    insert.InQuotes(entry.ChargeDt).Own(u",");
    AddNumber(insert, entry.ChargeCnt);
    insert.Own(u",");
    AddNumber(insert, entry.ChargeAmt);
    insert.Own(u",");
    insert.Quoted(entry.ChargeUnit).Own(u",");
    insert.Quoted(entry.Remark).Own(u",");
    insert.Own(u"getdate()").Own(u")");
    return insert;
}

Statement ChargeDelete(const QString& key)
{
    return Statement(u"DELETE FROM SMSCharge WHERE SMSChargeKey =").Bare(key);
}

Statement BalancePlus(const QString& count)
{
    return Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + ").Bare(count);
}

Statement BalanceMinus(const QString& count)
{
    return Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt - ").Bare(count);
}

} // namespace tsms
