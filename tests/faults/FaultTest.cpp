#include "faults/Operations.h"
#include "support/EveryCase.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace tsms::test {

namespace {

const QString DeadlockWords =
    u"Transaction (Process ID 52) was deadlocked on lock resources with another process and "
    u"has been chosen as the deadlock victim. Rerun the transaction."_q;
const QString NoticeWords = u"오늘은 점검일입니다."_q;
const QString LogInWords = u"Login failed for user 'clerk'."_q;

/// What goes wrong once while an operation works.
struct Fault
{
    enum class Kind {
        CutBefore,   ///< a statement, before it is executed
        CutInMiddle, ///< a statement, behind half of its answer
        CutAfter,    ///< a statement, executed, without an answer
        Deadlock,    ///< a statement, which the server gives up
        Notice,      ///< a statement, which the database's owner refuses
        LogInRefused,
        LogInCut,
    };
    Kind kind;
    int nth;        ///< statement or log-in of the operation, from 1
    bool staysAway; ///< until the operation has ended the server is not there, or refuses every log-in

    bool IsOfLogIn() const { return kind == Kind::LogInRefused || kind == Kind::LogInCut; }
    bool Executes() const { return kind == Kind::CutInMiddle || kind == Kind::CutAfter; }
};

struct Case
{
    int operation; ///< its place in the table
    Fault fault;
};

const Operation& OperationOf(const Case& one)
{
    return Operations()[one.operation];
}

void Arm(TestServer& server, const Fault& fault)
{
    if (fault.staysAway && fault.kind != Fault::Kind::LogInRefused)
        server.LeaveWithFault();
    switch (fault.kind) {
    case Fault::Kind::CutBefore:
        return server.CutBefore(fault.nth);
    case Fault::Kind::CutInMiddle:
        return server.CutInMiddle(fault.nth);
    case Fault::Kind::CutAfter:
        return server.CutAfter(fault.nth);
    case Fault::Kind::Deadlock:
        return server.Fail({1205, 13, 45, DeadlockWords}, fault.nth);
    case Fault::Kind::Notice:
        return server.Fail({50000, 16, 1, NoticeWords}, fault.nth);
    case Fault::Kind::LogInRefused:
        return fault.staysAway ? server.RefuseLogInsFrom(fault.nth) : server.RefuseLogIn(fault.nth);
    case Fault::Kind::LogInCut:
        return server.CutLogIn(fault.nth);
    }
}

/// The box by which the user hears of it.
Box BoxOf(Fault::Kind kind)
{
    const QString title = u" - 오류!!!"_q;
    switch (kind) {
    case Fault::Kind::Deadlock:
        return {title, u"☞ : "_q + DeadlockWords, MsgBoxCritical};
    case Fault::Kind::Notice:
        return {title, u"☞ : "_q + NoticeWords, MsgBoxInformation};
    case Fault::Kind::LogInRefused:
        return {title, u"☞ : "_q + LogInWords, MsgBoxCritical};
    default:
        return ServerDownBox();
    }
}

bool IsChange(const QString& statement)
{
    return !statement.trimmed().startsWith(u"SELECT"_q);
}

/// An operation in which nothing goes wrong.
const Outcome& CleanRun(int operation)
{
    static std::map<int, Outcome> known;
    if (const auto found = known.find(operation); found != known.end())
        return found->second;
    Scene scene;
    if (Operations()[operation].name != std::string("Launch"))
        scene.Start();
    Operations()[operation].perform(scene, 1);
    return known[operation] = scene.last;
}

QStringList Sum(const QList<QStringList>& effects)
{
    QStringList changes;
    for (const QStringList& effect : effects)
        changes += effect;
    // The balance is told last.
    std::sort(changes.begin(), changes.end(), [](const QString& a, const QString& b) {
        return std::pair(a.startsWith(u"balance"_q), a) < std::pair(b.startsWith(u"balance"_q), b);
    });
    return changes;
}

/// Whether a statement of the operation is executed although `fault` hits.
bool IsExecuted(int statement, const Case& one)
{
    const Operation& operation = OperationOf(one);
    const Fault& fault = one.fault;
    const QList<int>& frames = CleanRun(one.operation).frames;
    const int frame = frames[statement - 1];
    if (fault.IsOfLogIn()) {
        const bool isTriedAgain = !fault.staysAway && !operation.connectsOnce;
        return frame < fault.nth || (frame == fault.nth && isTriedAgain) ||
               (frame > fault.nth && !fault.staysAway);
    }
    if (statement <= fault.nth)
        return statement < fault.nth || fault.Executes();
    if (fault.staysAway || operation.reads.contains(fault.nth))
        return false;
    if (frame != frames[fault.nth - 1])
        return true;
    return operation.manner == Operation::Manner::Runs && statement > fault.nth + 1;
}

/// The places of the changing statements, from 1.
QList<int> ChangesOf(int operation)
{
    QList<int> places;
    const QStringList& statements = CleanRun(operation).statements;
    for (int i = 0; i < statements.size(); ++i)
        if (IsChange(statements[i]))
            places += i + 1;
    return places;
}

/// The boxes of a run in which a changing statement is hit. With the server away each of those behind it
/// finds no connection and says so, and so does what reads the database at the end.
QList<Box> RunBoxes(const Case& one)
{
    constexpr int RefreshingTheBalance =
        4;                            // two for connecting, one for the query, one for the error that stands
    constexpr int SearchingAgain = 3; // two for connecting, one for the query
    const QList<Box> own = OperationOf(one).boxes(1);
    const bool isAway = one.fault.staysAway;
    const QList<int> changes = ChangesOf(one.operation);
    const auto behind = changes.size() - 1 - changes.indexOf(one.fault.nth);
    QList<Box> boxes = own.mid(0, own.size() - 1);
    boxes += BoxOf(one.fault.kind);
    if (isAway)
        boxes += QList<Box>(behind + RefreshingTheBalance, ServerDownBox());
    boxes += own.last();
    if (isAway && own.size() == 2) // a withdrawal
        boxes += QList<Box>(SearchingAgain, ServerDownBox());
    return boxes;
}

void ExpectWithin(const QStringList& statements, QStringList clean)
{
    for (const QString& statement : statements)
        EXPECT_TRUE(clean.removeOne(statement)) << "once more: " << statement.toStdString();
}

void ExpectAnswers(Scene& scene)
{
    Program& program = scene.program;
    EXPECT_EQ(Form::Loaded(), QList<Form*>{program.form.get()});
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.form->cursor().shape(), Qt::ArrowCursor);
    const QList<MousePointer> pointers = QList{MousePointer::Default} + program.desktop.pointers;
    EXPECT_EQ(pointers.last(), MousePointer::Default);
    EXPECT_EQ(program.connections.OpenNow(), 0);
    const int page = scene.IsOn(1) ? 0 : 1;
    program.Click(u"BtnToolbarDis(%1)"_q.arg(page));
    EXPECT_TRUE(scene.IsOn(page));
}

void ExpectWhole(Scene& scene)
{
    EXPECT_EQ(scene.program.database.Value(u"PRAGMA integrity_check"_q), u"ok"_q);
    EXPECT_EQ(scene.program.database.Count(u"SMSSetup"_q), 1);
    EXPECT_EQ(
        scene.program.database.Rows(u"SELECT SMSNo FROM SMSLog_2012 GROUP BY SMSNo HAVING COUNT(*) > 1"_q),
        QList<QStringList>());
}

void ExpectDone(const Scene& scene, const Operation& operation, int turn)
{
    EXPECT_EQ(scene.last.changes, Sum(operation.effects(turn)));
    EXPECT_EQ(scene.last.boxes, operation.boxes(turn));
    EXPECT_EQ(scene.last.statements.size(), operation.statements);
    EXPECT_EQ(scene.last.logIns, operation.logIns);
}

QString NameOf(Fault::Kind kind)
{
    switch (kind) {
    case Fault::Kind::CutBefore:
        return u"CutBefore"_q;
    case Fault::Kind::CutInMiddle:
        return u"CutInMiddle"_q;
    case Fault::Kind::CutAfter:
        return u"CutAfter"_q;
    case Fault::Kind::Deadlock:
        return u"Deadlock"_q;
    case Fault::Kind::Notice:
        return u"Notice"_q;
    case Fault::Kind::LogInRefused:
        return u"Refused"_q;
    case Fault::Kind::LogInCut:
        return u"Cut"_q;
    }
    return {};
}

QString NameOf(const Case& one)
{
    return u"%1_%2%3_%4_%5"_q
        .arg(QString::fromLatin1(OperationOf(one).name), one.fault.IsOfLogIn() ? u"LogIn"_q : u"Statement"_q)
        .arg(one.fault.nth)
        .arg(NameOf(one.fault.kind), one.fault.staysAway ? u"ServerStaysAway"_q : u"ServerIsBack"_q);
}

void PrintTo(const Case& one, std::ostream* out)
{
    *out << NameOf(one).toStdString();
}

QList<Fault> FaultsOf(const Operation& operation)
{
    QList<Fault> faults;
    for (const bool staysAway : {false, true}) {
        for (const auto kind : {Fault::Kind::CutBefore, Fault::Kind::CutInMiddle, Fault::Kind::CutAfter,
                                Fault::Kind::Deadlock, Fault::Kind::Notice})
            for (int nth = 1; nth <= operation.statements; ++nth)
                faults += {kind, nth, staysAway};
        for (const auto kind : {Fault::Kind::LogInRefused, Fault::Kind::LogInCut})
            for (int nth = 1; nth <= operation.logIns; ++nth)
                faults += {kind, nth, staysAway};
    }
    return faults;
}

/// Of the faults of one place, the one whose turn it is.
QList<Fault> OneFaultAPlace(const QList<Fault>& faults, int turn)
{
    std::map<std::pair<bool, int>, QList<Fault>> places;
    for (const Fault& fault : faults)
        places[{fault.IsOfLogIn(), fault.nth}] += fault;
    QList<Fault> chosen;
    for (const auto& [place, kinds] : places)
        chosen += kinds[turn++ % kinds.size()];
    return chosen;
}

/// Every fault in every operation; or every fault in the first operation of each manner, and in the others
/// one at each statement and each log-in.
QList<Case> Cases()
{
    QList<Case> cases;
    std::set<Operation::Manner> met;
    for (int i = 0; i < Operations().size(); ++i) {
        const QList<Fault> faults = FaultsOf(Operations()[i]);
        const bool changes = !Operations()[i].effects(1).isEmpty();
        const bool isFirst = changes && met.insert(Operations()[i].manner).second;
        for (const Fault& fault : IsEveryCaseAsked() || isFirst ? faults : OneFaultAPlace(faults, i))
            cases += {i, fault};
    }
    return cases;
}

class WithoutAFault : public ::testing::TestWithParam<Operation>
{
};

TEST_P(WithoutAFault, AnOperationSendsWhatTheTableTellsAndCanBeDoneTwice)
{
    Scene scene;
    if (GetParam().name != std::string("Launch"))
        scene.Start();
    for (const int turn : {1, 2}) {
        GetParam().perform(scene, turn);
        ExpectDone(scene, GetParam(), turn);
        EXPECT_EQ(scene.last.statements, scene.last.passed);
        ExpectAnswers(scene);
    }
    ExpectWhole(scene);
}

INSTANTIATE_TEST_SUITE_P(Operations, WithoutAFault, ::testing::ValuesIn(Operations()),
                         [](const auto& one) { return std::string(one.param.name); });

class WithAFault : public ::testing::TestWithParam<Case>
{
protected:
    WithAFault() : clean(CleanRun(GetParam().operation))
    {
        if (operation.name != std::string("Launch"))
            scene.Start();
        scene.fault = [](TestServer& server) { Arm(server, GetParam().fault); };
        operation.perform(scene, 1);
    }

    void ExpectItsChanges()
    {
        const QList<QStringList> effects = operation.effects(1);
        const QList<int> changes = ChangesOf(GetParam().operation);
        ASSERT_EQ(effects.size(), changes.size());
        QList<QStringList> executed;
        for (int i = 0; i < changes.size(); ++i)
            if (IsExecuted(changes[i], GetParam()))
                executed += effects[i];
        EXPECT_EQ(scene.last.changes, Sum(executed));
        isComplete = executed.size() == effects.size();
    }

    void ExpectItsBoxes()
    {
        const QList<Box> own = operation.boxes(1);
        const QList<Box> known =
            own + operation.failures + QList{BoxOf(GetParam().fault.kind), ServerDownBox()};
        for (const Box& box : scene.last.boxes)
            EXPECT_TRUE(known.contains(box)) << box;
        EXPECT_TRUE(scene.last.boxes.contains(BoxOf(GetParam().fault.kind)));
        const bool hitsChange =
            !GetParam().fault.IsOfLogIn() && ChangesOf(GetParam().operation).contains(GetParam().fault.nth);
        if (operation.manner == Operation::Manner::Runs && hitsChange) {
            EXPECT_EQ(scene.last.boxes, RunBoxes(GetParam()));
        } else if (operation.manner == Operation::Manner::Stops && !own.isEmpty()) {
            EXPECT_EQ(scene.last.boxes.contains(own.last()), isComplete && !hitsChange);
        }
    }

    const Operation& operation = OperationOf(GetParam());
    const Outcome& clean;
    Scene scene;
    bool isComplete = false;
};

TEST_P(WithAFault, AnOperationTellsItLosesNothingAndWorksAgain)
{
    ExpectItsChanges();
    ExpectItsBoxes();
    ExpectWithin(scene.last.statements, clean.statements);
    ExpectWithin(scene.last.passed, clean.passed);
    ExpectWhole(scene);
    ExpectAnswers(scene);

    operation.perform(scene, 2);
    ExpectDone(scene, operation, 2);
    if (operation.effects(2).isEmpty()) {
        EXPECT_EQ(scene.last.view, clean.view);
    }
    ExpectWhole(scene);
}

INSTANTIATE_TEST_SUITE_P(Operations, WithAFault, ::testing::ValuesIn(Cases()),
                         [](const auto& one) { return NameOf(one.param).toStdString(); });

} // namespace

} // namespace tsms::test
