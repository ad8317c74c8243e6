#include "bench/ChildProcess.h"
#include "bench/export/Cells.h"
#include "bench/export/PlainText.h"
#include "bench/Measure.h"
#include "bench/OtherTool.h"

#include "spreadsheet/read/ReadWorkbook.h"
#include "spreadsheet/write/WriteWorkbook.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

namespace tsms::bench {

namespace {

constexpr int ToolRounds = 3;        // of seconds each
constexpr double DemandedTime = 3;   // of the plain text's
constexpr double DemandedMemory = 3; // of the workbook's own size

Sheet SheetOf(const Cells& cells)
{
    Sheet sheet;
    sheet.rows = cells.Rows();
    sheet.columns.resize(Cells::Columns);
    for (int col = 1; col <= Cells::Columns; ++col)
        sheet.columns[static_cast<std::size_t>(col - 1)].number = Cells::IsNumberColumn(col);
    sheet.text = [&cells](int col, int row) -> QStringView { return cells.Text(col, row); };
    return sheet;
}

struct Export
{
    Cost cost;
    long fileSize = 0; ///< KiB
};

Export RunOnce(const char* side, int rows, const QString& folder)
{
    const QTemporaryDir own(folder + QStringLiteral("/bench_export-XXXXXX"));
    const SideReport report =
        RunSide({QString::fromLatin1(side), own.filePath(QStringLiteral("list")), QString::number(rows)}, 1);
    return {report.cost, report.words[0].toLong()};
}

Costs CompareAt(int rows, const std::string& where, const QString& folder)
{
    const std::string size = std::to_string(rows) + " rows of " + std::to_string(Cells::Columns);
    const bool limited = rows == LargestSize;
    Export workbook;
    const Costs costs = Compare(
        {.what = "export, " + where, .size = size, .rounds = 9, .limit = limited ? DemandedTime : NoLimit},
        [&] {
            workbook = RunOnce("workbook", rows, folder);
            return workbook.cost;
        },
        [&] { return RunOnce("text", rows, folder).cost; });
    constexpr double bytes = 1024; // of a KiB
    PrintMemoryRow("export, memory to file size", size,
                   {bytes * static_cast<double>(costs.ours.peakMemory),
                    bytes * static_cast<double>(workbook.fileSize), costs.rounds},
                   limited ? DemandedMemory : NoLimit);
    return costs;
}

void CompareIn(const std::string& where, const QString& folder)
{
    Growth growth("export, " + where, "rows");
    for (const int rows : Sizes)
        growth.Add(rows, CompareAt(rows, where, folder));
    growth.PrintRows();
}

/// Ends this process unless a tool's workbook has the message of each row. Takes it away for the next tool.
void TakeBook(const QString& path, const Cells& cells)
{
    QFile file(path);
    Demand(file.open(QIODevice::ReadOnly), "bench_export: a tool has written no workbook");
    const std::shared_ptr<const CellSource> sheet = ReadWorkbook(file, Cells::Columns).firstSheet;
    bool whole = sheet && sheet->Rows() == cells.Rows();
    constexpr int messageColumn = 7;
    for (int row = 1; whole && row <= cells.Rows(); ++row)
        whole = sheet->Text(messageColumn, row) == cells.Text(messageColumn, row);
    Demand(whole && file.remove(), "bench_export: a tool has not written all rows");
}

void CompareWithTools()
{
    const bool hasXlwt = HasPython("python3-xlwt", QStringLiteral("xlwt"));
    const bool hasOffice =
        HasTool("libreoffice-calc-nogui", QStringLiteral("soffice"), {QStringLiteral("--version")});
    const QTemporaryDir folder;
    const QString text = folder.filePath(QStringLiteral("list.csv"));
    const QString book = folder.filePath(QStringLiteral("list.xls"));
    for (const int rows : ToolSizes) {
        const Cells cells(rows);
        WritePlainText(text, cells);
        const std::string size = std::to_string(rows) + " rows of " + std::to_string(Cells::Columns);
        const Run ours = [&] { return RunOnce("workbook", rows, QDir::tempPath()).cost; };
        if (hasXlwt) {
            CompareWithScript({.what = "export, beside xlwt", .size = size, .rounds = ToolRounds}, ours, [&] {
                return RunScript(QStringLiteral("export/write_by_xlwt.py"), {text, book}, rows);
            });
            TakeBook(book, cells);
        }
        if (hasOffice) {
            Compare({.what = "export, beside LibreOffice", .size = size, .rounds = ToolRounds}, ours, [&] {
                return ConvertInOffice(folder.filePath(QStringLiteral("office")), text,
                                       {QStringLiteral("--infilter=CSV:44,34,76"),
                                        QStringLiteral("--convert-to"), QStringLiteral("xls")});
            });
            TakeBook(book, cells);
        }
    }
}

void CompareAll()
{
    CompareIn("file on disk", QDir::tempPath());
    CompareWithTools();
    if (const QString memory = QStringLiteral("/dev/shm"); QFileInfo(memory).isWritable())
        CompareIn("file in memory", memory);
    PrintNote("export: each side in a process of its own; peak memory is what came on top of the cells");
}

/// "workbook" or "text", a path and how many rows. Its memory is what it held at most above the cells; tells
/// the size of its file in KiB, too.
void BeSide(const QStringList& arguments)
{
    const QString& path = arguments[1];
    const Cells cells(arguments[2].toInt());
    ForgetPeakMemory();
    const long before = PeakMemory();
    const std::int64_t from = Nanoseconds();
    if (arguments[0] == u"workbook")
        WriteWorkbook(path, SheetOf(cells));
    else
        WritePlainText(path, cells);
    const auto took = static_cast<double>(Nanoseconds() - from);
    TellCost({took, PeakMemory() - before}, QByteArray::number(QFileInfo(path).size() / 1024));
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}
