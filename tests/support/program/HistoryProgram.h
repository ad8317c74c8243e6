#pragma once

#include "support/program/Program.h"

#include <gtest/gtest.h>

namespace tsms::test {

/// A row of a log table as a test puts it there; an empty text is stored as NULL.
struct SentMessage
{
    QString time = u"2012-05-30 10-00"_q; ///< its year is that of the table
    QString status = u"1"_q;
    QString name = u"김하늘"_q;
    QString phone = u"010-0000-0001"_q;
    QString content = u"안녕하세요"_q;
    QString number = u"100001"_q; ///< the gateway's
    QString errorCode = {};
    QString errorText = {};

    friend void PrintTo(const SentMessage& message, std::ostream* out)
    {
        *out << "status " << message.status.toStdString() << " of " << message.time.toStdString();
    }
};

// The boxes of cancellations.
Box NothingTickedBox();
Box CancelQuestion(int count);
Box CancelledBox();
Box NothingCancelledBox();
Box LockedBox();
Box DatabaseBox(const QString& words);

/// The whole program, worked on its history page.
class HistoryProgram : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    /// Puts a row into the log and gives its key.
    int Log(const SentMessage& message);
    /// Puts that many alike into the log, of today unless the message says otherwise.
    void LogMany(int count, const SentMessage& message = {});

    /// Sends through the gateway, which holds the message until then ("YYYY:MM:DD:HH:MM"); gives the key of
    /// its row.
    int Reserve(const QString& name, const QString& until = u"2012:05:31:10:00"_q);

    void Enter() { program.Click(u"BtnToolbarDis(1)"_q); }
    void SetPeriod(const QString& first, const QString& last);
    void Search() { program.Click(u"BtnSendListSerch"_q); }
    /// Enters the page and searches these days.
    void EnterAndList(const QString& first, const QString& last);
    /// All days of the year 2012.
    void EnterAndListAll() { EnterAndList(u"2012-01-01"_q, u"2012-12-31"_q); }

    fpSpread& List() { return program.The<fpSpread>(u"fpSpreadSendList"_q); }
    QStringList Column(int col);
    QStringList Names() { return Column(5); }
    QString Marks(); ///< a letter a row: empty, ticked, locked, or "-" for none
    void ClickMark(int row) { ClickCell(List(), 2, row); }
    QString CountText() { return program.Caption(u"LblSendListCnt"_q); }
    bool ChkAllEnabled() { return program.Control(u"chkAll"_q).isEnabled(); }
    bool ChkAllTicked();
    void ClickChkAll();

    int StatementCount() { return static_cast<int>(program.connections.Statements().size()); }
    QString LastStatement() { return program.connections.Statements().last(); }
    /// The keys that are left in a log table.
    QStringList Keys(int year = 2012);
    QList<ServiceCall> Withdrawals(); ///< calls of DeleteSMS

    /// The box of an outcome, at which no connection to the database is open any more.
    void ExpectOutcome(const Box& box);
    /// Nobody has left a client behind through which a message could be withdrawn.
    void ExpectNoGatewayClient();

    Program program;
};

} // namespace tsms::test
