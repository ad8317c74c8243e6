#include "bench/odbc/Search.h"
#include "store/MakeConnections.h"

#include "bench/history/SendLog.h"
#include "bench/history/TextSum.h"
#include "bench/Measure.h"

#include "runtime/Clock.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/ScriptedDesktop.h"

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

Search SearchByProgram(Session& session)
{
    const SystemClock clock;
    test::ScriptedDesktop desktop;
    DBConnect db(session, desktop, MakeConnections(clock));
    const Statement statement = WholeYear();
    const std::int64_t from = Nanoseconds();
    db.ConnectDB();
    if (!db.OpenRecordset(statement)) {
        std::fprintf(stderr, "the program's search failed\n");
        std::exit(1);
    }
    const std::shared_ptr<const Recordset> records = db.ShareRecords();
    db.CloseDB();
    const std::int64_t to = Nanoseconds();

    TextSum sum;
    for (int row = 0; row < records->RecordCount(); ++row)
        for (int column = 0; column < records->FieldCount(); ++column)
            sum.Add(records->Text(row, column).toUtf8());
    return {static_cast<double>(to - from), sum.Bytes(), sum.Digest()};
}

} // namespace tsms::bench
