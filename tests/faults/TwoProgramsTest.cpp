#include "faults/Operations.h"
#include "faults/SendingProcess.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

/// The program on the forms, and others that send on the same server and gateway meanwhile.
class TwoPrograms : public ::testing::Test
{
protected:
    TwoPrograms() { scene.Start(); }

    int LogRows() { return program.LogRows() - stocked; }
    void ExpectEachLoggedOnce()
    {
        EXPECT_EQ(
            program.database.Rows(u"SELECT SMSNo FROM SMSLog_2012 GROUP BY SMSNo HAVING COUNT(*) > 1"_q),
            QList<QStringList>());
    }

    Scene scene;
    Program& program = scene.program;
    const int stocked = program.LogRows();
};

} // namespace

TEST_F(TwoPrograms, SendingInTurnStatementByStatementDebitEachItsOwn)
{
    int others = 0;
    program.connections.BeforeStatement([&](const QString&) {
        ++others;
        EXPECT_TRUE(
            SendingProcess(program.database, program.gateway, 1, u"다른 %1 "_q.arg(others)).EndsWell());
    });
    Named("Send").perform(scene, 1);
    EXPECT_EQ(program.desktop.boxes, QList<Box>{SentBox()});
    EXPECT_GE(others, Named("Send").statements);
    EXPECT_EQ(LogRows(), 2 + others);
    EXPECT_EQ(program.Balance(), 100 - 2 - others);
    ExpectEachLoggedOnce();
}

TEST_F(TwoPrograms, SendingInTheMiddleOfAChargeDebitsTheChargedBalance)
{
    int others = 0;
    program.connections.BeforeStatement([&](const QString& sql) {
        if (!sql.contains(u"SMSRemainCnt +"_q))
            return;
        ++others;
        EXPECT_TRUE(SendingProcess(program.database, program.gateway, 3, u"다른 "_q).EndsWell());
    });
    Named("EnterCharge").perform(scene, 1);
    EXPECT_EQ(others, 1);
    EXPECT_EQ(program.Balance(), 100 + 500 - 3);
}

TEST_F(TwoPrograms, SendingAtOnceWhileAThirdChargesLeaveTheExactBalance)
{
    constexpr int Messages = 20;
    constexpr int Charges = 5;
    SendingProcess first(program.database, program.gateway, Messages, u"첫 "_q);
    SendingProcess second(program.database, program.gateway, Messages, u"둘 "_q);
    for (int charge = 1; charge <= Charges; ++charge)
        Named("EnterCharge").perform(scene, charge);
    EXPECT_TRUE(first.EndsWell());
    EXPECT_TRUE(second.EndsWell());
    EXPECT_EQ(LogRows(), 2 * Messages);
    EXPECT_EQ(program.Balance(), 100 - 2 * Messages + Charges * 500);
    EXPECT_EQ(program.database.Value(u"SELECT COUNT(*) FROM SMSCharge WHERE Remark LIKE '충전 %'"_q),
              QString::number(Charges));
    ExpectEachLoggedOnce();
}

} // namespace tsms::test
