#include "support/server/ServerEngine.h"

#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedTables.h"
#include "store/engine/DatabaseError.h"
#include "support/server/ResultColumns.h"
#include "support/server/ServerError.h"
#include "support/server/ServerLimits.h"
#include "support/server/ServerTables.h"
#include "support/server/StatementTokens.h"

namespace tsms::test {

namespace {

using Kind = ServerStatement::Kind;

constexpr int SyntaxClass = 15;
constexpr int RowCode = 0xD1;

QByteArray Failure(const QList<ServerError>& errors)
{
    QByteArray tokens;
    for (const ServerError& error : errors)
        tokens += ErrorToken(error);
    return tokens + FailedToken();
}

QByteArray Row(const Recordset& records, int row, const QList<ServerColumn>& columns)
{
    QByteArray token(1, static_cast<char>(RowCode));
    for (int column = 0; column < columns.size(); ++column) {
        const ServerType& type = columns[column].Type;
        token += records.IsNull(row, column) ? NullBytes(type) : ValueBytes(type, records.Text(row, column));
    }
    return token;
}

/// Of rights: also what somebody may not pass on is told to be missing.
RuntimeError NoSuchObject(const QString& table)
{
    return RuntimeError(StatementFailure, QStringLiteral("Cannot find the object '%1', because it does not "
                                                         "exist or you do not have permission.")
                                              .arg(table));
}

/// What a client asks for to know the server, as the texts that it is answered with.
QString WithAnswers(const QString& sql)
{
    if (sql != QStringLiteral("SELECT @@VERSION, @@LANGUAGE"))
        return sql;
    return QStringLiteral("SELECT 'Microsoft SQL Server, as the tests imitate it', 'us_english'");
}

StatementKind DoneKind(Kind kind)
{
    switch (kind) {
    case Kind::Insert:
        return StatementKind::Insert;
    case Kind::Update:
        return StatementKind::Update;
    case Kind::Delete:
        return StatementKind::Delete;
    default:
        return StatementKind::Other;
    }
}

} // namespace

ServerEngine::ServerEngine(ServerDatabases& databases, const QString& name, const Clock& clock,
                           ServerUsers& users, const QString& user)
    : connection_(clock), databases_(databases), database_(name), users_(users), user_(user)
{
    connection_.ConnectionTimeout = 1;
    connection_.CommandTimeout = 0; // who waits for a lock has to hear an attention meanwhile
    connection_.OpenFile(databases.PathOf(name).value_or(QString()));
}

std::optional<QByteArray> ServerEngine::Run(const QString& batch)
{
    try {
        const QList<ServerStatement> statements = SplitBatch(batch);
        return statements.isEmpty() ? DoneToken(StatementKind::Other, -1, false) : RunAll(statements);
    } catch (const RuntimeError& error) {
        if (error.Number == CommandTimedOut)
            return std::nullopt;
        return Failure(ServerErrors(error, batch));
    }
}

QByteArray ServerEngine::RunAll(const QList<ServerStatement>& statements)
{
    if (statements.size() == 1)
        return RunOne(statements.first(), false);
    QByteArray tokens;
    const QString begin = transacts_ ? QStringLiteral("SAVEPOINT batch") : QStringLiteral("BEGIN");
    const QString undo = transacts_ ? QStringLiteral("ROLLBACK TO batch") : QStringLiteral("ROLLBACK");
    const QString keep = transacts_ ? QStringLiteral("RELEASE batch") : QStringLiteral("COMMIT");
    connection_.ExecuteNative(begin);
    try {
        for (const ServerStatement& statement : statements)
            tokens += RunOne(statement, &statement != &statements.last());
    } catch (const RuntimeError& error) {
        const QList<ServerError> errors = ServerErrors(error, {});
        if (error.Number == CommandTimedOut || errors.first().Class == SyntaxClass) {
            connection_.ExecuteNative(undo);
            throw;
        }
        tokens += Failure(errors);
    }
    connection_.ExecuteNative(keep);
    return tokens;
}

QByteArray ServerEngine::RunOne(const ServerStatement& statement, bool moreFollows)
{
    RefuseWithoutRight(statement);
    RefuseWhatTheEngineAloneTakes(statement.Text);
    switch (statement.kind) {
    case Kind::Set:
        return DoneToken(StatementKind::Other, -1, moreFollows);
    case Kind::Use:
        return Use(statement, moreFollows);
    case Kind::Select:
        return Select(statement.Text, moreFollows);
    case Kind::Rights:
        return ChangeRights(statement.Text, moreFollows);
    case Kind::Transaction:
        return Transact(statement.Text, moreFollows);
    default:
        return Change(statement, moreFollows);
    }
}

QByteArray ServerEngine::Use(const ServerStatement& statement, bool moreFollows) const
{
    const QString name = StatementTokens(statement.Text).Name(1);
    if (name.compare(database_, Qt::CaseInsensitive) != 0)
        throw RuntimeError(StatementFailure, QStringLiteral("Database '%1' does not exist. Make sure that "
                                                            "the name is entered correctly.")
                                                 .arg(name));
    return DatabaseChange(database_, database_) + InfoToken(DatabaseIs(database_)) +
           DoneToken(StatementKind::Other, -1, moreFollows);
}

QByteArray ServerEngine::Select(const QString& text, bool moreFollows)
{
    const QString sql = WithAnswers(text);
    const std::unique_ptr<Recordset> records = connection_.Query(EngineText(sql));
    QStringList names;
    for (int column = 0; column < records->FieldCount(); ++column)
        names += records->FieldName(column);
    const QList<ServerColumn> columns = ResultColumns(sql, names);
    QByteArray tokens = ColumnsToken(columns);
    for (int row = 0; row < records->RecordCount(); ++row)
        tokens += Row(*records, row, columns);
    return tokens + DoneToken(StatementKind::Select, records->RecordCount(), moreFollows);
}

QByteArray ServerEngine::Change(const ServerStatement& statement, bool moreFollows)
{
    if (statement.kind == Kind::Other) {
        Define(statement.Text);
        return DoneToken(StatementKind::Other, -1, moreFollows);
    }
    RefuseLongTexts(statement.Text);
    connection_.Execute(EngineText(statement.Text));
    const qint64 count = connection_.Query(QStringLiteral("SELECT changes()"))->Field(0).toLongLong();
    return DoneToken(DoneKind(statement.kind), count, moreFollows);
}

QByteArray ServerEngine::ChangeRights(const QString& sql, bool moreFollows)
{
    const QString table = TableOfRights(sql);
    if (!HasTable(table))
        throw NoSuchObject(table);
    users_.Change(sql);
    return DoneToken(StatementKind::Other, -1, moreFollows);
}

/// Rights that are granted in a transaction stay granted whatever becomes of it.
QByteArray ServerEngine::Transact(const QString& sql, bool moreFollows)
{
    const QString word = sql.section(u' ', 0, 0).toUpper();
    connection_.ExecuteNative(word);
    transacts_ = word == u"BEGIN";
    return DoneToken(StatementKind::Other, -1, moreFollows);
}

/// A table that is not there is no matter of rights: the statement fails on it.
void ServerEngine::RefuseWithoutRight(const ServerStatement& statement)
{
    if (user_.isEmpty() || statement.IsSetting() || statement.kind == Kind::Transaction)
        return;
    if (statement.kind == Kind::Rights)
        throw NoSuchObject(TableOfRights(statement.Text));
    if (statement.kind == Kind::Other)
        throw RuntimeError(StatementFailure,
                           QStringLiteral("%1 permission denied in database '%2'.")
                               .arg(statement.Text.section(u' ', 0, 1).toUpper(), database_));
    for (const TableRight& right : RightsFor(statement))
        if (!users_.MayDo(user_, right) && HasTable(right.Table))
            throw RuntimeError(StatementFailure,
                               QStringLiteral("The %1 permission was denied on the object '%2', database "
                                              "'%3', schema 'dbo'.")
                                   .arg(right.Action, right.Table, database_));
}

bool ServerEngine::HasTable(const QString& name)
{
    const QString sql =
        QStringLiteral("SELECT name FROM sqlite_master WHERE type='table' AND name='%1' COLLATE NOCASE");
    return connection_.Query(sql.arg(name))->RecordCount() > 0;
}

/// Empties a table and begins its keys anew.
void ServerEngine::Truncate(const QString& table)
{
    if (!HasTable(table))
        throw RuntimeError(StatementFailure, QStringLiteral("Cannot find the object \"%1\" because it does "
                                                            "not exist or you do not have permissions.")
                                                 .arg(table));
    connection_.ExecuteNative(QStringLiteral("DELETE FROM ") + table);
    connection_.ExecuteNative(
        QStringLiteral("DELETE FROM sqlite_sequence WHERE name='%1' COLLATE NOCASE").arg(table));
}

/// Databases, and the program's tables in the form that the engine gives them, their indexes included.
void ServerEngine::Define(const QString& sql)
{
    const StatementTokens tokens(sql);
    const int at = tokens[3] == "." ? 4 : 2;
    if (tokens.Is(0, "CREATE") && tokens.Is(1, "DATABASE")) {
        databases_.Create(tokens.Name(2));
    } else if (tokens.Is(0, "DROP") && tokens.Is(1, "DATABASE")) {
        databases_.Drop(tokens.Name(2));
    } else if (tokens.Is(0, "CREATE") && tokens.Is(1, "INDEX")) {
        return;
    } else if (tokens.Is(0, "TRUNCATE") && tokens.Is(1, "TABLE")) {
        Truncate(tokens.Name(at));
    } else if (TableDescription table = ServerTable(tokens.Name(at));
               tokens.Is(0, "CREATE") && tokens.Is(1, "TABLE") && !table.columns.isEmpty()) {
        table.name = tokens.Name(at);
        connection_.ExecuteNative(EmbeddedTableScript(table));
    } else {
        connection_.Execute(EngineText(sql));
    }
}

} // namespace tsms::test
