#include "gateway/SoapClient30.h"
#include "support/Words.h"
#include "tsms-gateway/ServiceWords.h"
#include "tsms-gateway/SimulatedGateway.h"

#include <gtest/gtest.h>

#include <QElapsedTimer>
#include <QProcess>

namespace tsms::test {

namespace {

constexpr int LongEnough = 20000; // milliseconds, on a busy machine

/// The program as a demonstration starts it.
class GatewayProgram
{
public:
    explicit GatewayProgram(const QStringList& arguments)
    {
        process.start(QStringLiteral(TSMS_GATEWAY_PROGRAM), arguments);
    }
    ~GatewayProgram()
    {
        process.kill();
        process.waitForFinished(LongEnough);
    }

    /// The next line of its standard output, "" when none comes.
    QString Line()
    {
        while (!process.canReadLine() && process.waitForReadyRead(LongEnough)) {
        }
        return QString::fromUtf8(process.readLine()).trimmed();
    }

    /// Its exit status, -1 when it does not end.
    int ExitCode() { return process.waitForFinished(LongEnough) ? process.exitCode() : -1; }

    QProcess process;
};

QString Send(SoapClient30& client, const QString& content)
{
    return client.Call(u"SendSMS"_q, {u"demo"_q,
                                      u"demo"_q,
                                      u"sms.example.kr"_q,
                                      u"02-1234-5678"_q,
                                      u"010-0000-0001"_q,
                                      content,
                                      {},
                                      {},
                                      {},
                                      {},
                                      {}});
}

} // namespace

TEST(GatewayProgram, TellsItsAddressAndEachMessageAsItArrives)
{
    GatewayProgram program({u"--port"_q, u"0"_q, u"--fault"_q, u"refuse@2"_q});
    const QString ready = program.Line();
    ASSERT_TRUE(ready.startsWith(u"ready http://127.0.0.1:")) << ready.toStdString();
    SoapClient30 client;
    client.mssoapinit(ready.section(u' ', 1) + DescriptionPath(), {}, {}, {});
    EXPECT_TRUE(Send(client, u"안녕\r\n하세요"_q).startsWith(u"return_value:true"));
    EXPECT_EQ(program.Line(), u"문자 100001: 02-1234-5678 → 010-0000-0001: 안녕 / 하세요"_q);
    EXPECT_TRUE(Send(client, u"둘째"_q).contains(u"error_code:E99"));
    EXPECT_TRUE(Send(client, u"셋째"_q).startsWith(u"return_value:true"));
    EXPECT_TRUE(program.Line().endsWith(u": 셋째"));
}

TEST(GatewayProgram, EndsAtOnceWhenAskedAlsoWithAKeptConnection)
{
    GatewayProgram program({u"--port"_q, u"0"_q});
    SoapClient30 client;
    client.mssoapinit(program.Line().section(u' ', 1) + DescriptionPath(), {}, {}, {});
    QElapsedTimer timer;
    timer.start();
    program.process.terminate();
    EXPECT_TRUE(program.process.waitForFinished(LongEnough));
    EXPECT_LT(timer.elapsed(), 20000);
}

TEST(GatewayProgram, ATakenPortIsToldAndEndsIt)
{
    const SystemClock clock;
    SimulatedGateway taken(clock, {});
    ASSERT_TRUE(taken.Start());
    GatewayProgram program({u"--port"_q, QString::number(taken.Port())});
    EXPECT_EQ(program.ExitCode(), 1);
    EXPECT_TRUE(QString::fromUtf8(program.process.readAllStandardError()).contains(u"쓸 수 없습니다"));
}

TEST(GatewayProgram, WordsThatItDoesNotKnowEndIt)
{
    EXPECT_EQ(GatewayProgram({u"--fault"_q, u"nonsense"_q}).ExitCode(), 1);
    EXPECT_EQ(GatewayProgram({u"--port"_q, u"x"_q}).ExitCode(), 1);
    EXPECT_EQ(GatewayProgram({u"--port"_q, u"99999"_q}).ExitCode(), 1);
}

} // namespace tsms::test
