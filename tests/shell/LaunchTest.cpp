#include "runtime/RuntimeError.h"
#include "shell/LaunchLine.h"
#include "shell/Main.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Fonts.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QFile>

#include <stdexcept>

using namespace tsms;
using namespace tsms::test;

namespace {

Box AloneBox()
{
    return {u"문자메시지 실행 실패!!!"_q,
            u"올바른 실행이 아닙니다. 메인 프로그램에서 실행하시길 바랍니다.!!!\r\n\r\n"
            u"이 프로그램은 단독으로 사용하실수가 없습니다.!!!"_q,
            MsgBoxCritical};
}

TEST(LaunchLine, SevenFieldsAreStoredAsTheyStand)
{
    Session session;
    StoreLaunchLine(u" db ■ server■ 1433■ id■ pw ■ 42 ■ 본사 "_q, session);
    EXPECT_EQ(session.DBCatalog, u" db "_q);
    EXPECT_EQ(session.DBServer, u" server"_q);
    EXPECT_EQ(session.DBPort, u" 1433"_q);
    EXPECT_EQ(session.DBUser, u" id"_q);
    EXPECT_EQ(session.DBPassword, u" pw "_q);
    EXPECT_EQ(session.UserData1, 42);
    EXPECT_EQ(session.UserData2, u" 본사 "_q);
}

TEST(LaunchLine, AnEighthFieldIsIgnored)
{
    Session session;
    StoreLaunchLine(u"a■b■c■d■e■1■g■h■i"_q, session);
    EXPECT_EQ(session.UserData2, u"g"_q);
}

struct LineFault
{
    QString line;
    long number;

    friend void PrintTo(const LineFault& fault, std::ostream* out) { *out << fault.line.toStdString(); }
};

class LineFaults : public ::testing::TestWithParam<LineFault>
{
};

TEST_P(LineFaults, RaiseTheirError)
{
    Session session;
    try {
        StoreLaunchLine(GetParam().line, session);
        FAIL() << "taken: " << GetParam().line.toStdString();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, GetParam().number);
    }
}

INSTANTIATE_TEST_SUITE_P(Lines, LineFaults,
                         ::testing::Values(LineFault{u"a■b■c■d■e■1"_q, SubscriptOutOfRange},
                                           LineFault{u"a"_q, SubscriptOutOfRange},
                                           LineFault{u"■■■■■"_q, TypeMismatch},
                                           LineFault{u"a■b■c■d■e■x■g"_q, TypeMismatch},
                                           LineFault{u"a■b■c■d■e■■g"_q, TypeMismatch},
                                           LineFault{u"a■b■c■d■e■2147483648■g"_q, Overflow}));

class Launching : public ::testing::Test
{
protected:
    /// The start ends in one fatal box with this number, and without a window.
    void ExpectFatal(const QString& command, long number)
    {
        program.desktop.AllowBoxes();
        EXPECT_FALSE(program.Start(command));
        EXPECT_EQ(program.exitStatus, 1);
        ASSERT_EQ(program.desktop.boxes.size(), 1);
        EXPECT_EQ(program.desktop.boxes[0].title, u"프로그램 오류"_q);
        EXPECT_EQ(program.desktop.boxes[0].style, MsgBoxCritical);
        EXPECT_TRUE(program.desktop.boxes[0].text.contains(QString::number(number)))
            << program.desktop.boxes[0].text.toStdString();
    }

    Program program;
};

TEST_F(Launching, WithNothingOnTheCommandLineItRefusesToRun)
{
    program.desktop.Expect(AloneBox());
    EXPECT_FALSE(program.Start(QString()));
    EXPECT_EQ(program.connections.Opens(), 0);
}

TEST_F(Launching, BlanksAloneAreNothing)
{
    program.desktop.Expect(AloneBox());
    EXPECT_FALSE(program.Start(u"     "_q));
}

TEST_F(Launching, SixFieldsEndInAFatalErrorBeforeAnyWindow)
{
    ExpectFatal(u"a■b■c■d■e■1"_q, SubscriptOutOfRange);
    EXPECT_EQ(program.connections.Opens(), 0);
}

TEST_F(Launching, ANumberThatIsNoneEndsInAFatalErrorBeforeAnyWindow)
{
    ExpectFatal(u"a■b■c■d■e■열■g"_q, TypeMismatch);
}

TEST_F(Launching, ANumberBeyondThirtyTwoBitsEndsInAFatalErrorBeforeAnyWindow)
{
    ExpectFatal(u"a■b■c■d■e■2147483648■g"_q, Overflow);
}

TEST_F(Launching, AnErrorFromElsewhereEndsInTheFatalBoxToo)
{
    program.desktop.Expect(
        {u"프로그램 오류"_q,
         u"오류번호 : 440\r\n오류내용 : 프로그램 내부에서 예기치 않은 오류가 발생하였습니다. (driver)"_q,
         MsgBoxCritical});
    DBConnect db(program.session, program.desktop,
                 []() -> std::unique_ptr<Connection> { throw std::runtime_error("driver"); });
    Services services{program.session, program.desktop, program.clock, db, program.sms};
    const Launch launch = Main(program.LaunchLine(), services);
    EXPECT_EQ(launch.form, nullptr);
    EXPECT_EQ(launch.exitStatus, 1);
}

TEST_F(Launching, TheWindowHasTheProgramsFontWhateverTheDeskHas)
{
    const QFont before = QApplication::font();
    QApplication::setFont(QFont(u"DejaVu Serif"_q, 20));
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.form->font().families(), theme::Font().families());
    EXPECT_EQ(program.form->font().pointSize(), 9);
    QApplication::setFont(before);
}

TEST_F(Launching, TheAccountChecksComeWhenBusyHasGoneOff)
{
    program.database.SetAccount(0);
    bool busy = true;
    program.desktop.Expect(ChargeBox(), AnswerOK, [&] { busy = program.session.IsBusy(); });
    ASSERT_TRUE(program.Start());
    EXPECT_FALSE(busy);
}

TEST_F(Launching, EightFieldsLoadAsIfTheEighthWereNotThere)
{
    EXPECT_TRUE(program.Start(program.LaunchLine() + u"■extra"_q));
    EXPECT_EQ(program.session.UserData1, 7);
    EXPECT_EQ(program.session.UserData2, u"본사"_q);
}

TEST_F(Launching, TheAccountRowIsInTheSessionAndOnTheWindow)
{
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.session.SMSRemainCnt, 100);
    EXPECT_EQ(program.session.SMSOrgNm, u"한빛교회"_q);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"100건 남았습니다."_q);
    EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"100"_q);
    EXPECT_EQ(program.The<TextBox>(u"txtSendNo"_q).Text(), u"02-1234-5678"_q);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(Launching, WithoutAnAccountRowTheWindowOpensOnTheSignUpPath)
{
    program.database.Execute(u"DELETE FROM SMSSetup"_q);
    program.desktop.Expect(SignUpBox());
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.desktop.pages, QStringList{QString()});
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"건 남았습니다."_q);
    EXPECT_EQ(program.The<Label>(u"lblSMSCnt"_q).Tag, u"0"_q);
}

TEST_F(Launching, ABalanceOfZeroOffersACharge)
{
    program.database.SetAccount(0);
    program.desktop.Expect(ChargeBox());
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.desktop.pages, QStringList{u"http://127.0.0.1:8790/charge"_q});
}

TEST_F(Launching, AnEmptyPasswordOrDomainPassesTheLoadInSilence)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSPWD = NULL, SMSDNS = ''"_q);
    EXPECT_TRUE(program.Start());
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(Launching, ABalanceThatIsNullEndsTheProgramWithItsBox)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSRemainCnt = NULL"_q);
    program.desktop.AllowBoxes();
    EXPECT_FALSE(program.Start());
    EXPECT_EQ(program.exitStatus, 0);
    ASSERT_EQ(program.desktop.boxes.size(), 1);
    EXPECT_EQ(program.desktop.boxes[0].title, u" - 오류!!!"_q);
    EXPECT_EQ(program.desktop.boxes[0].style, MsgBoxCritical);
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(Launching, AnUnreachableDatabaseOpensAnEmptySession)
{
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 3; ++i) // two attempts to connect, and the query's own
        program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(SignUpBox());
    for (int i = 0; i < 4; ++i) // the same again for the templates, which take two queries
        program.desktop.Expect(ServerDownBox());
    ASSERT_TRUE(program.Start());
    EXPECT_EQ(program.session.SMSRemainCnt, 0);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.session.SMSID, QString());
}

TEST_F(Launching, AFileThatIsNoDatabaseIsReportedAsADeadServer)
{
    const QString path = program.database.Folder() + u"/text.db"_q;
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(QByteArray("이것은 데이터베이스가 아닙니다.\n").repeated(100));
    file.close();
    program.desktop.AllowBoxes();
    ASSERT_TRUE(program.Start(path + u"■(embedded)■0■sa■■1■x"_q));
    ASSERT_FALSE(program.desktop.boxes.isEmpty());
    EXPECT_EQ(program.desktop.boxes.first(), ServerDownBox());
    EXPECT_EQ(program.desktop.boxes.count(SignUpBox()), 1);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_TRUE(file.readAll().startsWith("이것은"));
}

TEST_F(Launching, AMissingFileIsReportedAndNotCreated)
{
    const QString path = program.database.Folder() + u"/none.db"_q;
    program.desktop.AllowBoxes();
    ASSERT_TRUE(program.Start(path + u"■(embedded)■0■sa■■1■x"_q));
    EXPECT_EQ(program.desktop.boxes.first(), ServerDownBox());
    EXPECT_FALSE(QFile::exists(path));
}

TEST_F(Launching, ALineOfAHundredThousandCharactersIsTaken)
{
    const QString text = QString(u"가"_q).repeated(100000);
    EXPECT_TRUE(program.Start(program.LaunchLine() + text));
    EXPECT_EQ(program.session.UserData2, u"본사"_q + text);
}

} // namespace
