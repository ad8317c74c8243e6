#include "store/embedded/EmbeddedConnection.h"

#include "runtime/CodePage949.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/embedded/EmbeddedErrors.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"

#include <QFileInfo>

#include <sqlite3.h>

namespace tsms {

namespace {

QString FirstToken(const QString& text)
{
    const QString trimmed = text.trimmed();
    qsizetype end = 0;
    while (end < trimmed.size() && (trimmed[end].isLetterOrNumber() || trimmed[end] == u'_'))
        ++end;
    return trimmed.left(qMax(end, 1));
}

/// A plain literal is in the code page of the server's database, whatever becomes of it.
QString InServersCharacters(const QString& sql)
{
    QStringList pieces = sql.split(u'\''); // every other one stands in quotes
    for (qsizetype at = 1; at < pieces.size(); at += 2)
        pieces[at] = FromCodePage949(ToCodePage949(pieces[at]));
    return pieces.join(u'\'');
}

} // namespace

/// One statement, ready to step.
class EmbeddedConnection::Prepared
{
public:
    Prepared(EmbeddedConnection& connection, const QString& sql) : connection_(connection), sql_(sql)
    {
        const QByteArray text = ToEmbeddedDialect(sql);
        const char* tail = nullptr;
        if (sqlite3_prepare_v2(connection.Handle(), text.constData(), static_cast<int>(text.size()),
                               &statement_, &tail) != SQLITE_OK)
            Fail();
        RefuseSecondStatement(QString::fromUtf8(tail, text.constData() + text.size() - tail));
    }
    Prepared(const Prepared&) = delete;
    Prepared& operator=(const Prepared&) = delete;
    ~Prepared() { sqlite3_finalize(statement_); }

    /// False at the end.
    bool Step()
    {
        switch (sqlite3_step(statement_)) {
        case SQLITE_ROW:
            return true;
        case SQLITE_DONE:
            return false;
        default:
            Fail();
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
        for (int column = 0; column < into.FieldCount(); ++column)
            switch (sqlite3_column_type(statement_, column)) {
            case SQLITE_NULL:
                into.AddNull();
                break;
            case SQLITE_INTEGER:
                into.AddInteger(sqlite3_column_int64(statement_, column));
                break;
            case SQLITE_FLOAT:
                into.AddReal(sqlite3_column_double(statement_, column));
                break;
            default: {
                const auto* text = reinterpret_cast<const char*>(sqlite3_column_text(statement_, column));
                into.AddText(text, sqlite3_column_bytes(statement_, column));
            }
            }
    }

private:
    [[noreturn]] void Fail() const { throw EmbeddedError(connection_.handle_, connection_.path_, sql_); }

    void RefuseSecondStatement(const QString& tail)
    {
        const QString token = FirstToken(tail);
        if (statement_ && token.isEmpty())
            return;
        sqlite3_finalize(statement_);
        throw RuntimeError(StatementFailure, SyntaxErrorNear(token));
    }

    EmbeddedConnection& connection_;
    const QString& sql_;
    sqlite3_stmt* statement_ = nullptr;
};

EmbeddedConnection::EmbeddedConnection(const Clock& clock) : clock_(clock) {}

EmbeddedConnection::~EmbeddedConnection()
{
    EmbeddedConnection::Close();
}

void EmbeddedConnection::Open()
{
    OpenFile(ParseConnectionText(ConnectionString).Catalog);
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
    insert_.Forget();
    sqlite3_close_v2(handle_);
    handle_ = nullptr;
}

sqlite3* EmbeddedConnection::Handle() const
{
    if (!handle_)
        throw RuntimeError(ObjectNotSet);
    return handle_;
}

std::unique_ptr<Recordset> EmbeddedConnection::Query(const QString& text)
{
    const QString sql = InServersCharacters(text);
    Prepared statement(*this, sql);
    auto records = std::make_unique<Recordset>(statement.FieldNames());
    while (statement.Step())
        statement.TakeRow(*records);
    return records;
}

void EmbeddedConnection::Execute(const QString& text)
{
    const QString sql = InServersCharacters(text);
    if (const auto insert = LiftLiterals(sql)) {
        if (!insert_.Run(Handle(), *insert))
            throw EmbeddedError(handle_, path_, sql);
        return;
    }
    Prepared statement(*this, sql);
    while (statement.Step()) {
    }
}

void EmbeddedConnection::ExecuteNative(const QString& sql)
{
    if (sqlite3_exec(Handle(), sql.toUtf8().constData(), nullptr, nullptr, nullptr) != SQLITE_OK)
        throw EmbeddedError(handle_, path_, sql);
}

} // namespace tsms
