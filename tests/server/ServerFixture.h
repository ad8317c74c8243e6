#pragma once

#include "server/OdbcClient.h"
#include "support/database/TestDatabase.h"
#include "support/server/TestServer.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

/// A server over a fresh database, and a client that is not connected yet.
class ServerFixture : public ::testing::Test
{
protected:
    void Connect() { ASSERT_TRUE(client_.Connect(server_)) << client_.First().Words.toStdString(); }

    /// Runs a batch that has to go well.
    void Run(const QString& sql)
    {
        ASSERT_TRUE(client_.Execute(sql)) << sql.toStdString() << ": " << client_.First().Words.toStdString();
    }

    QList<QStringList> Rows(const QString& sql)
    {
        Run(sql);
        return client_.Rows();
    }

    QString Value(const QString& sql) { return Rows(sql).value(0).value(0); }

    /// The balance that the file holds, past the server.
    QString Balance() { return database_.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q); }

    FixedClock clock_;
    TestDatabase database_{clock_, {2012, 2012}};
    TestServer server_{database_.Path(), clock_};
    OdbcClient client_;
};

} // namespace tsms::test
