#include "bench/ChildProcess.h"
#include "bench/import/BareRead.h"
#include "bench/OtherTool.h"
#include "bench/ProgramDesk.h"

#include "addressbook/MakeSMSExcel.h"
#include "addressbook/UserSMSFileRead.h"
#include "recipients/GridRecipientList.h"
#include "runtime/CodePage949.h"
#include "support/RecipientFile.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

namespace tsms::bench {

namespace {

constexpr int Rounds = 9;
constexpr int ToolRounds = 5;
constexpr int OfficeRounds = 3; // of seconds each
constexpr double DemandedRatio = 1.3;
constexpr double DemandedOfFile = 1.4;
constexpr int FewRecords = 10'000;
constexpr int ManyRecords = 100'000;
constexpr double DemandedGrowth = 1.25; // of the baseline's: memory gets slower, the more of it is in use

void WriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    Demand(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
           "bench_import: no file can be written");
}

QString PhoneOf(int row)
{
    return QStringLiteral("010-%1-%2")
        .arg(row / 10000, 4, 10, QChar(u'0'))
        .arg(row % 10000, 4, 10, QChar(u'0'));
}

QByteArray Workbook(int count)
{
    std::vector<std::vector<QString>> rows;
    for (int row = 1; row <= count; ++row)
        rows.push_back(
            {QStringLiteral("회원 %1").arg(row), PhoneOf(row), QStringLiteral("봄 모임 %1").arg(row)});
    return test::WorkbookOf(rows);
}

QByteArray Records(int count)
{
    QByteArray records;
    for (int i = 1; i <= count; ++i)
        records += test::RecipientRecordBytes(ToCodePage949(QStringLiteral("회원 %1").arg(i)),
                                              PhoneOf(i).toLatin1());
    return records;
}

QString BookPath(const QString& folder)
{
    return folder + QStringLiteral("/book.xls");
}

QString RecordPath(const QString& folder)
{
    return folder + QStringLiteral("/SMSData");
}

/// From the click on the search button until it returns, with the dialog on view.
Cost Import(const QString& folder, int rows)
{
    ProgramDesk desk({}, {}, folder);
    desk.desktop.fileToPick = BookPath(folder);
    fpSpread grid;
    GridRecipientList list(grid);
    list.Reset();
    grid.show();
    MakeSMSExcel dialog(desk.services, list);
    Cost cost;
    constexpr int settledMilliseconds = 100; // by then the dialog has been painted
    QTimer::singleShot(settledMilliseconds, [&] {
        const std::int64_t from = Nanoseconds();
        dialog.findChild<PushButton*>(QStringLiteral("cmdSearch"))->Click();
        cost.nanoseconds = static_cast<double>(Nanoseconds() - from);
    });
    dialog.ShowModal();
    Demand(grid.Cells().MaxRows() == rows &&
               grid.Cells().Text(GridRecipientList::PhoneColumn, rows) == PhoneOf(rows),
           "bench_import: not all rows were imported");
    cost.peakMemory = PeakMemory();
    return cost;
}

Cost Read(const QString& folder, int records)
{
    ProgramDesk desk({});
    fpSpread grid;
    GridRecipientList list(grid);
    list.Reset();
    grid.show();
    const std::int64_t from = Nanoseconds();
    const bool read = ReadRecipientFile(folder, list, desk.session, desk.desktop);
    const auto took = static_cast<double>(Nanoseconds() - from);
    Demand(read && grid.Cells().Text(GridRecipientList::PhoneColumn, records) == PhoneOf(records),
           "bench_import: not all records were read");
    return {took, PeakMemory()};
}

/// One of the bare routines, which has to come to as many.
Cost Bare(int (*read)(const QByteArray& path), const QString& path, int demanded)
{
    const std::int64_t from = Nanoseconds();
    const int found = read(path.toUtf8());
    const auto took = static_cast<double>(Nanoseconds() - from);
    Demand(found == demanded, "bench_import: a baseline does not see all");
    return {took, PeakMemory()};
}

/// "import", "freexl", "read" or "bare", the folder of the files and how many rows they have.
void BeSide(const QStringList& arguments)
{
    const QString& side = arguments[0];
    const QString& folder = arguments[1];
    const int rows = arguments[2].toInt();
    if (side == u"import")
        TellCost(Import(folder, rows));
    else if (side == u"freexl")
        TellCost(Bare(GoThroughWorkbook, BookPath(folder), 3 * rows));
    else if (side == u"read")
        TellCost(Read(folder, rows));
    else
        TellCost(Bare(ReadRecords, RecordPath(folder), rows));
}

Run SideOn(const char* side, const QString& folder, int rows)
{
    return [=] { return RunSide({QString::fromLatin1(side), folder, QString::number(rows)}).cost; };
}

void CompareImports(const QString& folder)
{
    Growth growth("spreadsheet import", "rows");
    for (const int rows : Sizes) {
        WriteFile(BookPath(folder), Workbook(rows));
        growth.Add(rows, Compare({.what = "spreadsheet import",
                                  .size = std::to_string(rows) + " rows of 3",
                                  .rounds = Rounds,
                                  .limit = rows == LargestSize ? DemandedRatio : NoLimit},
                                 SideOn("import", folder, rows), SideOn("freexl", folder, rows)));
    }
    growth.PrintRows();
}

void CompareWithXlrd(const QString& folder, int rows)
{
    CompareWithScript(
        {.what = "spreadsheet import, beside xlrd",
         .size = std::to_string(rows) + " rows of 3",
         .rounds = ToolRounds},
        SideOn("import", folder, rows),
        [&] { return RunScript(QStringLiteral("import/read_by_xlrd.py"), {BookPath(folder)}, 3 * rows); });
}

void CompareWithOffice(const QString& folder, const QString& profile, int rows)
{
    Compare({.what = "spreadsheet import, beside LibreOffice",
             .size = std::to_string(rows) + " rows of 3",
             .rounds = OfficeRounds},
            SideOn("import", folder, rows), [&] {
                const Cost cost =
                    ConvertInOffice(profile, BookPath(folder),
                                    {QStringLiteral("--convert-to"),
                                     QStringLiteral("csv:Text - txt - csv (StarCalc):44,34,76")});
                QFile text(folder + QStringLiteral("/book.csv"));
                Demand(text.open(QIODevice::ReadOnly) && text.readAll().count('\n') == rows && text.remove(),
                       "bench_import: LibreOffice has not converted all rows");
                return cost;
            });
}

void CompareWithTools(const QString& folder, const QString& profile)
{
    const bool hasXlrd = HasPython("python3-xlrd", QStringLiteral("xlrd"));
    const bool hasOffice =
        HasTool("libreoffice-calc-nogui", QStringLiteral("soffice"), {QStringLiteral("--version")});
    for (const int rows : ToolSizes) {
        WriteFile(BookPath(folder), Workbook(rows));
        if (hasXlrd)
            CompareWithXlrd(folder, rows);
        if (hasOffice)
            CompareWithOffice(folder, profile, rows);
    }
}

void CompareRecordFiles(const QString& folder)
{
    Growth growth("recipient file", "records");
    std::vector<int> sizes(std::begin(Sizes), std::end(Sizes));
    sizes.push_back(ManyRecords);
    for (const int records : sizes) {
        WriteFile(RecordPath(folder), Records(records));
        growth.Add(records, Compare({.what = "recipient file",
                                     .size = std::to_string(records) + " records",
                                     .rounds = Rounds,
                                     .limit = records == LargestSize ? DemandedOfFile : NoLimit},
                                    SideOn("read", folder, records), SideOn("bare", folder, records)));
    }
    growth.PrintRows();
    growth.PrintRow(FewRecords, ManyRecords, DemandedGrowth * growth.OfBaseline(FewRecords, ManyRecords));
}

void CompareAll()
{
    const QTemporaryDir whole;
    const QString folder = whole.filePath(QStringLiteral("program")); // the log of an import stands beside it
    Demand(QDir().mkdir(folder), "bench_import: no folder can be made");
    CompareImports(folder);
    CompareWithTools(folder, whole.filePath(QStringLiteral("office")));
    CompareRecordFiles(folder);
    PrintNote("import and recipient file: each side in a process of its own");
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}
