#include "store/embedded/EmbeddedConnection.h"

#include "runtime/CodePage949.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/embedded/EmbeddedErrors.h"
#include "store/embedded/WriteAheadRoom.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"

#include <QFileInfo>
#include <QStringEncoder>
#include <QVarLengthArray>

#include <sqlite3.h>

#include <algorithm>
#include <utility>

namespace tsms {

namespace {

/// What a run goes through in turn, and no more.
constexpr qsizetype MostKept = 8;

QString FirstToken(const QString& text)
{
    const QString trimmed = text.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && (trimmed[end].isLetterOrNumber() || trimmed[end] == u'_'))
        ++end;
    return trimmed.left(qMax(end, 1));
}

/// Of ASCII and the syllables of Hangul alone, all of which stand in the code page.
bool IsInCodePage(const QString& text)
{
    return std::all_of(text.begin(), text.end(),
                       [](QChar c) { return c < u'\x80' || (c >= u'\xAC00' && c <= u'\xD7A3'); });
}

/// A plain literal is in the code page of the server's database, whatever becomes of it.
QString InServersCharacters(const QString& text)
{
    return IsInCodePage(text) ? text : FromCodePage949(ToCodePage949(text));
}

QString WithLiteralsInServersCharacters(const QString& sql)
{
    QStringList pieces = sql.split(u'\''); // every other one stands in quotes
    for (qsizetype at = 1; at < pieces.size(); at += 2)
        pieces[at] = InServersCharacters(pieces[at]);
    return pieces.join(u'\'');
}

/// For as long as it lives, the engine calls a function between its steps, some hundred times a second.
class Interludes
{
public:
    Interludes(sqlite3* handle, const std::function<void()>& call) : handle_(handle)
    {
        constexpr int steps = 20'000;
        if (call)
            sqlite3_progress_handler(handle_, steps, &Call, const_cast<std::function<void()>*>(&call));
    }
    ~Interludes() { sqlite3_progress_handler(handle_, 0, nullptr, nullptr); }
    Interludes(const Interludes&) = delete;
    Interludes& operator=(const Interludes&) = delete;

private:
    static int Call(void* call) noexcept
    {
        (*static_cast<const std::function<void()>*>(call))();
        return 0; // go on
    }

    sqlite3* handle_;
};

} // namespace

/// One statement that runs, with its values bound.
class EmbeddedConnection::Running
{
public:
    Running(EmbeddedConnection& connection, const Statement& statement)
        : connection_(connection),
          words_(statement.HasApostrophe() ? statement.Text() : statement.Words()),
          statement_(connection.Prepared(words_))
    {
        if (!statement.HasApostrophe())
            Bind(statement.Values());
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running()
    {
        sqlite3_reset(statement_);
        sqlite3_clear_bindings(statement_); // their texts go with this
    }

    /// False at the end.
    bool Step()
    {
        switch (sqlite3_step(statement_)) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            throw EmbeddedError(connection_.handle_, connection_.path_, words_);
        }
    }

    QStringList FieldNames() const
    {
        QStringList names;
        for (int column = 0; column < sqlite3_column_count(statement_); ++column)
            names += QString::fromUtf8(sqlite3_column_name(statement_, column));
        return names;
    }

    void TakeRow(Recordset& into) const
    {
        for (int column = 0; column < into.FieldCount(); ++column) {
            // Asked for once: each question about a column is guarded anew. A handle without a mutex allows
            // it.
            sqlite3_value* const value = sqlite3_column_value(statement_, column);
            switch (sqlite3_value_type(value)) {
            case SQLITE_NULL:
                into.AddNull();
                break;
            case SQLITE_INTEGER:
                into.AddInteger(sqlite3_value_int64(value));
                break;
            case SQLITE_FLOAT:
                into.AddReal(sqlite3_value_double(value));
                break;
            default: {
                const auto* text = reinterpret_cast<const char*>(sqlite3_value_text(value));
                into.AddText(text, sqlite3_value_bytes(value));
            }
            }
        }
    }

private:
    void Bind(const QList<Statement::Value>& values)
    {
        QVarLengthArray<QString, 16> texts; // the row of a send has fewer
        qsizetype units = 0;
        for (const Statement::Value& value : values) {
            texts.append(InServersCharacters(value.text.value_or(QString())));
            units += texts.back().size();
        }
        bytes_.resize(utf8_.requiredSpace(units)); // one behind the other
        char* end = bytes_.data();
        for (int at = 0; at < texts.size(); ++at) {
            const char* const from = end;
            end = utf8_.appendToBuffer(end, texts[at]);
            const int result = values[at].text ? sqlite3_bind_text64(statement_, at + 1, from,
                                                                     static_cast<sqlite3_uint64>(end - from),
                                                                     SQLITE_STATIC, SQLITE_UTF8)
                                               : sqlite3_bind_null(statement_, at + 1);
            if (result != SQLITE_OK)
                throw EmbeddedError(connection_.handle_, connection_.path_, words_);
        }
    }

    EmbeddedConnection& connection_;
    QString words_;
    sqlite3_stmt* statement_;
    QStringEncoder utf8_{QStringConverter::Utf8, QStringConverter::Flag::Stateless};
    QByteArray bytes_; ///< of the bound texts
};

EmbeddedConnection::EmbeddedConnection(const Clock& clock) : clock_(clock) {}

EmbeddedConnection::~EmbeddedConnection()
{
    EmbeddedConnection::Close();
}

void EmbeddedConnection::Open()
{
    OpenFile(ParseConnectionText(ConnectionString).catalog);
}

void EmbeddedConnection::OpenFile(const QString& path, bool make)
{
    Close();
    // The full name also keeps the engine from taking a name like ":memory:" for something else than a file.
    path_ = path.isEmpty() ? path : QFileInfo(path).absoluteFilePath();
    if (!make && !QFileInfo(path_).isFile())
        throw UnreachableFile(path_);
    const int flags = SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (make ? SQLITE_OPEN_CREATE : 0);
    if (sqlite3_open_v2(path_.toUtf8().constData(), &handle_, flags, nullptr) != SQLITE_OK) {
        Close();
        throw UnreachableFile(path_);
    }
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DQS_DML, 0, nullptr);
    sqlite3_db_config(handle_, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr);
    sqlite3_limit(handle_, SQLITE_LIMIT_ATTACHED, 0);
    PrepareEmbeddedHandle(handle_, clock_);
    sqlite3_busy_timeout(handle_, ConnectionTimeout * 1000);
    // The file is not looked at before the first statement. Whatever keeps it from being read, the log-in
    // failed.
    if (sqlite3_exec(handle_, "PRAGMA synchronous=FULL; SELECT 1 FROM sqlite_master LIMIT 1", nullptr,
                     nullptr, nullptr) != SQLITE_OK) {
        Close();
        throw UnreachableFile(path_);
    }
    sqlite3_busy_timeout(handle_, CommandTimeout * 1000);
}

void EmbeddedConnection::Close()
{
    for (const Kept& kept : std::as_const(kept_))
        sqlite3_finalize(kept.statement);
    kept_.clear();
    sqlite3_close_v2(handle_);
    handle_ = nullptr;
}

sqlite3* EmbeddedConnection::Handle() const
{
    if (!handle_)
        throw RuntimeError(ObjectNotSet);
    return handle_;
}

sqlite3_stmt* EmbeddedConnection::Prepared(const QString& words)
{
    for (const Kept& kept : std::as_const(kept_))
        if (kept.words == words)
            return kept.statement;
    sqlite3_stmt* statement = Prepare(words);
    if (kept_.size() == MostKept)
        sqlite3_finalize(kept_.takeFirst().statement);
    kept_ += Kept{words, statement};
    return statement;
}

sqlite3_stmt* EmbeddedConnection::Prepare(const QString& words) const
{
    const QString sql = WithLiteralsInServersCharacters(words);
    const QByteArray text = ToEmbeddedDialect(sql);
    sqlite3_stmt* statement = nullptr;
    const char* tail = nullptr;
    if (sqlite3_prepare_v2(Handle(), text.constData(), static_cast<int>(text.size()), &statement, &tail) !=
        SQLITE_OK)
        throw EmbeddedError(handle_, path_, sql);
    const QString second = FirstToken(QString::fromUtf8(tail, text.constData() + text.size() - tail));
    if (statement && second.isEmpty())
        return statement;
    sqlite3_finalize(statement);
    throw RuntimeError(StatementFailure, SyntaxErrorNear(second));
}

std::unique_ptr<Recordset> EmbeddedConnection::Query(const Statement& statement)
{
    Running running(*this, statement);
    const Interludes interludes(handle_, WhileReading);
    bool hasRow = running.Step(); // which also brings the fields of a table that has changed since
    auto records = std::make_unique<Recordset>(running.FieldNames());
    for (; hasRow; hasRow = running.Step())
        running.TakeRow(*records);
    return records;
}

void EmbeddedConnection::Execute(const Statement& statement)
{
    Running running(*this, statement);
    while (running.Step()) {
    }
}

void EmbeddedConnection::ExpectChanges(int changes)
{
    if (!handle_)
        return;
    sqlite3_busy_timeout(handle_, 0);
    MakeWriteAheadRoom(handle_, changes);
    sqlite3_busy_timeout(handle_, CommandTimeout * 1000);
}

void EmbeddedConnection::ExecuteNative(const QString& sql)
{
    if (sqlite3_exec(Handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw EmbeddedError(handle_, path_, sql);
}

} // namespace tsms
