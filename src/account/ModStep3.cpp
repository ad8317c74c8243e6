#include "account/ModStep3.h"

#include "account/ChargeRows.h"
#include "account/ChargeStatements.h"
#include "account/MonthFigures.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "store/LoadSMSSetup.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/TextHelper.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"

#include <QColor>

namespace tsms {

namespace {

struct FigureRow
{
    QString title;
    QColor text;
    QColor back;
};

QString CellText(const fpSpread& grid, int col, int row)
{
    return Trim(GridHelper().GetCellText(grid, col, row));
}

bool ConfirmDelete(Desktop& desktop, const QString& date)
{
    return desktop.MsgBox(QStringLiteral("삭제확인 : ") + date +
                              QStringLiteral("에 등록된 충전내역을 삭제하시겠습니까.?"),
                          MsgBoxQuestion, QStringLiteral("충전현황 삭제")) == AnswerYes;
}

/// Reads under a busy screen, and hands the result on.
void ReadIntoGrid(Services& services, const Statement& query, const std::function<void(Recordset&)>& show)
{
    ReportingErrors(services.db, [&] {
        WhileScreenBusy(services,
                        [&] { WithDatabase(services.db, [&] { services.db.Select(query, show); }); });
    });
}

/// The two statements stand alone: a credit that is gone stays gone when its row cannot be deleted.
bool TakeOut(Services& services, const fpSpread& ledger, int row)
{
    TextHelper textHelper(services.desktop);
    const QString count = textHelper.PlainNumber(CellText(ledger, ChargeCount, row), QString());
    return services.db.ExecuteSQL(BalanceMinus(count)) &&
           services.db.ExecuteSQL(ChargeDelete(CellText(ledger, ChargeKey, row)));
}

/// The figures of the current record, in the column of its month.
void ShowMonth(fpSpread& months, const Recordset& month)
{
    const int col = MonthColumn(month.Field(u"ppMonth"));
    const QString total = month.Field(u"ToTalCnt");
    const QString done = month.Field(u"SMS0");
    months.Cells().SetText(col, MonthSent, total);
    months.Cells().SetText(col, MonthDone, done);
    months.Cells().SetText(col, MonthFailed, month.Field(u"SMS1"));
    months.Cells().SetText(col, MonthRate, RateText(ToLong(total), ToLong(done)));
}

QString TotalSent(const fpSpread& months)
{
    qint64 total = 0;
    for (int month = 1; month <= Months; ++month)
        total += months.Cells().Text(month, MonthSent).toLongLong();
    return QString::number(total);
}

void ShowMonths(fpSpread& months, Recordset& records)
{
    for (Counter16 group(0); group.Value() < records.RecordCount(); ++group) {
        ShowMonth(months, records);
        records.MoveNext();
    }
    // Meant: each row shows the sum of the first.
    const QString total = TotalSent(months);
    months.Cells().SetType(MonthTotalColumn, SpreadModel::CellType::Number);
    for (int row = MonthSent; row <= MonthRate; ++row)
        months.Cells().SetText(MonthTotalColumn, row, total);
}

} // namespace

void InitChargeGrid(fpSpread& grid)
{
    using enum GridColumn::Format;
    GridHelper().SetUpList(grid, 16, 16,
                           {{QString(), 7.5, Centred},
                            {QStringLiteral("충전일시"), 13, Centred, QColor(228, 234, 244)},
                            {QStringLiteral("건수"), 9, Number, QColor(255, 255, 214)},
                            {QStringLiteral("금액"), 10, Number, QColor(253, 241, 227)},
                            {QStringLiteral("단가"), 6, Centred},
                            {QStringLiteral("메모사항"), 38.7},
                            {QStringLiteral("등록일시"), 18}});
    grid.SetRowCursor(true);
    grid.SetColHidden(ChargeKey, true);
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
    grid.Cells().SetMaxRows(MonthRate);
    grid.Cells().SetMaxCols(MonthTotalColumn);
    grid.SetRowHeight(0, 17);
    grid.SetRowHeight(SpreadModel::All, 20);
    grid.SetColWidth(0, 8);
    for (int month = 1; month <= Months; ++month) {
        grid.Cells().SetText(month, 0, QString::number(month) + QStringLiteral("월"));
        grid.SetColWidth(month, 7);
        grid.Cells().SetNumber(month, true);
    }
    grid.Cells().SetText(MonthTotalColumn, 0, QStringLiteral("전체합계"));
    grid.SetColWidth(MonthTotalColumn, 8);
    helper.FormatColumn(grid, MonthTotalColumn, 1);

    int row = 0;
    for (const FigureRow& figures : rows) {
        ++row;
        grid.Cells().SetText(0, row, figures.title);
        grid.Cells().SetColors(SpreadModel::All, row, figures.back, figures.text);
    }
}

void QueryCharges(Services& services, fpSpread& ledger)
{
    ReadIntoGrid(services, ChargeQuery(), [&](const Recordset& charges) {
        ledger.Cells().SetMaxRows(charges.RecordCount());
        ledger.SetDataSource(std::make_shared<ChargeRows>(services.db.ShareRecords()));
    });
}

void DeleteCharge(Services& services, fpSpread& ledger, int testedRow)
{
    if (ledger.Cells().MaxRows() == 0)
        return;
    if (CellText(ledger, ChargeKey, testedRow).isEmpty()) {
        services.desktop.MsgBox(QStringLiteral("충전내역 삭제 : 삭제하실 대상을 선택하여 주십시오."),
                                MsgBoxCritical, QStringLiteral("충전현황 삭제"));
        return;
    }
    const int row = ledger.ActiveRow();
    if (!ConfirmDelete(services.desktop, CellText(ledger, ChargeDate, row)))
        return;
    WithDatabase(services.db, [&] {
        if (!TakeOut(services, ledger, row))
            return;
        LoadSMSSetup(services.session, services.db);
        QueryCharges(services, ledger);
        services.desktop.MsgBox(
            QStringLiteral("삭제완료 : 정상적으로 문자메시지 충전내역을 삭제 하였습니다."), MsgBoxInformation,
            QStringLiteral("삭제완료"));
    });
}

void QueryMonths(Services& services, fpSpread& months, const QString& year)
{
    ReadIntoGrid(services, MonthQuery(year), [&](Recordset& figures) { ShowMonths(months, figures); });
}

} // namespace tsms
