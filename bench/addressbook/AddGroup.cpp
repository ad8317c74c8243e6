#include "bench/Measure.h"

#include "addressbook/BookGrids.h"
#include "addressbook/BookStatements.h"
#include "addressbook/ChosenNumbers.h"
#include "addressbook/dlgSMSGroupSelect.h"
#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/EmbeddedTables.h"
#include "support/ScriptedDesktop.h"
#include "toolkit/Application.h"
#include "toolkit/Controls.h"
#include "toolkit/fpSpread.h"
#include "toolkit/GridHelper.h"
#include "toolkit/Pictures.h"
#include "toolkit/Theme.h"

#include <QTemporaryDir>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

constexpr int Small = 3000;
constexpr int Large = 30000;
constexpr int Rounds = 9;
constexpr int ScanRounds = 3; // each takes seconds
constexpr double DemandedGrowth = 12;

[[noreturn]] void Fail(const char* words)
{
    std::fprintf(stderr, "bench_addressbook: %s\n", words);
    std::exit(1);
}

/// A database with two groups of `members` people each, all with numbers of their own.
class Book
{
public:
    explicit Book(int members) : members_(members)
    {
        const int year = clock_.Date().year();
        CreateEmbeddedDatabase(Path(), {year, year}, clock_,
                               [this](Connection& connection) { Fill(connection); });
        desktop_.AllowBoxes();
        session_.DBCatalog = Path();
        session_.DBServer = QStringLiteral("(embedded)");
        session_.DBPort = QStringLiteral("0");
    }

    int Members() const { return members_; }
    Services& TheServices() { return services_; }

    /// The people of a group in the open database's current recordset.
    Recordset& Read(int group)
    {
        if (db_.ConnectDB() != Boolean::True ||
            db_.OpenRecordset(MembersOfGroup(QString::number(group))) != Boolean::True)
            Fail("the members could not be read");
        return db_.Records();
    }

    void Close() { db_.CloseDB(); }

private:
    QString Path() const { return folder_.filePath(QStringLiteral("book.db")); }

    void Fill(Connection& connection) const
    {
        for (int group = 1; group <= 2; ++group)
            connection.Execute(
                QStringLiteral("INSERT INTO SMSGroupMst (GroupNm) VALUES ('그룹%1')").arg(group));
        for (int person = 0; person < 2 * members_; ++person)
            connection.Execute(
                QStringLiteral(
                    "INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES (%1, '이름%2', '010-%3-%4')")
                    .arg(person / members_ + 1)
                    .arg(person)
                    .arg(person / 10000, 4, 10, QLatin1Char('0'))
                    .arg(person % 10000, 4, 10, QLatin1Char('0')));
    }

    int members_;
    QTemporaryDir folder_;
    SystemClock clock_;
    Session session_;
    test::ScriptedDesktop desktop_;
    DBConnect db_{session_, desktop_, MakeConnections(clock_)};
    ModSMS sms_{session_, db_, desktop_, clock_, QString()};
    Services services_{session_, desktop_, clock_, db_, sms_};
};

template <class Work> Cost CostOf(const Work& work)
{
    const std::int64_t from = Nanoseconds();
    work();
    QApplication::processEvents(); // what it leaves to be painted belongs to it
    return {static_cast<double>(Nanoseconds() - from)};
}

/// The real dialog in its group view, from the click on "add" on. The first group has been chosen before.
Cost AddInDialog(Book& book)
{
    fpSpread recipients;
    dlgSMSGroupSelect dialog(book.TheServices(), recipients);
    dialog.show();
    dialog.activateWindow();
    auto* browse = dialog.findChild<fpSpread*>(QStringLiteral("fpSpreadMst"));
    while (browse->MaxRows() == 0)
        QApplication::processEvents();
    dialog.findChild<RadioButton*>(QStringLiteral("OptType(1)"))->SetValue(true);
    auto* add = dialog.findChild<PushButton*>(QStringLiteral("BtnFuncAdd(0)"));
    browse->SetCellPicture(GroupTick, 1, CheckTicked);
    add->Click();
    QApplication::processEvents();
    browse->SetCellPicture(GroupTick, 1, CheckEmpty);
    browse->SetCellPicture(GroupTick, 2, CheckTicked);
    const Cost cost = CostOf([add] { add->Click(); });
    if (dialog.findChild<fpSpread*>(QStringLiteral("fpSpread"))->MaxRows() != 2 * book.Members())
        Fail("the dialog did not add the whole group");
    return cost;
}

void WriteRow(fpSpread& grid, int row, const Recordset& person)
{
    grid.SetText(ChosenCode, row, Trim(person.Field(u"GSubCd")));
    grid.SetCellPicture(ChosenTick, row, CheckTicked);
    grid.SetText(ChosenName, row, Trim(person.Field(u"GSubNm")));
    grid.SetText(ChosenPhone, row, Trim(person.Field(u"GSPhone")));
}

/// The rows of a query in a grid, with nothing looked at and no dialog about.
void Insert(fpSpread& grid, Recordset& people)
{
    grid.SetReDraw(false);
    int row = grid.MaxRows();
    grid.SetMaxRows(row + people.RecordCount());
    for (; !people.Eof(); people.MoveNext())
        WriteRow(grid, ++row, people);
    grid.SetReDraw(true);
}

/// The same, with a scan of the whole list for each of them.
void ScanAndInsert(fpSpread& grid, Recordset& people)
{
    const GridHelper helper;
    bool duplicate = false;
    grid.SetReDraw(false);
    for (; !people.Eof(); people.MoveNext()) {
        const QString number = ComparedNumber(people.Field(u"GSPhone"));
        for (int row = 1; row <= grid.MaxRows(); ++row)
            if (!grid.RowHidden(row) && ComparedNumber(helper.GetCellText(grid, ChosenPhone, row)) == number)
                duplicate = true;
        if (duplicate)
            continue;
        grid.SetMaxRows(grid.MaxRows() + 1);
        WriteRow(grid, grid.MaxRows(), people);
    }
    grid.SetReDraw(true);
}

Cost AddInGrid(Book& book, void (*add)(fpSpread& grid, Recordset& people))
{
    fpSpread grid;
    InitChosenGrid(grid);
    grid.resize(360, 402);
    grid.show();
    Insert(grid, book.Read(1));
    QApplication::processEvents();
    const Cost cost = CostOf([&] {
        add(grid, book.Read(2));
        book.Close();
    });
    if (grid.MaxRows() != 2 * book.Members())
        Fail("a baseline did not add the whole group");
    return cost;
}

struct Costs
{
    Cost ours;
    Cost bare;
};

Costs CompareWithBareInsert(Book& book)
{
    std::vector<Cost> ours;
    std::vector<Cost> bare;
    for (int round = 0; round <= Rounds; ++round) {
        const Cost dialog = AddInDialog(book);
        const Cost insert = AddInGrid(book, Insert);
        if (round == 0)
            continue; // the first one fills caches of fonts and glyphs
        ours.push_back(dialog);
        bare.push_back(insert);
    }
    return {MedianCost(ours), MedianCost(bare)};
}

Cost PlainScan(Book& book)
{
    std::vector<Cost> rounds;
    for (int round = 0; round < ScanRounds; ++round)
        rounds.push_back(AddInGrid(book, ScanAndInsert));
    return MedianCost(rounds);
}

int Compare()
{
    Book small(Small);
    Book large(Large);
    const Costs few = CompareWithBareInsert(small);
    const Costs many = CompareWithBareInsert(large);
    const std::string smallSize = std::to_string(Small) + " to " + std::to_string(Small);
    const std::string largeSize = std::to_string(Large) + " to " + std::to_string(Large);
    PrintRow("add a group, beside a scan for each", smallSize, few.ours, PlainScan(small), NoLimit);
    PrintRow("add a group, beside a bare insert", smallSize, few.ours, few.bare, NoLimit);
    PrintRow("add a group, beside a bare insert", largeSize, many.ours, many.bare, NoLimit);
    PrintRow("add a group, growth", largeSize + " / " + smallSize, many.ours, few.ours, DemandedGrowth);
    PrintNote("address book: medians of " + std::to_string(Rounds) +
              " rounds in turn in one process (the scan: " + std::to_string(ScanRounds) +
              "); for growth the baseline is our own smaller add");
    return 0;
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    tsms::Application application(argc, argv);
    tsms::theme::ApplyTheme(application);
    return tsms::bench::Compare();
}
