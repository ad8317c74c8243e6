#include "bench/ChildProcess.h"
#include "bench/Measure.h"

#include "addressbook/GridRecipientSheet.h"
#include "addressbook/MakeSMSExcel.h"
#include "addressbook/UserSMSFileRead.h"
#include "compose/ModStep1.h"
#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "runtime/CodePage949.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/RecipientFile.h"
#include "support/ScriptedDesktop.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "toolkit/Application.h"
#include "toolkit/Controls.h"
#include "toolkit/fpSpread.h"
#include "toolkit/Theme.h"

#include <freexl.h>

#include <QFile>
#include <QTemporaryDir>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Rounds = 15;
constexpr int SheetRows = 32000;
constexpr double DemandedRatio = 1.5;
constexpr int FewRecords = 10'000;
constexpr int ManyRecords = 100'000;
constexpr double DemandedGrowth = 12;

void Demand(bool condition, const char* what)
{
    if (condition)
        return;
    std::fprintf(stderr, "bench_import: %s\n", what);
    std::exit(1);
}

void WriteFile(const QString& path, const QByteArray& content)
{
    QFile file(path);
    Demand(file.open(QIODevice::WriteOnly) && file.write(content) == content.size(),
           "no file can be written");
}

QString PhoneOf(int row)
{
    return QStringLiteral("010-%1-%2")
        .arg(row / 10000, 4, 10, QChar(u'0'))
        .arg(row % 10000, 4, 10, QChar(u'0'));
}

QByteArray Workbook()
{
    std::vector<std::vector<QString>> rows;
    for (int row = 1; row <= SheetRows; ++row)
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

/// What the forms are handed, on a desk that says yes to everything.
struct World
{
    explicit World(const QString& path) : folder(path) { desktop.AllowBoxes(); }
    static QString BookPath(const QString& folder) { return folder + QStringLiteral("/book.xls"); }
    QString BookPath() const { return BookPath(folder); }

    const QString folder;
    test::ScriptedDesktop desktop;
    SystemClock clock;
    Session session;
    DBConnect db{session, desktop, MakeConnections(clock)};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms, folder};
};

/// From the click on the search button until it returns, with the dialog on view.
double ImportTime(World& world)
{
    fpSpread grid;
    InitRecipientGrid(grid);
    grid.show();
    world.desktop.fileToPick = world.BookPath();
    MakeSMSExcel dialog(world.services, {grid, InitRecipientGrid});
    double time = 0;
    constexpr int settledMilliseconds = 100; // by then the dialog has been painted
    QTimer::singleShot(settledMilliseconds, [&] {
        const std::int64_t from = Nanoseconds();
        dialog.findChild<PushButton*>(QStringLiteral("cmdSearch"))->Click();
        time = static_cast<double>(Nanoseconds() - from);
    });
    dialog.ShowModal();
    Demand(grid.MaxRows() == SheetRows && grid.GetText(PhoneColumn, SheetRows) == PhoneOf(SheetRows),
           "not all rows were imported");
    return time;
}

/// The same file, opened by FreeXL and gone through cell by cell.
double FreeXlTime(const QByteArray& path)
{
    const std::int64_t from = Nanoseconds();
    const void* book = nullptr;
    Demand(freexl_open(path.constData(), &book) == FREEXL_OK && book, "FreeXL does not open the workbook");
    Demand(freexl_select_active_worksheet(book, 0) == FREEXL_OK, "FreeXL has no sheet");
    unsigned int rows = 0;
    unsigned short columns = 0;
    freexl_worksheet_dimensions(book, &rows, &columns);
    std::size_t texts = 0;
    for (unsigned int row = 0; row < rows; ++row)
        for (unsigned short column = 0; column < columns; ++column) {
            FreeXL_CellValue value{};
            freexl_get_cell_value(book, row, column, &value);
            texts += value.type == FREEXL_CELL_SST_TEXT;
        }
    freexl_close(book);
    const auto time = static_cast<double>(Nanoseconds() - from);
    Demand(texts == std::size_t{3} * SheetRows, "FreeXL does not see all cells");
    return time;
}

double ReadTime(World& world, int records)
{
    fpSpread grid;
    InitRecipientGrid(grid);
    grid.show();
    GridRecipientSheet list(grid);
    const std::int64_t from = Nanoseconds();
    const Boolean read = ReadRecipientFile(world.folder, list, world.session, world.desktop);
    const auto time = static_cast<double>(Nanoseconds() - from);
    Demand(read == Boolean::True && grid.GetText(PhoneColumn, records) == PhoneOf(records),
           "not all records were read");
    return time;
}

/// One side of a comparison in a process of its own, which prints its cost.
int RunSide(const QString& side, const QString& folder, int& argc, char** argv)
{
    tsms::Application application(argc, argv);
    tsms::theme::ApplyTheme(application);
    World world(folder);
    double time = 0;
    if (side == u"freexl")
        time = FreeXlTime(world.BookPath().toUtf8());
    else if (side == u"import")
        time = ImportTime(world);
    else
        time = ReadTime(world, side.toInt());
    std::printf("%.0f %ld\n", time, PeakMemory());
    return 0;
}

Cost CostOf(const QString& side, const QString& folder)
{
    const ChildReport report = RunChild(QCoreApplication::applicationFilePath(), {side, folder}, 2);
    return {report.words[0].toDouble(), report.words[1].toLong()};
}

/// Both sides in turn.
void Compare(const std::string& what, const std::string& size, const std::pair<QString, QString>& ours,
             const std::pair<QString, QString>& baseline, double limit)
{
    std::vector<Cost> ourCosts;
    std::vector<Cost> baselineCosts;
    for (int round = 0; round <= Rounds; ++round) {
        const Cost second = CostOf(baseline.first, baseline.second);
        const Cost first = CostOf(ours.first, ours.second);
        if (round == 0)
            continue; // brings programs and files into the system's caches
        ourCosts.push_back(first);
        baselineCosts.push_back(second);
    }
    PrintRow(what, size, MedianCost(ourCosts), MedianCost(baselineCosts), limit);
}

int CompareAll()
{
    const QTemporaryDir few;
    const QTemporaryDir many;
    WriteFile(World::BookPath(few.path()), Workbook());
    WriteFile(few.filePath(QStringLiteral("SMSData")), Records(FewRecords));
    WriteFile(many.filePath(QStringLiteral("SMSData")), Records(ManyRecords));
    Compare("spreadsheet import", std::to_string(SheetRows) + " rows of 3 columns",
            {QStringLiteral("import"), few.path()}, {QStringLiteral("freexl"), few.path()}, DemandedRatio);
    Compare("recipient file, growth",
            std::to_string(ManyRecords) + " against " + std::to_string(FewRecords) + " records",
            {QString::number(ManyRecords), many.path()}, {QString::number(FewRecords), few.path()},
            DemandedGrowth);
    PrintNote("import: medians of " + std::to_string(Rounds) +
              " rounds in turn, each side in a process of its own");
    return 0;
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    using namespace tsms::bench;
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen"); // the processes of both sides inherit it
    if (argc == 3)
        return RunSide(QString::fromLocal8Bit(argv[1]), QString::fromLocal8Bit(argv[2]), argc, argv);
    const QCoreApplication application(argc, argv);
    return CompareAll();
}
