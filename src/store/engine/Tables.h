#pragma once

#include <QList>
#include <QString>
#include <QStringView>

namespace tsms {

enum class ColumnType {
    GeneratedKey, ///< assigned by the server, never written
    Key,          ///< an integer key that is written
    Integer,
    Number, ///< an amount of money
    Text,
    DateTime,
};

struct ColumnDescription
{
    QString name;
    ColumnType type;
    int width = 0; ///< of a text, in bytes; 0: as long as it comes
    bool required = false;
};

struct TableDescription
{
    QString name;
    QList<ColumnDescription> columns;
    QList<QString> indexes; ///< each the column list of one index
    QString rights; ///< that the program's statements need of its log-in: "SELECT, UPDATE", as GRANT takes it
};

/// The first and the last year that have a send log.
struct YearRange
{
    int first = 2010;
    int last = 2030;
};

/// "2010-2030" or "2026". False for anything else, years out of 1900..2999 and a range that runs backwards.
bool ReadYearRange(QStringView text, YearRange& into);

TableDescription AccountTable();
TableDescription LogTable(int year);
QList<TableDescription> LastingTables(); ///< all but the logs
QList<TableDescription> AllTables(YearRange years);

/// The statement that writes the account row, empty and with a balance of 0, unless there is one.
QString AccountRow();

/// What makes these tables, in the dialect of the server: batches, each with a line "GO" behind it.
QString ServerTables(const QList<TableDescription>& tables);

/// AccountRow as a batch of the server.
QString ServerAccountRow();

/// What makes all tables and the one account row, in the dialect of the server. Run again it makes those that
/// are missing: the server refuses the others one by one, and the account row stays as it is.
QString ServerScript(YearRange years);

/// What makes the send log of one more year, in the dialect of the server.
QString ServerLogScript(int year);

/// What gives a user of the server's database the rights that the tables tell, a statement for each table.
QString ServerTableGrants(const QString& user, const QList<TableDescription>& tables);

/// What gives a user of the server's database the rights that the program needs, a statement for each table.
QString ServerGrants(const QString& user, YearRange years);

} // namespace tsms
