#include "support/server/ServerTables.h"

namespace tsms::test {

TableDescription ServerTable(const QString& name)
{
    static const QList<TableDescription> tables = AllTables({2010, 2010});
    const bool isLog = name.startsWith(QStringLiteral("SMSLog_"), Qt::CaseInsensitive);
    for (const TableDescription& table : tables)
        if (table.name.compare(isLog ? QStringLiteral("SMSLog_2010") : name, Qt::CaseInsensitive) == 0)
            return table;
    return {};
}

const ColumnDescription* FindColumn(const TableDescription& table, const QString& name)
{
    for (const ColumnDescription& column : table.columns)
        if (column.name.compare(name, Qt::CaseInsensitive) == 0)
            return &column;
    return nullptr;
}

ServerType TypeOf(const ColumnDescription& column)
{
    ServerType type;
    type.nullable = !column.required;
    switch (column.type) {
    case ColumnType::GeneratedKey:
    case ColumnType::Key:
        type.nullable = false;
        break;
    case ColumnType::Integer:
        break;
    case ColumnType::Number:
        type.kind = ServerType::Kind::Money;
        break;
    case ColumnType::DateTime:
        type.kind = ServerType::Kind::DateTime;
        break;
    case ColumnType::Text:
        type.kind = ServerType::Kind::VarChar;
        type.width = column.width > 0 ? column.width : Endless;
        break;
    }
    return type;
}

} // namespace tsms::test
