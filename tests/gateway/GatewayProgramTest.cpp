#include "gateway/SoapClient30.h"
#include "support/Words.h"
#include "tsms-gateway/HeldMessages.h"
#include "tsms-gateway/ServiceWords.h"
#include "tsms-gateway/SimulatedGateway.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

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

    /// What it has said on its standard error, with the line ends of Unix.
    QString Told() { return QString::fromUtf8(process.readAllStandardError().replace("\r\n", "\n")); }

    QProcess process;
};

/// A file for --hold.
class HoldFile
{
public:
    explicit HoldFile(const QByteArray& content)
    {
        QFile file(Path());
        file.open(QIODevice::WriteOnly);
        file.write(content);
    }

    QString Path() const { return QDir(folder_.path()).filePath(u"예약.json"_q); }

private:
    QTemporaryDir folder_;
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

QString Withdraw(SoapClient30& client, const QString& number)
{
    return client.Call(u"DeleteSMS"_q,
                       {u"demo"_q, u"demo"_q, u"sms.example.kr"_q, number, QString(), QString(), QString()});
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
    EXPECT_TRUE(program.Told().contains(u"쓸 수 없습니다"));
}

TEST(GatewayProgram, HelpsInKoreanAlone)
{
    GatewayProgram program({u"--help"_q});
    EXPECT_EQ(program.ExitCode(), 0);
    const QString help = QString::fromUtf8(program.process.readAllStandardOutput());
    EXPECT_TRUE(help.startsWith(u"사용법:")) << help.toStdString();
    EXPECT_FALSE(help.contains(u"Usage"));
    for (const QString& option : {u"--port"_q, u"--hold"_q, u"--fault"_q, u"--help"_q})
        EXPECT_TRUE(help.contains(option)) << option.toStdString();
}

TEST(GatewayProgram, AnUnknownOptionIsToldInKoreanWithTheHelp)
{
    GatewayProgram program({u"--bogus"_q});
    EXPECT_EQ(program.ExitCode(), 1);
    const QString told = program.Told();
    EXPECT_TRUE(told.startsWith(u"알 수 없는 옵션")) << told.toStdString();
    EXPECT_TRUE(told.contains(u"사용법:"));
}

TEST(GatewayProgram, HoldsTheReservationsOfAFile)
{
    GatewayMessage message;
    message.Number = 730001;
    message.SendTime = u"2999:12:31:09:30"_q;
    const HoldFile file(HeldMessagesJson({730005, {message}}));
    GatewayProgram program({u"--port"_q, u"0"_q, u"--hold"_q, file.Path()});
    SoapClient30 client;
    client.mssoapinit(program.Line().section(u' ', 1) + DescriptionPath(), {}, {}, {});
    EXPECT_TRUE(Withdraw(client, u"730001"_q).startsWith(u"return_value:true"));
    EXPECT_TRUE(Withdraw(client, u"730001"_q).contains(u"error_code:E12"));
    Send(client, u"새 글"_q);
    EXPECT_EQ(program.Line(), u"문자 730006: 02-1234-5678 → 010-0000-0001: 새 글"_q);
}

TEST(GatewayProgram, AFileThatIsMissingOrBrokenIsToldAndEndsIt)
{
    const HoldFile broken("[{");
    GatewayProgram reader({u"--port"_q, u"0"_q, u"--hold"_q, broken.Path()});
    EXPECT_EQ(reader.ExitCode(), 1);
    EXPECT_EQ(reader.Told(), u"예약 파일의 내용이 올바르지 않습니다: "_q + broken.Path() + u"\n"_q);
    const QString missing = broken.Path() + u".none"_q;
    GatewayProgram seeker({u"--port"_q, u"0"_q, u"--hold"_q, missing});
    EXPECT_EQ(seeker.ExitCode(), 1);
    EXPECT_EQ(seeker.Told(), u"예약 파일을 읽을 수 없습니다: "_q + missing + u"\n"_q);
}

TEST(GatewayProgram, WordsThatItDoesNotKnowEndIt)
{
    EXPECT_EQ(GatewayProgram({u"--fault"_q, u"nonsense"_q}).ExitCode(), 1);
    EXPECT_EQ(GatewayProgram({u"--port"_q, u"x"_q}).ExitCode(), 1);
    EXPECT_EQ(GatewayProgram({u"--port"_q, u"99999"_q}).ExitCode(), 1);
}

} // namespace tsms::test
