#include "bench/ChildProcess.h"
#include "bench/export/Cells.h"
#include "bench/export/PlainText.h"
#include "bench/Measure.h"

#include "spreadsheet/WriteWorkbook.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>

namespace tsms::bench {

namespace {

constexpr int Rounds = 15;
constexpr double DemandedTime = 3;   // of the plain text's
constexpr double DemandedMemory = 3; // of the workbook's own size

Sheet SheetOf(const Cells& cells)
{
    Sheet sheet;
    sheet.rows = Cells::Rows;
    sheet.columns.resize(Cells::Columns);
    for (int col = 1; col <= Cells::Columns; ++col)
        sheet.columns[static_cast<std::size_t>(col - 1)].number = Cells::IsNumberColumn(col);
    sheet.text = [&cells](int col, int row) -> QStringView { return cells.Text(col, row); };
    return sheet;
}

/// One side, once; says its time, what it held at most above the cells, and the size of its file in KiB.
int RunSide(const QString& side, const QString& path)
{
    const Cells cells;
    ForgetPeakMemory();
    const long before = PeakMemory();
    const std::int64_t from = Nanoseconds();
    if (side == u"workbook")
        WriteWorkbook(path, SheetOf(cells));
    else
        WritePlainText(path, cells);
    const std::int64_t took = Nanoseconds() - from;
    std::printf("%lld %ld %lld\n", static_cast<long long>(took), PeakMemory() - before,
                static_cast<long long>(QFileInfo(path).size() / 1024));
    return 0;
}

struct Run
{
    Cost cost;
    long fileSize; ///< KiB
};

Run RunOnce(const QString& side, const QString& folder)
{
    const QTemporaryDir own(folder + QStringLiteral("/bench_export-XXXXXX"));
    const ChildReport report =
        RunChild(QCoreApplication::applicationFilePath(), {side, own.filePath(QStringLiteral("list"))}, 3);
    return {{report.words[0].toDouble(), report.words[1].toLong()}, report.words[2].toLong()};
}

void Compare(const std::string& what, const QString& folder)
{
    std::vector<Cost> ours;
    std::vector<Cost> baseline;
    long fileSize = 0;
    for (int round = 0; round <= Rounds; ++round) {
        const Run workbook = RunOnce(QStringLiteral("workbook"), folder);
        const Run plainText = RunOnce(QStringLiteral("text"), folder);
        fileSize = workbook.fileSize;
        if (round == 0)
            continue; // brings the programs into the system's caches
        ours.push_back(workbook.cost);
        baseline.push_back(plainText.cost);
    }
    const std::string size = std::to_string(Cells::Rows) + " rows of " + std::to_string(Cells::Columns);
    PrintRow("export, " + what, size, MedianCost(ours), MedianCost(baseline), DemandedTime);
    constexpr double bytes = 1024; // of a KiB
    PrintMemoryRow("export, memory to file size", size,
                   bytes * static_cast<double>(MedianCost(ours).peakMemory),
                   bytes * static_cast<double>(fileSize), DemandedMemory);
}

int CompareAll()
{
    Compare("file on disk", QDir::tempPath());
    if (const QString memory = QStringLiteral("/dev/shm"); QFileInfo(memory).isWritable())
        Compare("file in memory", memory);
    PrintNote("export: medians of " + std::to_string(Rounds) +
              " rounds in turn, each in a process of its own; peak memory is what came on top of the cells");
    return 0;
}

} // namespace

} // namespace tsms::bench

// Without arguments: the comparison. With "workbook" or "text" and a path: one run of one side.
int main(int argc, char** argv)
{
    using namespace tsms::bench;
    const QCoreApplication application(argc, argv);
    if (argc == 3)
        return RunSide(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]));
    return CompareAll();
}
