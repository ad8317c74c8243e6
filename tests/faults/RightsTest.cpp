#include "faults/Operations.h"
#include "support/server/StatementRights.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// A right, and an operation that cannot do without it.
struct MissingRight
{
    const char* action;
    const char* table;
    const char* operation;

    TableRight Right() const { return {QString::fromLatin1(action), QString::fromLatin1(table)}; }
};

constexpr MissingRight MissingRights[] = {
    {"SELECT", "SMSSetup", "Launch"},
    {"UPDATE", "SMSSetup", "SaveSettings"},
    {"SELECT", "SMSGroupMst", "OpenBook"},
    {"INSERT", "SMSGroupMst", "AddGroup"},
    {"UPDATE", "SMSGroupMst", "RenameGroup"},
    {"DELETE", "SMSGroupMst", "DeleteGroup"},
    {"SELECT", "SMSGroupSub", "ChooseGroup"},
    {"INSERT", "SMSGroupSub", "AddMember"},
    {"UPDATE", "SMSGroupSub", "EditMember"},
    {"DELETE", "SMSGroupSub", "DeleteMember"},
    {"SELECT", "SMSTempLMst", "Launch"},
    {"SELECT", "SMSTempLSub", "ChooseCategory"},
    {"INSERT", "SMSTempLSub", "NewTemplate"},
    {"UPDATE", "SMSTempLSub", "ChangeTemplate"},
    {"DELETE", "SMSTempLSub", "DeleteTemplate"},
    {"SELECT", "SMSCharge", "Months"},
    {"INSERT", "SMSCharge", "EnterCharge"},
    {"DELETE", "SMSCharge", "DeleteCharge"},
    {"SELECT", "SMSLog_2012", "Search"},
    {"INSERT", "SMSLog_2012", "Send"},
    {"DELETE", "SMSLog_2012", "WithdrawOne"},
};

QStringList Lines(const QList<TableRight>& rights)
{
    QStringList lines;
    for (const TableRight& right : rights)
        lines += right.Table + u' ' + right.Action;
    lines.sort();
    return lines;
}

void PrintTo(const MissingRight& one, std::ostream* out)
{
    *out << one.action << " of " << one.table;
}

class WithoutARight : public ::testing::TestWithParam<MissingRight>
{
};

} // namespace

// That the operations without a fault do all their work, and those with one what is left of it, they owe to
// these rights.
TEST(Rights, AreThoseOfTheUserAsWhomTheProgramLogsIn)
{
    Scene scene;
    const auto before = scene.Server().LogIns().size();
    scene.Start();
    ASSERT_GT(scene.Server().LogIns().size(), before);
    for (const ServerLogin& logIn : scene.Server().LogIns().mid(before))
        EXPECT_EQ(logIn.User, Program::User);
}

TEST_P(WithoutARight, AnOperationTellsWhichIsMissing)
{
    const Operation& operation = Named(GetParam().operation);
    Scene scene;
    if (operation.name != std::string("Launch"))
        scene.Start();
    scene.fault = [&](TestServer&) {
        scene.program.RunAsOwner(u"REVOKE %1 ON dbo.%2 FROM [%3]"_q.arg(
            GetParam().Right().Action, GetParam().Right().Table, Program::User));
    };
    operation.perform(scene, 1);
    EXPECT_TRUE(scene.last.boxes.contains(
        Box{u" - 오류!!!"_q,
            u"☞ : The %1 permission was denied on the object '%2', database 'TSMS', schema 'dbo'."_q.arg(
                GetParam().Right().Action, GetParam().Right().Table),
            MsgBoxCritical}));
}

INSTANTIATE_TEST_SUITE_P(Rights, WithoutARight, ::testing::ValuesIn(MissingRights), [](const auto& one) {
    return std::string(one.param.action) + "_" + one.param.table;
});

TEST(Rights, ThatAreGrantedAreThoseWhichSomeOperationNeeds)
{
    QList<TableRight> granted;
    for (const TableDescription& table : AllTables({2012, 2012}))
        granted += RightsOfList(table.rights, table.name);
    QList<TableRight> needed;
    for (const MissingRight& one : MissingRights)
        needed += one.Right();
    EXPECT_EQ(Lines(granted), Lines(needed));
}

} // namespace tsms::test
