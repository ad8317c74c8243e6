#include "bench/history/Search.h"

#include "bench/history/SendLog.h"
#include "bench/history/TextSum.h"
#include "bench/Measure.h"

#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedDialect.h"
#include "support/FixedClock.h"

#include <sqlite3.h>

#include <string>
#include <vector>

namespace tsms::bench {

namespace {

/// Texts one behind the other.
struct Arena
{
    std::string texts;
    std::vector<std::uint32_t> ends;
};

Arena Fetch(sqlite3* handle, const QByteArray& sql)
{
    Arena arena;
    sqlite3_stmt* statement = nullptr;
    Demand(sqlite3_prepare_v2(handle, sql.constData(), -1, &statement, nullptr) == SQLITE_OK,
           sqlite3_errmsg(handle));
    const int columns = sqlite3_column_count(statement);
    int state = 0;
    while ((state = sqlite3_step(statement)) == SQLITE_ROW) {
        for (int column = 0; column < columns; ++column) {
            if (const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement, column)))
                arena.texts.append(text, static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
            arena.ends.push_back(static_cast<std::uint32_t>(arena.texts.size()));
        }
    }
    Demand(state == SQLITE_DONE, sqlite3_errmsg(handle));
    sqlite3_finalize(statement);
    return arena;
}

} // namespace

Search FetchBare(const QString& database)
{
    const test::FixedClock clock(Moment());
    sqlite3* handle = nullptr;
    Demand(sqlite3_open_v2(database.toUtf8().constData(), &handle,
                           SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX, nullptr) == SQLITE_OK,
           sqlite3_errmsg(handle));
    PrepareEmbeddedHandle(handle, clock);
    const QByteArray sql = ToEmbeddedDialect(WholeYear().Text()); // as the program hands it to the engine
    ForgetPeakMemory();
    const long held = HeldMemory();
    const std::int64_t from = Nanoseconds();
    const Arena arena = Fetch(handle, sql);
    const std::int64_t to = Nanoseconds();
    const long most = PeakMemory();
    sqlite3_close(handle);

    TextSum sum;
    std::size_t begin = 0;
    for (const std::uint32_t end : arena.ends) {
        sum.Add(QByteArrayView(arena.texts.data() + begin, static_cast<qsizetype>(end - begin)));
        begin = end;
    }
    return {{static_cast<double>(to - from), most},
            static_cast<double>(most - held) * 1024,
            sum.Bytes(),
            sum.Digest()};
}

} // namespace tsms::bench
