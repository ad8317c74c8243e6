#include "spreadsheet/write/TableSheet.h"

namespace tsms::test {

Sheet TableSheet(const QList<QStringList>& rows)
{
    Sheet sheet;
    sheet.columns.resize(rows.isEmpty() ? 0 : static_cast<std::size_t>(rows.first().size()));
    sheet.rows = static_cast<int>(rows.size());
    sheet.text = [rows](int col, int row) -> QStringView { return rows[row - 1][col - 1]; };
    return sheet;
}

Sheet ColumnSheet(const QStringList& texts)
{
    QList<QStringList> rows;
    for (const QString& text : texts)
        rows += QStringList{text};
    Sheet sheet = TableSheet(rows);
    sheet.columns.resize(1);
    sheet.titleRows = 0;
    return sheet;
}

} // namespace tsms::test
