#include "tsms-db/Command.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"
#include "store/embedded/EmbeddedConnection.h"
#include "store/embedded/EmbeddedTables.h"
#include "store/engine/DatabaseError.h"
#include "tsms-db/Demo.h"
#include "tsms-db/Reservations.h"

#include <QCommandLineParser>
#include <QFileInfo>

namespace tsms {

namespace {

enum ExitStatus : int { Done = 0, Failed = 1, NotUnderstood = 2 };

const QString Usage = QStringLiteral(
    "사용법:\n"
    "  tsms-db create 파일 [--years 2010-2030] [--demo]\n"
    "      새 데이터베이스 파일을 만듭니다. 이미 있는 파일은 건드리지 않습니다.\n"
    "  tsms-db add-year 파일 연도\n"
    "      데이터베이스 파일에 그 해의 발송내역 테이블을 추가합니다.\n"
    "  tsms-db schema --server [--years 2010-2030]\n"
    "      SQL Server용 테이블 생성문을 화면에 출력합니다.\n"
    "  tsms-db add-year 연도 --server\n"
    "      그 해의 발송내역 테이블을 SQL Server에 만드는 문장을 화면에 출력합니다.\n"
    "  tsms-db grants 사용자 [--years 2010-2030]\n"
    "      프로그램이 쓰는 SQL Server 사용자에게 꼭 필요한 권한을 주는 문장을 화면에 출력합니다.\n"
    "  tsms-db reservations 파일\n"
    "      아직 시간이 되지 않은 예약 문자를 tsms-gateway --hold가 읽는 JSON으로 출력합니다.\n"
    "\n"
    "옵션:\n"
    "  --years 처음-끝   발송내역 테이블의 연도 (기본값 2010-2030)\n"
    "  --demo            시연용 자료를 채웁니다.\n"
    "  --server          SQL Server용으로 출력합니다.\n"
    "  -h, --help        이 도움말을 봅니다.\n");

/// What went wrong, for a person at a terminal.
QString Reason(const RuntimeError& error)
{
    switch (error.Number) {
    case CommunicationFailure:
        return QStringLiteral("이 위치의 파일을 쓸 수 없거나 데이터베이스 파일이 아닙니다.");
    case CommandTimedOut:
        return QStringLiteral("다른 프로그램이 파일을 쓰고 있습니다.");
    default:
        return error.Description;
    }
}

/// The program's one run.
class Tool
{
public:
    Tool(const Clock& clock, QTextStream& out, QTextStream& err) : clock_(clock), out_(out), err_(err) {}

    int Run(const QStringList& arguments)
    {
        const QCommandLineOption help(QStringList{QStringLiteral("h"), QStringLiteral("help")});
        const QCommandLineOption years(QStringLiteral("years"), {}, QStringLiteral("years"),
                                       QStringLiteral("2010-2030"));
        const QCommandLineOption demo(QStringLiteral("demo"));
        const QCommandLineOption server(QStringLiteral("server"));
        QCommandLineParser parser;
        parser.addOptions({help, years, demo, server});
        if (!parser.parse(arguments))
            return Misunderstand(QStringLiteral("알 수 없는 옵션이거나 값이 빠졌습니다."));
        if (parser.isSet(help)) {
            out_ << Usage;
            return Done;
        }
        YearRange range;
        if (!ReadYearRange(parser.value(years), range))
            return Misunderstand(QStringLiteral("연도는 2010-2030 또는 2026처럼 적어 주십시오: ") +
                                 parser.value(years));
        const QStringList words = parser.positionalArguments();
        const QString command = words.value(0);
        if (command == u"create" && words.size() == 2 && !parser.isSet(server))
            return Create(words[1], range, parser.isSet(demo));
        if (command == u"schema" && words.size() == 1 && parser.isSet(server) && !parser.isSet(demo))
            return PrintSchema(range);
        if (command == u"add-year" && words.size() == 3 && !parser.isSet(years) && !parser.isSet(demo) &&
            !parser.isSet(server))
            return AddYear(words[1], words[2]);
        if (command == u"add-year" && words.size() == 2 && !parser.isSet(years) && !parser.isSet(demo) &&
            parser.isSet(server))
            return PrintYear(words[1]);
        if (command == u"grants" && words.size() == 2 && !words[1].isEmpty() && !parser.isSet(demo) &&
            !parser.isSet(server))
            return PrintGrants(words[1], range);
        if (command == u"reservations" && words.size() == 2 && !parser.isSet(years) && !parser.isSet(demo) &&
            !parser.isSet(server))
            return PrintReservations(words[1]);
        return Misunderstand(QStringLiteral("명령을 알 수 없거나 인수가 맞지 않습니다."));
    }

private:
    int Misunderstand(const QString& words)
    {
        err_ << QStringLiteral("tsms-db: ") << words << u'\n' << Usage;
        return NotUnderstood;
    }

    int Refuse(const QString& words)
    {
        err_ << QStringLiteral("tsms-db: ") << words << u'\n';
        return Failed;
    }

    int Create(const QString& path, YearRange years, bool demo)
    {
        if (QFileInfo::exists(path))
            return Refuse(QStringLiteral("이미 있는 파일이라 만들지 않았습니다: ") + path);
        try {
            CreateEmbeddedDatabase(path, years, clock_, [this, years, demo](Connection& connection) {
                if (demo)
                    FillDemo(connection, clock_.Now(), years);
            });
        } catch (const RuntimeError& error) {
            return Refuse(QStringLiteral("데이터베이스를 만들지 못했습니다. ") + Reason(error));
        }
        out_ << QStringLiteral("데이터베이스를 만들었습니다: ") << path << u'\n';
        return Done;
    }

    int MisunderstandYear(const QString& year)
    {
        return Misunderstand(QStringLiteral("연도는 네 자리 숫자로 적어 주십시오: ") + year);
    }

    int AddYear(const QString& path, const QString& year)
    {
        YearRange range;
        if (!ReadYearRange(year, range) || range.first != range.last)
            return MisunderstandYear(year);
        if (!QFileInfo::exists(path))
            return Refuse(QStringLiteral("파일이 없습니다: ") + path);
        try {
            AddEmbeddedLogYear(path, range.first, clock_);
        } catch (const RuntimeError& error) {
            return Refuse(QStringLiteral("%1년 테이블을 추가하지 못했습니다. ").arg(year) + Reason(error));
        }
        out_ << QStringLiteral("%1년 발송내역 테이블을 추가했습니다: ").arg(year) << path << u'\n';
        return Done;
    }

    int PrintSchema(YearRange years)
    {
        out_ << ServerScript(years);
        return Done;
    }

    int PrintYear(const QString& year)
    {
        YearRange range;
        if (!ReadYearRange(year, range) || range.first != range.last)
            return MisunderstandYear(year);
        out_ << ServerLogScript(range.first);
        return Done;
    }

    int PrintGrants(const QString& user, YearRange years)
    {
        out_ << ServerGrants(user, years);
        return Done;
    }

    int PrintReservations(const QString& path)
    {
        if (!QFileInfo::exists(path))
            return Refuse(QStringLiteral("파일이 없습니다: ") + path);
        try {
            EmbeddedConnection connection(clock_);
            connection.OpenFile(path);
            out_ << QString::fromUtf8(HeldMessagesJson(ReadReservations(connection, clock_.Now())));
        } catch (const RuntimeError& error) {
            return Refuse(QStringLiteral("예약 문자를 읽지 못했습니다. ") + Reason(error));
        }
        return Done;
    }

    const Clock& clock_;
    QTextStream& out_;
    QTextStream& err_;
};

} // namespace

int RunDatabaseTool(const QStringList& arguments, const Clock& clock, QTextStream& out, QTextStream& err)
{
    const int status = Tool(clock, out, err).Run(arguments);
    out.flush();
    if (out.status() == QTextStream::Ok)
        return status;
    err << QStringLiteral("tsms-db: 출력을 끝까지 쓰지 못했습니다.\n");
    return Failed;
}

} // namespace tsms
