#include "store/embedded/EmbeddedTables.h"

#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedDialect.h"
#include "store/engine/DatabaseError.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QStringList>
#include <QUuid>

namespace tsms {

namespace {

QString EmbeddedType(const ColumnDescription& column)
{
    switch (column.type) {
    case ColumnType::GeneratedKey:
        return QStringLiteral("INTEGER PRIMARY KEY AUTOINCREMENT");
    case ColumnType::Key:
        return QStringLiteral("INTEGER PRIMARY KEY");
    case ColumnType::Integer:
        return QStringLiteral("INTEGER");
    case ColumnType::Number:
        return QStringLiteral("NUMERIC");
    case ColumnType::DateTime:
        return QStringLiteral("TEXT");
    case ColumnType::Text:
        break;
    }
    return QStringLiteral("TEXT COLLATE ") + QLatin1String(KoreanCollationName) +
           (column.required ? QStringLiteral(" NOT NULL") : QString());
}

/// Columns take any value by themselves. These keep an integer column to what the server's takes: 32 bits,
/// and decimals cut off.
QString IntegerTriggers(const QString& table, const QString& column)
{
    QString text;
    for (const QString& event : {QStringLiteral("INSERT"), QStringLiteral("UPDATE OF %2")})
        text += (QStringLiteral("CREATE TRIGGER %1_%2_") + event.left(6) + QStringLiteral(" AFTER ") + event +
                 QStringLiteral(
                     " ON %1 WHEN NEW.%2 IS NOT NULL AND (typeof(NEW.%2) <> 'integer' "
                     "OR NEW.%2 NOT BETWEEN -2147483648 AND 2147483647) BEGIN "
                     "SELECT RAISE(ABORT, 'Conversion failed when converting the varchar value to data "
                     "type int.') WHERE typeof(NEW.%2) = 'text'; "
                     "SELECT RAISE(ABORT, 'Arithmetic overflow error converting expression to data type "
                     "int.') WHERE CAST(NEW.%2 AS INTEGER) NOT BETWEEN -2147483648 AND 2147483647; "
                     "UPDATE %1 SET %2 = CAST(NEW.%2 AS INTEGER) WHERE rowid = NEW.rowid; END;\n"))
                    .arg(table, column);
    return text;
}

/// The same for amounts: a text with digit groups becomes its number, any other text is refused.
QString NumberTriggers(const QString& table, const QString& column)
{
    QString text;
    for (const QString& event : {QStringLiteral("INSERT"), QStringLiteral("UPDATE OF %2")})
        text += (QStringLiteral("CREATE TRIGGER %1_%2_") + event.left(6) + QStringLiteral(" AFTER ") + event +
                 QStringLiteral(
                     " ON %1 WHEN typeof(NEW.%2) = 'text' BEGIN "
                     "UPDATE %1 SET %2 = REPLACE(NEW.%2, ',', '') WHERE rowid = NEW.rowid; "
                     "SELECT RAISE(ABORT, 'Cannot convert a char value to money. The char value has "
                     "incorrect syntax.') FROM %1 WHERE rowid = NEW.rowid AND typeof(%2) = 'text'; END;\n"))
                    .arg(table, column);
    return text;
}

/// The name under which a file is made. What is left there at the end is removed.
class Draft
{
public:
    explicit Draft(const QString& path)
        : path_(path + QStringLiteral(".") + QUuid::createUuid().toString(QUuid::Id128))
    {
    }
    Draft(const Draft&) = delete;
    Draft& operator=(const Draft&) = delete;
    ~Draft()
    {
        for (const QString& suffix :
             {QString(), QStringLiteral("-wal"), QStringLiteral("-shm"), QStringLiteral("-journal")})
            QFile::remove(path_ + suffix);
    }

    const QString& Path() const { return path_; }

private:
    QString path_;
};

[[noreturn]] void RefusePlace(const QString& path)
{
    throw RuntimeError(CommunicationFailure, QStringLiteral("파일을 만들 수 없습니다: ") + path);
}

/// Its owner alone may read it. The files that the engine puts beside it take over who may.
void MakePrivateFile(const QString& path)
{
    if (!QFile(path).open(QIODevice::WriteOnly | QIODevice::NewOnly,
                          QFileDevice::ReadOwner | QFileDevice::WriteOwner))
        RefusePlace(path);
}

[[noreturn]] void RefuseTaken(const QString& path)
{
    throw RuntimeError(StatementFailure, QStringLiteral("같은 이름의 파일이 이미 있습니다: ") + path);
}

void MakeTables(EmbeddedConnection& connection, YearRange years, const std::function<void(Connection&)>& fill)
{
    connection.ExecuteNative(QStringLiteral("PRAGMA journal_mode=WAL"));
    connection.ExecuteNative(QStringLiteral("BEGIN"));
    for (const TableDescription& table : AllTables(years))
        connection.ExecuteNative(EmbeddedTableScript(table));
    connection.ExecuteNative(AccountRow());
    if (fill)
        fill(connection);
    connection.ExecuteNative(QStringLiteral("COMMIT"));
}

} // namespace

QString EmbeddedTableScript(const TableDescription& table)
{
    QStringList columns;
    for (const ColumnDescription& column : table.columns)
        columns += column.name + u' ' + EmbeddedType(column);
    QString text =
        QStringLiteral("CREATE TABLE %1 (%2);\n").arg(table.name, columns.join(QStringLiteral(", ")));
    for (qsizetype at = 0; at < table.indexes.size(); ++at)
        text += QStringLiteral("CREATE INDEX IX_%1_%2 ON %1 (%3);\n")
                    .arg(table.name, QString::number(at + 1), table.indexes[at]);
    for (const ColumnDescription& column : table.columns) {
        if (column.type == ColumnType::Integer)
            text += IntegerTriggers(table.name, column.name);
        else if (column.type == ColumnType::Number)
            text += NumberTriggers(table.name, column.name);
    }
    return text;
}

void CreateEmbeddedDatabase(const QString& path, YearRange years, const Clock& clock,
                            const std::function<void(Connection&)>& fill)
{
    const QFileInfo file(path);
    if (file.exists() || file.isSymLink())
        RefuseTaken(path);
    const Draft draft(file.absoluteFilePath());
    MakePrivateFile(draft.Path());
    EmbeddedConnection connection(clock);
    connection.OpenFile(draft.Path());
    MakeTables(connection, years, fill);
    connection.Close();
    if (QFile::rename(draft.Path(), file.absoluteFilePath()))
        return;
    if (file.exists())
        RefuseTaken(path);
    RefusePlace(path);
}

void AddEmbeddedLogYear(const QString& path, int year, const Clock& clock)
{
    const TableDescription table = LogTable(year);
    EmbeddedConnection connection(clock);
    connection.OpenFile(path);
    connection.ExecuteNative(QStringLiteral("BEGIN IMMEDIATE"));
    if (connection
            .Query(QStringLiteral("SELECT name FROM sqlite_master WHERE name = ") + u'\'' + table.name +
                   u'\'')
            ->RecordCount() > 0)
        throw RuntimeError(StatementFailure, table.name + QStringLiteral(" 테이블이 이미 있습니다."));
    connection.ExecuteNative(EmbeddedTableScript(table));
    connection.ExecuteNative(QStringLiteral("COMMIT"));
}

} // namespace tsms
