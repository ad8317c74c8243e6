#include "bench/history/Search.h"

#include "bench/history/SendLog.h"
#include "bench/OtherTool.h"

namespace tsms::bench {

namespace {

constexpr char Unit = '\x1F';   // behind each value but a row's last
constexpr char Record = '\x1E'; // behind each row

QString Question()
{
    return QStringLiteral("SELECT SMSKey, SMSStatus, SMSNo,"
                          " CASE SMSStatus COLLATE BINARY WHEN '0' THEN '예약중' WHEN '1' THEN '성공'"
                          " ELSE '실패' END, SendNm, SendTelNo,"
                          " substr(SendTime, 1, 10) || ' ' || replace(substr(SendTime, -5), '-', ':'),"
                          " SMSContent, ErrCd, ErrMsg FROM SMSLog_%1"
                          " WHERE SendTime COLLATE BINARY >= '%1-01-01'"
                          " AND SendTime COLLATE BINARY < '%2-01-01'"
                          " ORDER BY SendTime COLLATE BINARY DESC")
        .arg(LogYear)
        .arg(LogYear + 1);
}

} // namespace

Search SearchInShell(const QString& database)
{
    const ToolRun run = RunTool(QStringLiteral("sqlite3"),
                                {QStringLiteral("-batch"), QStringLiteral("-ascii"), database, Question()});
    Search search;
    search.cost = run.cost;
    search.texts = run.output.size() - run.output.count(Unit) - run.output.count(Record);
    return search;
}

} // namespace tsms::bench
