#pragma once

#include "compose/RunDisplay.h"
#include "gateway/ModSMS.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/gateway/TestGateway.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace tsms::test {

/// Writes down what a run shows, in its order.
class RecordedDisplay final : public RunDisplay
{
public:
    void SetRunBusy(bool busy) override { shown += busy ? u"busy"_q : u"idle"_q; }
    void SetBarMaximum(int maximum) override { shown += u"bar of %1"_q.arg(maximum); }
    void SetBarValue(int value) override { shown += u"bar %1"_q.arg(value); }
    void ShowCounts(const QString& succeeded, const QString& failed) override
    {
        shown += u"counts [%1] [%2]"_q.arg(succeeded, failed);
    }
    void ShowStatus(const QString& text) override { shown += text; }

    QStringList shown;
};

/// What a run needs, without a window.
class RunTest : public ::testing::Test
{
protected:
    RunTest()
    {
        database.SetAccount();
        database.Describe(session);
        session.SMSID = u"demo"_q;
        session.SMSPWD = u"demo"_q;
        session.SMSDNS = u"sms.example.kr"_q;
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    TestDatabase database{clock};
    Session session;
    FailingConnections connections{database.Connections()};
    DBConnect db{session, desktop, connections.Maker()};
    TestGateway gateway{clock};
    ModSMS sms{session, db, desktop, clock, gateway.WsdlUrl()};
};

} // namespace tsms::test
