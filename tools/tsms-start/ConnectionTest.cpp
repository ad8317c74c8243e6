#include "tsms-start/ConnectionTest.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "store/engine/Tables.h"
#include "tsms-start/TableProbe.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>

namespace tsms {

namespace {

using Kind = TestStep::Kind;
using Verdict = TestStep::Verdict;

constexpr int SecondsToConnect = 10;
constexpr int SecondsToAnswer = 20;

/// The database of every server, which lets in everybody whom the server does.
const QString ServersOwn = QStringLiteral("master");

QList<TestStep> StepsOf(const SavedConnection& connection, int year)
{
    const QString logs = QStringLiteral("%1년 발송내역").arg(year);
    const TestStep tables{Kind::Tables, QStringLiteral("테이블")};
    const TestStep log{Kind::Logs, logs};
    const TestStep gateway{Kind::Gateway, QStringLiteral("문자메시지 서버")};
    if (!connection.IsServer())
        return {{Kind::Database, QStringLiteral("데이터베이스 파일")}, tables, log, gateway};
    return {{Kind::Driver, QStringLiteral("ODBC 드라이버")},
            {Kind::Answer, QStringLiteral("서버 응답")},
            {Kind::LogIn, QStringLiteral("로그인")},
            {Kind::Database, QStringLiteral("데이터베이스")},
            tables,
            log,
            {Kind::Rights, QStringLiteral("권한")},
            gateway};
}

QString ServerSays(const QString& words)
{
    return QStringLiteral("\r\n\r\n서버의 말: ") + words;
}

#ifdef Q_OS_WIN
QString DriverWords(const QString& words)
{
    return words + QStringLiteral("\r\n\r\n마이크로소프트가 나누어 주는 64비트용 설치 파일 msodbcsql.msi를 "
                                  "관리자 권한으로 실행하십시오.");
}
#else
QString DriverWords(const QString& words)
{
    return words + QStringLiteral("\r\n\r\n관리자 권한으로 다음 명령을 실행하여 설치하십시오.\r\n"
                                  "    apt-get install libodbc2 tdsodbc\r\n"
                                  "마이크로소프트의 msodbcsql18이 설치되어 있으면 그것을 씁니다.");
}
#endif

QString NoAnswerWords(const SavedConnection& connection, const QString& words)
{
    return QStringLiteral("서버 %1 이(가) 응답하지 않습니다. 다음을 확인하십시오.\r\n"
                          "- 서버 이름이나 주소, 포트가 맞는지\r\n"
                          "- 서버가 켜져 있고 SQL Server가 실행 중인지\r\n"
                          "- SQL Server 구성 관리자에서 TCP/IP를 사용하도록 하였는지\r\n"
                          "- 방화벽이 그 포트를 막지 않는지")
               .arg(connection.port.isEmpty() ? connection.server
                                              : connection.server + u',' + connection.port) +
           ServerSays(words);
}

QString LogInWords(const SavedConnection& connection, const QString& words)
{
    return QStringLiteral(
               "서버가 로그인 %1 을(를) 받아들이지 않았습니다. 로그인과 비밀번호를 확인하십시오. "
               "서버는 SQL Server 인증을 허용하여야 합니다. Windows 인증으로는 연결할 수 없습니다.")
               .arg(connection.login) +
           ServerSays(words);
}

QString DatabaseWords(const SavedConnection& connection, const QString& words)
{
    return QStringLiteral("서버에 데이터베이스 %1 이(가) 없거나, 로그인 %2 이(가) 그 데이터베이스의 사용자가 "
                          "아닙니다. 이름을 확인하거나, 데이터베이스 주인에게 다음을 부탁하십시오.\r\n"
                          "    CREATE DATABASE %1 COLLATE Korean_Wansung_CI_AS;\r\n"
                          "    USE %1; CREATE USER [%2] FOR LOGIN [%2] WITH DEFAULT_SCHEMA = dbo;")
               .arg(connection.database, connection.login) +
           ServerSays(words);
}

QString FileWords(const QString& file)
{
    if (!QFileInfo::exists(file))
        return QStringLiteral("파일이 없습니다. \"고치기\"에서 다른 파일을 고르거나 새로 만드십시오.\r\n") +
               file;
    return QStringLiteral(
               "이 파일을 읽을 수 없거나 문자메시지 데이터베이스가 아닙니다. 다른 파일을 고르거나, "
               "파일의 권한을 확인하십시오.\r\n") +
           file;
}

QString OtherFaultWords(const RuntimeError& error)
{
    if (error.Number == CommunicationFailure)
        return QStringLiteral("확인하는 동안 연결이 끊어졌습니다. 다시 시험하십시오.") +
               ServerSays(error.Description);
    if (error.Number == CommandTimedOut)
        return QStringLiteral(
            "데이터베이스가 제때 대답하지 않았습니다. 다른 프로그램이 잠그고 있을 수 있습니다. "
            "잠시 뒤에 다시 시험하십시오.");
    return QStringLiteral("데이터베이스가 확인을 거절하였습니다.") + ServerSays(error.Description);
}

const QString PrepareAdvice = QStringLiteral("\r\n\r\n\"데이터베이스 준비\"를 누르면 없는 것만 만듭니다.");

} // namespace

ConnectionTest::ConnectionTest(SavedConnection connection, QString password, const Clock& clock,
                               ConnectionMaker makeConnection, GatewayLook gateway)
    : saved_(std::move(connection)),
      password_(std::move(password)),
      clock_(clock),
      makeConnection_(std::move(makeConnection)),
      gateway_(std::move(gateway)),
      steps_(StepsOf(saved_, clock_.Date().year()))
{
}

void ConnectionTest::Run(const std::function<void()>& onChange)
{
    onChange_ = onChange;
    steps_ = StepsOf(saved_, clock_.Date().year());
    LookAtDatabase();
    connection_.reset();
    Try({Kind::Gateway});
    const QString fault = gateway_();
    fault.isEmpty() ? Pass(Kind::Gateway) : Fail(Kind::Gateway, fault);
}

bool ConnectionTest::Has(Kind kind) const
{
    return std::any_of(steps_.begin(), steps_.end(),
                       [kind](const TestStep& step) { return step.kind == kind; });
}

/// These are tried, and no others.
void ConnectionTest::Try(std::initializer_list<Kind> kinds)
{
    for (TestStep& step : steps_) {
        if (std::find(kinds.begin(), kinds.end(), step.kind) != kinds.end())
            step.verdict = Verdict::Trying;
        else if (step.verdict == Verdict::Trying)
            step.verdict = Verdict::NotSeen;
    }
    onChange_();
}

/// Of a step that this connection does not have, nothing.
void ConnectionTest::Tell(Kind kind, Verdict verdict, const QString& words)
{
    for (TestStep& step : steps_) {
        if (step.kind != kind)
            continue;
        step.verdict = verdict;
        step.words = words;
        onChange_();
    }
}

void ConnectionTest::LookAtDatabase()
{
    if (!Open())
        return;
    const std::pair<Kind, void (ConnectionTest::*)()> looks[] = {
        {Kind::Tables, &ConnectionTest::LookAtTables},
        {Kind::Logs, &ConnectionTest::LookAtLogs},
        {Kind::Rights, &ConnectionTest::LookAtRights}};
    for (const auto& [kind, look] : looks) {
        if (!Has(kind))
            continue;
        Try({kind});
        try {
            (this->*look)();
        } catch (const RuntimeError& error) {
            Fail(kind, OtherFaultWords(error));
            return;
        }
    }
}

bool ConnectionTest::Open()
{
    connection_ = makeConnection_();
    connection_->ConnectionString = ConnectionTextOf(saved_, password_);
    connection_->ConnectionTimeout = SecondsToConnect;
    connection_->CommandTimeout = SecondsToAnswer;
    Try({Kind::Driver, Kind::Answer, Kind::LogIn, Kind::Database}); // which are one call
    try {
        connection_->Open();
    } catch (const RuntimeError& error) {
        TellOpeningFault(error.Number, error.Description);
        return false;
    }
    for (const Kind kind : {Kind::Driver, Kind::Answer, Kind::LogIn, Kind::Database})
        Pass(kind);
    return true;
}

void ConnectionTest::TellOpeningFault(long number, const QString& words)
{
    if (!saved_.IsServer())
        return Fail(Kind::Database, FileWords(saved_.file));
    if (number == NoDriver)
        return Fail(Kind::Driver, DriverWords(words));
    Pass(Kind::Driver);
    if (number == CommunicationFailure)
        return TellUnreachable(words);
    if (number == BadConnectionText)
        return Fail(Kind::LogIn, words);
    Pass(Kind::Answer);
    Fail(Kind::LogIn, LogInWords(saved_, words));
}

/// To its user a database that is not there is a server that is not: so the server's own one is asked for.
void ConnectionTest::TellUnreachable(const QString& words)
{
    connection_->ConnectionString = ConnectionTextOf(saved_, password_, ServersOwn);
    try {
        connection_->Open();
    } catch (const RuntimeError& error) {
        if (error.Number == CommunicationFailure)
            return Fail(Kind::Answer, NoAnswerWords(saved_, words));
        Pass(Kind::Answer);
        return Fail(Kind::LogIn, LogInWords(saved_, error.Description));
    }
    Pass(Kind::Answer);
    Pass(Kind::LogIn);
    Fail(Kind::Database, DatabaseWords(saved_, words));
}

QList<TableDescription> ConnectionTest::Logs() const
{
    return LogsNeededIn(clock_.Date().year());
}

void ConnectionTest::LookAtTables()
{
    QStringList missing;
    QStringList different;
    for (const TableDescription& table : LastingTables()) {
        const TableFinding finding = LookAtTable(*connection_, table);
        if (finding.state == TableState::Missing)
            missing += table.name;
        if (finding.state == TableState::Different)
            different += table.name + QStringLiteral(": ") + finding.words;
    }
    if (!missing.isEmpty())
        return Fail(Kind::Tables, QStringLiteral("없는 테이블이 있습니다: ") +
                                      missing.join(QStringLiteral(", ")) + PrepareAdvice);
    if (!different.isEmpty())
        return Fail(Kind::Tables, QStringLiteral("테이블의 칸이 프로그램이 쓰는 것과 다릅니다. 데이터베이스 "
                                                 "주인에게 알리십시오.\r\n") +
                                      different.join(QStringLiteral("\r\n")));
    if (LookAtTable(*connection_, AccountTable()).state == TableState::There &&
        !HasRow(*connection_, AccountTable()))
        return Fail(Kind::Tables, QStringLiteral("SMSSetup 테이블에 행이 없습니다.") + PrepareAdvice);
    Pass(Kind::Tables);
}

void ConnectionTest::LookAtLogs()
{
    QStringList missing;
    for (const TableDescription& log : Logs())
        if (LookAtTable(*connection_, log).state == TableState::Missing)
            missing += log.name;
    if (missing.isEmpty())
        return Pass(Kind::Logs);
    Fail(Kind::Logs, QStringLiteral("없는 발송내역 테이블이 있습니다: ") +
                         missing.join(QStringLiteral(", ")) +
                         QStringLiteral("\r\n없으면 그 해에 보낸 문자가 기록되지 않습니다. 요금현황 화면은 "
                                        "2020년을 먼저 보여 주므로 그 해의 것도 있어야 합니다.") +
                         PrepareAdvice);
}

void ConnectionTest::LookAtRights()
{
    QList<TableDescription> lacking;
    for (TableDescription table : LastingTables() + Logs()) {
        const TableState state = LookAtTable(*connection_, table).state;
        if (state == TableState::Missing || state == TableState::Different)
            continue; // which has been told
        table.rights = MissingRights(*connection_, table).join(QStringLiteral(", "));
        if (!table.rights.isEmpty())
            lacking += table;
    }
    if (lacking.isEmpty())
        return Pass(Kind::Rights);
    Fail(Kind::Rights,
         QStringLiteral("로그인 %1 에 없는 권한이 있습니다. 데이터베이스 주인이 다음을 실행하거나, "
                        "\"데이터베이스 준비\"에서 권한을 주십시오.\r\n\r\n")
                 .arg(saved_.login) +
             ServerTableGrants(saved_.login, lacking));
}

bool HasRefusedPassword(const QList<TestStep>& steps)
{
    return std::any_of(steps.begin(), steps.end(), [](const TestStep& step) {
        return step.kind == Kind::LogIn && step.verdict == Verdict::Bad;
    });
}

} // namespace tsms
