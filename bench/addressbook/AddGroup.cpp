#include "bench/ChildProcess.h"
#include "bench/ProgramDesk.h"

#include "addressbook/BookGrids.h"
#include "addressbook/BookStatements.h"
#include "addressbook/dlgSMSGroupSelect.h"
#include "recipients/GridRecipientList.h"
#include "recipients/PhoneSet.h"
#include "runtime/Text.h"
#include "store/embedded/EmbeddedTables.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"

#include <QTemporaryDir>

namespace tsms::bench {

namespace {

constexpr int Rounds = 5;
constexpr int Small = 3000;
constexpr int Large = 30'000;
constexpr double DemandedGrowth = 12;

/// Makes a database with two groups of `members` people each, all with numbers of their own.
void MakeBook(const QString& path, int members)
{
    const SystemClock clock;
    const int year = clock.Date().year();
    CreateEmbeddedDatabase(path, {year, year}, clock, [&](Connection& connection) {
        for (int group = 1; group <= 2; ++group)
            connection.Execute(
                QStringLiteral("INSERT INTO SMSGroupMst (GroupNm) VALUES ('그룹%1')").arg(group));
        for (int person = 0; person < 2 * members; ++person)
            connection.Execute(
                QStringLiteral(
                    "INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES (%1, '이름%2', '010-%3-%4')")
                    .arg(person / members + 1)
                    .arg(person)
                    .arg(person / 10000, 4, 10, QLatin1Char('0'))
                    .arg(person % 10000, 4, 10, QLatin1Char('0')));
    });
}

/// The program on such a database.
class Book : public ProgramDesk
{
public:
    Book(const QString& database, int members) : ProgramDesk(database), members_(members) {}

    int Members() const { return members_; }

    /// The people of a group in the open database's current recordset.
    Recordset& Read(int group)
    {
        Demand(db.ConnectDB() && db.OpenRecordset(MembersOfGroup(QString::number(group))),
               "bench_addressbook: the members could not be read");
        return db.Records();
    }

    void Close() { db.CloseDB(); }

private:
    int members_;
};

template <class Work> Cost CostOf(const Work& work)
{
    const std::int64_t from = Nanoseconds();
    work();
    QApplication::processEvents(); // what it leaves to be painted belongs to it
    const auto took = static_cast<double>(Nanoseconds() - from);
    return {took, PeakMemory()};
}

/// The real dialog in its group view, from the click on "add" on. The first group has been chosen before.
Cost AddInDialog(Book& book)
{
    fpSpread grid;
    GridRecipientList recipients(grid);
    dlgSMSGroupSelect dialog(book.services, recipients);
    dialog.show();
    dialog.activateWindow();
    auto* browse = dialog.findChild<fpSpread*>(QStringLiteral("fpSpreadMst"));
    while (browse->Cells().MaxRows() == 0)
        QApplication::processEvents();
    dialog.findChild<RadioButton*>(QStringLiteral("OptType(1)"))->SetValue(true);
    auto* add = dialog.findChild<PushButton*>(QStringLiteral("BtnFuncAdd(0)"));
    browse->Cells().SetCellPicture(GroupTick, 1, CheckTicked);
    add->Click();
    QApplication::processEvents();
    browse->Cells().SetCellPicture(GroupTick, 1, CheckEmpty);
    browse->Cells().SetCellPicture(GroupTick, 2, CheckTicked);
    const Cost cost = CostOf([add] { add->Click(); });
    Demand(dialog.findChild<fpSpread*>(QStringLiteral("fpSpread"))->Cells().MaxRows() == 2 * book.Members(),
           "bench_addressbook: the dialog did not add the whole group");
    return cost;
}

void WriteRow(fpSpread& grid, int row, const Recordset& person)
{
    grid.Cells().SetText(ChosenCode, row, Trim(person.Field(u"GSubCd")));
    grid.Cells().SetCellPicture(ChosenTick, row, CheckTicked);
    grid.Cells().SetText(ChosenName, row, Trim(person.Field(u"GSubNm")));
    grid.Cells().SetText(ChosenPhone, row, Trim(person.Field(u"GSPhone")));
}

/// The rows of a query in a grid, with nothing looked at and no dialog about.
void Insert(fpSpread& grid, Recordset& people)
{
    grid.SetReDraw(false);
    int row = grid.Cells().MaxRows();
    grid.Cells().SetMaxRows(row + people.RecordCount());
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
        for (int row = 1; row <= grid.Cells().MaxRows(); ++row)
            if (!grid.RowHidden(row) && ComparedNumber(helper.GetCellText(grid, ChosenPhone, row)) == number)
                duplicate = true;
        if (duplicate)
            continue;
        grid.Cells().SetMaxRows(grid.Cells().MaxRows() + 1);
        WriteRow(grid, grid.Cells().MaxRows(), people);
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
    Demand(grid.Cells().MaxRows() == 2 * book.Members(),
           "bench_addressbook: a baseline did not add the whole group");
    return cost;
}

/// "dialog", "insert" or "scan", a database and the members of each of its groups.
void BeSide(const QStringList& arguments)
{
    Book book(arguments[1], arguments[2].toInt());
    if (arguments[0] == u"dialog")
        TellCost(AddInDialog(book));
    else
        TellCost(AddInGrid(book, arguments[0] == u"insert" ? Insert : ScanAndInsert));
}

void CompareAll()
{
    const QTemporaryDir folder;
    Growth growth("add a group", "people");
    for (const int members : {1000, Small, 10'000, Large, 32'000}) {
        const QString database = folder.filePath(QStringLiteral("%1.db").arg(members));
        MakeBook(database, members);
        const std::string size = std::to_string(members) + " to " + std::to_string(members);
        const auto side = [&](const char* name) -> Run {
            const QStringList task{QString::fromLatin1(name), database, QString::number(members)};
            return [=] { return RunSide(task).cost; };
        };
        growth.Add(members,
                   Compare({.what = "add a group, beside a bare insert", .size = size, .rounds = Rounds},
                           side("dialog"), side("insert")));
        if (members == Sizes[0])
            Compare({.what = "add a group, beside a scan for each", .size = size, .rounds = Rounds},
                    side("dialog"), side("scan"));
    }
    growth.PrintRows();
    growth.PrintRow(Small, Large, DemandedGrowth);
    PrintNote("address book: each side in a process of its own, which has chosen the first group before");
}

} // namespace

} // namespace tsms::bench

int main(int argc, char** argv)
{
    return tsms::bench::RunBenchmark(argc, argv, tsms::bench::BeSide, tsms::bench::CompareAll);
}
