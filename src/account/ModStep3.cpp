#include "account/ModStep3.h"

#include "toolkit/fpSpread.h"
#include "toolkit/GridHelper.h"

#include <QColor>
#include <QString>

namespace tsms {

namespace {

enum class Format { Plain, Centred, Number };

struct LedgerColumn
{
    QString title;
    double width;
    Format format;
    QColor back;
};

struct FigureRow
{
    QString title;
    QColor text;
    QColor back;
};

} // namespace

void InitChargeGrid(fpSpread& grid)
{
    const GridHelper helper;
    const LedgerColumn columns[] = {
        {QString(), 7.5, Format::Centred, {}},
        {QStringLiteral("충전일시"), 13, Format::Centred, QColor(228, 234, 244)},
        {QStringLiteral("건수"), 9, Format::Number, QColor(255, 255, 214)},
        {QStringLiteral("금액"), 10, Format::Number, QColor(253, 241, 227)},
        {QStringLiteral("단가"), 6, Format::Centred, {}},
        {QStringLiteral("메모사항"), 38.7, Format::Plain, {}},
        {QStringLiteral("등록일시"), 18, Format::Plain, {}},
    };
    helper.PrepareGrid(grid);
    grid.SetRowCursor(true);
    grid.SetRowHeight(0, 16);
    grid.SetRowHeight(fpSpread::All, 16);
    int col = 0;
    for (const LedgerColumn& column : columns) {
        ++col;
        grid.SetText(col, 0, column.title);
        grid.SetColWidth(col, column.width);
        if (column.format == Format::Centred)
            helper.FormatColumn(grid, col, 2);
        if (column.format == Format::Number)
            helper.NumberColumn(grid, col);
        if (column.back.isValid())
            helper.SetRangeColors(grid, col, fpSpread::All, column.back, Qt::black);
    }
    grid.SetMaxCols(col);
    grid.SetMaxRows(0);
    helper.HideColumn(grid, ChargeKey);
}

void InitMonthGrid(fpSpread& grid)
{
    const GridHelper helper;
    const QColor plain(240, 240, 240);
    const FigureRow rows[] = {
        {QStringLiteral("발송건수"), Qt::black, plain},
        {QStringLiteral("성공"), QColor(0, 0, 255), QColor(232, 236, 243)},
        {QStringLiteral("실패"), QColor(255, 0, 0), QColor(253, 241, 227)},
        {QStringLiteral("수신율"), Qt::black, plain},
    };
    helper.PrepareGrid(grid);
    grid.SetHeadersVisible(true, true);
    grid.SetMaxRows(MonthRate);
    grid.SetMaxCols(MonthTotalColumn);
    grid.SetRowHeight(0, 17);
    grid.SetRowHeight(fpSpread::All, 20);
    grid.SetColWidth(0, 8);
    for (int month = 1; month <= Months; ++month) {
        grid.SetText(month, 0, QString::number(month) + QStringLiteral("월"));
        grid.SetColWidth(month, 7);
        helper.NumberColumn(grid, month);
    }
    grid.SetText(MonthTotalColumn, 0, QStringLiteral("전체합계"));
    grid.SetColWidth(MonthTotalColumn, 8);

    int row = 0;
    for (const FigureRow& figures : rows) {
        ++row;
        grid.SetText(0, row, figures.title);
        helper.SetRangeColors(grid, fpSpread::All, row, figures.back, figures.text);
    }
}

} // namespace tsms
