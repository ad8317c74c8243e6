#include "history/SendListStatement.h"

#include "runtime/Text.h"

#include <array>

namespace tsms {

namespace {

void AddWords(Statement& query, const SendListSearch& search)
{
    static constexpr std::array<QStringView, 3> conditions = {u" AND SendNm Like ", u" AND SendTelNo Like ",
                                                              u" AND SMSContent Like "};
    const QString words = Trim(search.words);
    const auto field = static_cast<std::size_t>(search.field);
    if (!words.isEmpty() && field < conditions.size())
        query.Own(conditions[field]).InQuotes(u'%' + words + u'%');
}

void AddStatus(Statement& query, int status)
{
    switch (status) {
    case 1:
        query.Own(u" AND (SMSStatus='1'");
        query.Own(u" AND DATEADD(DAY, -1, LEFT(SendTime,10)) >= CONVERT(varchar(10),getdate(),111))");
        break;
    case 2:
        query.Own(u" AND (SMSStatus='1'");
        query.Own(u" AND DATEADD(DAY, -1, LEFT(SendTime,10)) < CONVERT(varchar(10),getdate(),111))");
        break;
    case 3:
        query.Own(u" AND SMSStatus='2'");
        break;
    default:
        break; // meant: rows of status "0" are found here only
    }
}

QString WithoutHyphens(const QString& day)
{
    return Trim(day).remove(u'-');
}

} // namespace

Statement SendListStatement(const SendListSearch& search)
{
    Statement query(u"SELECT  SMSKey,");
    query.Own(u" SMSStatus, SMSNo, (CASE WHEN SMSStatus ='0' THEN '예약중' ELSE (CASE WHEN SMSStatus ='1' "
              u"THEN '성공' ELSE '실패' END) END),");
    query.Own(u" SendNm, SendTelNo, (LEFT(SendTime,10) + ' ' + REPLACE(RIGHT(SendTime,5),'-',':')) AS "
              u"nSendTime, ");
    query.Own(u" SMSContent, ErrCd, ErrMsg ");
    query.Own(u" FROM SMSLog_").Bare(search.period).Own(u" AS P WHERE  1 = 1 ");
    AddWords(query, search);
    AddStatus(query, search.status);
    // Meant: digits against the stored form with its hyphens. The database's text comparison makes it right.
    query.Own(u" AND (LEFT(SendTime,10) >= ").InQuotes(WithoutHyphens(search.first));
    query.Own(u" AND  LEFT(SendTime,10) < ").InQuotes(WithoutHyphens(search.dayAfterLast)).Own(u")");
    query.Own(u" ORDER BY SendTime DESC ");
    return query;
}

} // namespace tsms
