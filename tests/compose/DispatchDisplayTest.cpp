#include "compose/DispatchRun.h"
#include "compose/Draft.h"
#include "compose/RunTest.h"
#include "support/ListOfRows.h"

#ifdef Q_OS_WIN
#include "compose/RunFrame.h"

#include <qt_windows.h>
#endif

using namespace tsms;
using namespace tsms::test;

namespace {

class DispatchDisplay : public RunTest
{
protected:
    /// What a run over these rows shows, in its order.
    QStringList ShownFor(std::vector<ListOfRows::Row> given)
    {
        const auto total = static_cast<int>(given.size());
        const ListOfRows rows(std::move(given));
        RecordedDisplay display;
        DispatchRun(session, db, sms, {rows, total, u"안녕"_q, u"02-1234-5678"_q}, display).RunSend();
        return display.shown;
    }
};

TEST_F(DispatchDisplay, ShowsCountsForWhatWasAskedAStatusForWhatWasSeenAndTheBarForEveryRow)
{
    EXPECT_EQ(ShownFor({{.phone = u"010-0000-0001"_q, .removed = true},
                        {.phone = u" "_q},
                        {.phone = u"02-000-0001"_q},
                        {.phone = u"010-12345"_q},
                        {.phone = u"010-0000-0001"_q}}),
              QStringList({u"busy"_q, u"bar of 5"_q, u"bar 0"_q, u"bar 1"_q,
                           u"총 발송건수 : 5건 / 현 발송 건수 : 1건"_q, u"bar 2"_q,
                           u"총 발송건수 : 5건 / 현 발송 건수 : 2건"_q, u"bar 3"_q,
                           u"총 발송건수 : 5건 / 현 발송 건수 : 3건"_q, u"bar 4"_q, u"counts [1] []"_q,
                           u"총 발송건수 : 5건 / 현 발송 건수 : 4건"_q, u"bar 5"_q, u"idle"_q}));
    EXPECT_EQ(gateway.CallCount(), 1);
}

TEST_F(DispatchDisplay, ShowsARowBeforeTheBoxOfTheNextOne)
{
    const ListOfRows rows(std::vector<ListOfRows::Row>(3, {.phone = u"010-0000-0001"_q}));
    RecordedDisplay display;
    gateway.Fail(FaultKind::Refuse, 2);
    const auto expectAfter = [&](const QString& code, const QString& words, const QString& last) {
        desktop.Expect({u"문자메시지 발송실패!!!"_q,
                        u"문자발송 실패!!! :  실패코드 = %1 실패사유 = %2"_q.arg(code, words),
                        MsgBoxCritical},
                       AnswerOK, [&display, last] { EXPECT_EQ(display.shown.last(), last); });
    };
    expectAfter(u"E99"_q, u"수신이 거부된 번호입니다."_q, u"bar 1"_q);
    expectAfter({}, {}, u"bar 2"_q);
    DispatchRun(session, db, sms, {rows, 3, u"안녕"_q, u"02-1234-5678"_q}, display).RunSend();
    EXPECT_EQ(display.shown.filter(u"counts"_q),
              QStringList({u"counts [1] []"_q, u"counts [1] [1]"_q, u"counts [1] [2]"_q}));
}

TEST_F(DispatchDisplay, WhenNothingWentOutNothingIsDebited)
{
    ShownFor({{.phone = u"02-000-0001"_q}});
    EXPECT_EQ(connections.Statements(), QStringList());
}

TEST_F(DispatchDisplay, ItsFirstMessageTellsTheDatabaseHowManyMayFollow)
{
    ShownFor({{.phone = u"02-000-0001"_q},
              {.phone = u"010-0000-0001"_q},
              {.phone = u"010-0000-0002"_q},
              {.phone = u" "_q}});
    EXPECT_EQ(connections.Expected(), QList<int>({2}));
}

#ifdef Q_OS_WIN
TEST_F(DispatchDisplay, TheMachineStaysAwakeAsLongAsTheRunGoesOn)
{
    const auto isAwake = [] {
        return (::SetThreadExecutionState(ES_SYSTEM_REQUIRED) & ES_SYSTEM_REQUIRED) != 0;
    };
    ::SetThreadExecutionState(ES_CONTINUOUS);
    bool wasAwake = false;
    RecordedDisplay display;
    InRunFrame(db, sms, display, 1, [&] { wasAwake = isAwake(); });
    EXPECT_TRUE(wasAwake);
    EXPECT_FALSE(isAwake());
}
#endif

TEST_F(DispatchDisplay, CountsAnewInEachRun)
{
    const ListOfRows rows({{.phone = u"010-0000-0001"_q}});
    RecordedDisplay display;
    const Draft draft{rows, 1, u"안녕"_q, u"02-1234-5678"_q};
    DispatchRun run(session, db, sms, draft, display);
    for (int i = 0; i < 2; ++i) {
        run.RunSend();
        EXPECT_EQ(run.CountOK, 1);
    }
    EXPECT_EQ(database.Value(u"SELECT SMSRemainCnt FROM SMSSetup"_q), u"98"_q);
}

TEST_F(DispatchDisplay, GroupsTheDigitsOfAThousandMessages)
{
    const QStringList shown = ShownFor(std::vector<ListOfRows::Row>(1000, {.phone = u"010-0000-0001"_q}));
    EXPECT_EQ(shown.filter(u"counts"_q).last(), u"counts [1,000] []"_q);
    EXPECT_EQ(shown.filter(u"현 발송 건수"_q).last(), u"총 발송건수 : 1000건 / 현 발송 건수 : 1,000건"_q);
}

} // namespace
