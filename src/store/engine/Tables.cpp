#include "store/engine/Tables.h"

#include <QStringList>

namespace tsms {

namespace {

TableDescription Groups()
{
    return {QStringLiteral("SMSGroupMst"),
            {{QStringLiteral("GroupCd"), ColumnType::GeneratedKey},
             {QStringLiteral("GroupNm"), ColumnType::Text, 100}},
            {QStringLiteral("GroupNm")},
            QStringLiteral("SELECT, INSERT, UPDATE, DELETE")};
}

TableDescription Members()
{
    return {QStringLiteral("SMSGroupSub"),
            {{QStringLiteral("GSubCd"), ColumnType::GeneratedKey},
             {QStringLiteral("GroupCd"), ColumnType::Integer},
             {QStringLiteral("GSubNm"), ColumnType::Text, 100},
             {QStringLiteral("GSPhone"), ColumnType::Text, 20}},
            {QStringLiteral("GroupCd"), QStringLiteral("GSubNm")},
            QStringLiteral("SELECT, INSERT, UPDATE, DELETE")};
}

TableDescription Categories()
{
    return {
        QStringLiteral("SMSTempLMst"),
        {{QStringLiteral("TempLCd"), ColumnType::Key}, {QStringLiteral("TempLNm"), ColumnType::Text, 100}},
        {},
        QStringLiteral("SELECT")};
}

TableDescription Templates()
{
    return {QStringLiteral("SMSTempLSub"),
            {{QStringLiteral("TempLSeq"), ColumnType::GeneratedKey},
             {QStringLiteral("TempLCd"), ColumnType::Integer},
             {QStringLiteral("TempLSubNm"), ColumnType::Text, 100},
             {QStringLiteral("TempLContent"), ColumnType::Text, 2000}},
            {QStringLiteral("TempLCd, TempLSeq")},
            QStringLiteral("SELECT, INSERT, UPDATE, DELETE")};
}

TableDescription Charges()
{
    return {QStringLiteral("SMSCharge"),
            {{QStringLiteral("SMSChargeKey"), ColumnType::GeneratedKey},
             {QStringLiteral("ChargeDt"), ColumnType::Text, 10},
             {QStringLiteral("ChargeCnt"), ColumnType::Integer},
             {QStringLiteral("ChargeAmt"), ColumnType::Number},
             {QStringLiteral("ChargeUnit"), ColumnType::Number},
             {QStringLiteral("Remark"), ColumnType::Text, 500},
             {QStringLiteral("RegDt"), ColumnType::DateTime}},
            {QStringLiteral("ChargeDt")},
            QStringLiteral("SELECT, INSERT, DELETE")};
}

QString ServerType(const ColumnDescription& column)
{
    switch (column.type) {
    case ColumnType::GeneratedKey:
        return QStringLiteral("int IDENTITY(1,1) NOT NULL");
    case ColumnType::Key:
        return QStringLiteral("int NOT NULL");
    case ColumnType::Integer:
        return QStringLiteral("int NULL");
    case ColumnType::Number:
        return QStringLiteral("money NULL"); // takes "1,000" as well as "1000"
    case ColumnType::DateTime:
        return QStringLiteral("datetime NULL");
    case ColumnType::Text:
        break;
    }
    return QStringLiteral("varchar(%1) COLLATE Korean_Wansung_CI_AS %2")
        .arg(column.width > 0 ? QString::number(column.width) : QStringLiteral("max"),
             column.required ? QStringLiteral("NOT NULL") : QStringLiteral("NULL"));
}

QString ScriptBeginning()
{
    return QStringLiteral("SET QUOTED_IDENTIFIER ON;\nGO\n");
}

QString ServerTable(const TableDescription& table)
{
    QStringList lines;
    for (const ColumnDescription& column : table.columns)
        lines += QStringLiteral("    %1 %2").arg(column.name, ServerType(column));
    for (const ColumnDescription& column : table.columns)
        if (column.type == ColumnType::GeneratedKey || column.type == ColumnType::Key)
            lines += QStringLiteral("    CONSTRAINT PK_%1 PRIMARY KEY CLUSTERED (%2)")
                         .arg(table.name, column.name);
    QString text = QStringLiteral("CREATE TABLE dbo.%1 (\n%2\n);\nGO\n")
                       .arg(table.name, lines.join(QStringLiteral(",\n")));
    for (qsizetype at = 0; at < table.indexes.size(); ++at)
        text += QStringLiteral("CREATE INDEX IX_%1_%2 ON dbo.%1 (%3);\nGO\n")
                    .arg(table.name, QString::number(at + 1), table.indexes[at]);
    return text;
}

bool ReadYear(QStringView text, int& into)
{
    if (text.size() != 4)
        return false;
    for (const QChar c : text)
        if (c < u'0' || c > u'9')
            return false;
    into = text.toInt();
    return into >= 1900 && into <= 2999;
}

} // namespace

// A message that has left must have its row. So what comes from a workbook, from the caller or from the
// gateway has no width here, and neither has a text into which a name from a workbook was put.
TableDescription LogTable(int year)
{
    return {QStringLiteral("SMSLog_%1").arg(year),
            {{QStringLiteral("SMSKey"), ColumnType::GeneratedKey},
             {QStringLiteral("SMSStatus"), ColumnType::Text, 1, true},
             {QStringLiteral("SMSNo"), ColumnType::Text},
             {QStringLiteral("SMSID"), ColumnType::Text, 50},
             {QStringLiteral("SendNm"), ColumnType::Text},
             {QStringLiteral("SendTelNo"), ColumnType::Text},
             {QStringLiteral("ReceiveTelNo"), ColumnType::Text, 50},
             {QStringLiteral("SMSContent"), ColumnType::Text},
             {QStringLiteral("SendTime"), ColumnType::Text, 16},
             {QStringLiteral("UserData1"), ColumnType::Text, 20},
             {QStringLiteral("UserData2"), ColumnType::Text},
             {QStringLiteral("UserData3"), ColumnType::Text, 500},
             {QStringLiteral("ErrCd"), ColumnType::Text},
             {QStringLiteral("ErrMsg"), ColumnType::Text},
             {QStringLiteral("RegDt"), ColumnType::DateTime}},
            // By time, and within one time as they were written. With the status the statistics need no row.
            {QStringLiteral("SendTime, SMSKey, SMSStatus")},
            QStringLiteral("SELECT, INSERT, DELETE")};
}

TableDescription AccountTable()
{
    return {QStringLiteral("SMSSetup"),
            {{QStringLiteral("SMSID"), ColumnType::Text, 50},
             {QStringLiteral("SMSPWD"), ColumnType::Text, 50},
             {QStringLiteral("SMSDNS"), ColumnType::Text, 100},
             {QStringLiteral("SMSTelNo"), ColumnType::Text, 20},
             {QStringLiteral("SMSOrgNm"), ColumnType::Text, 50},
             {QStringLiteral("SMSAuto1"), ColumnType::Text, 1},
             {QStringLiteral("SMSAuto2"), ColumnType::Text, 1},
             {QStringLiteral("SMSRemainCnt"), ColumnType::Integer},
             {QStringLiteral("SMSWeb1"), ColumnType::Text, 255},
             {QStringLiteral("SMSWeb2"), ColumnType::Text, 255}},
            {},
            QStringLiteral("SELECT, UPDATE")};
}

QList<TableDescription> LastingTables()
{
    return {AccountTable(), Groups(), Members(), Categories(), Templates(), Charges()};
}

QList<TableDescription> AllTables(YearRange years)
{
    QList<TableDescription> tables = LastingTables();
    for (int year = years.first; year <= years.last; ++year)
        tables += LogTable(year);
    return tables;
}

bool ReadYearRange(QStringView text, YearRange& into)
{
    const qsizetype sign = text.indexOf(u'-');
    YearRange read;
    if (!ReadYear(sign < 0 ? text : text.first(sign), read.first) ||
        !ReadYear(sign < 0 ? text : text.sliced(sign + 1), read.last) || read.first > read.last)
        return false;
    into = read;
    return true;
}

QString AccountRow()
{
    return QStringLiteral(
        "INSERT INTO SMSSetup (SMSID, SMSPWD, SMSDNS, SMSTelNo, SMSOrgNm, SMSAuto1, SMSAuto2, "
        "SMSRemainCnt, SMSWeb1, SMSWeb2) SELECT '', '', '', '', '', '0', '0', 0, '', '' "
        "WHERE NOT EXISTS (SELECT * FROM SMSSetup)");
}

QString ServerTables(const QList<TableDescription>& tables)
{
    QString text = ScriptBeginning();
    for (const TableDescription& table : tables)
        text += ServerTable(table);
    return text;
}

QString ServerAccountRow()
{
    return AccountRow() + QStringLiteral(";\nGO\n");
}

QString ServerScript(YearRange years)
{
    return ServerTables(AllTables(years)) + ServerAccountRow();
}

QString ServerLogScript(int year)
{
    return ServerTables({LogTable(year)});
}

QString ServerTableGrants(const QString& user, const QList<TableDescription>& tables)
{
    const QString name = QString(user).replace(u']', QStringLiteral("]]"));
    QString text;
    for (const TableDescription& table : tables)
        text += QStringLiteral("GRANT %1 ON dbo.%2 TO [%3];\n").arg(table.rights, table.name, name);
    return text;
}

QString ServerGrants(const QString& user, YearRange years)
{
    return ServerTableGrants(user, AllTables(years));
}

} // namespace tsms
