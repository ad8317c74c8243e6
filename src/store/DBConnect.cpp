#include "store/DBConnect.h"

#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "session/ScreenBusy.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"

#include <QScopedValueRollback>

namespace tsms {

namespace {

constexpr int ConnectSeconds = 30;
constexpr int CommandSeconds = 120;

void RefuseFaults(const Statement& statement)
{
    if (const QString fault = statement.Fault(); !fault.isEmpty())
        throw RuntimeError(StatementFailure, fault);
}

QString ErrorText(const CurrentError& error)
{
    const QString lines = CrLf.toString() + CrLf.toString();
    switch (error.Number) {
    case CommunicationFailure:
        return QStringLiteral("★ 데이터베이스서버 상태를 확인하여 주십시오.!") + lines +
               QStringLiteral("★ 서버가 종료이거나 인터넷 연결이 안된 상태입니다.");
    case IntegrityViolation:
        return QStringLiteral("☞ : ") + error.Description + lines +
               QStringLiteral("데이터베이스 저장 프로시저 내부시스템 오류");
    default:
        return QStringLiteral("☞ : ") + error.Description;
    }
}

} // namespace

DBConnect::DBConnect(Session& session, Desktop& desktop, ConnectionMaker makeConnection)
    : session_(session), desktop_(desktop), makeConnection_(std::move(makeConnection))
{
}

bool DBConnect::ConnectDB()
{
    return WithHandler(
        [this] {
            session_.ConnectionString = AssembleConnectionText(session_);
            objects_.connection = makeConnection_();
            DoEvents(); // in which a form may come to life that closes its connection, which is this one
            OpenConnection().ConnectionString = session_.ConnectionString;
            DoEvents();
            OpenConnection().ConnectionTimeout = ConnectSeconds;
            DoEvents();
            OpenConnection().CommandTimeout = CommandSeconds;
            OpenConnection().WhileReading = [this] {
                const QScopedValueRollback reads(session_.Busy, true); // nothing enters it, set or not
                DoEvents();
            };
            DoEvents();
            OpenConnection().Open();
            DoEvents();
            return true;
        },
        [this] {
            ReportDBError();
            return false;
        });
}

void DBConnect::ConnectWithRetry()
{
    if (!ConnectDB())
        ConnectDB();
}

void DBConnect::CloseDB()
{
    Release(objects_);
}

void DBConnect::CloseDB2()
{
    Release(objects2_);
}

void DBConnect::Release(Objects& objects)
{
    objects.records.reset();
    objects.connection.reset(); // which closes it, unless a query is being read over it
}

bool DBConnect::OpenRecordset(const Statement& statement)
{
    return WithHandler(
        [this, &statement] {
            objects_.records.reset();
            DoEvents();
            OpenConnection();
            RefuseFaults(statement);
            // Windows live on while a long result is read, and one that closes lets the connection go.
            const std::shared_ptr<Connection> kept = objects_.connection;
            objects_.records = kept->Query(statement);
            DoEvents();
            return true;
        },
        [this] {
            ReportDBError();
            return false;
        });
}

bool DBConnect::Select(const Statement& statement, const std::function<void(Recordset&)>& read)
{
    if (!OpenRecordset(statement))
        return false;
    read(Records());
    return true;
}

bool DBConnect::ExecuteSQL(const Statement& statement)
{
    return WithHandler(
        [this, &statement] {
            DoEvents();
            Connection& connection = OpenConnection();
            RefuseFaults(statement);
            connection.Execute(statement);
            DoEvents();
            return true;
        },
        [this] {
            ReportDBError();
            return false;
        });
}

void DBConnect::ExpectChanges(int changes)
{
    if (objects_.connection)
        objects_.connection->ExpectChanges(changes);
}

void DBConnect::ReportDBError()
{
    const CurrentError error = Err();
    CloseDB();
    CloseDB2();
    SetScreenBusy(session_, desktop_, false);
    if (error.Number == NoError)
        return;
    if (error.Number == ObjectNotSet) {
        // Meant: the connection comes back without a word, and the statement that failed is lost.
        ConnectDB();
        return;
    }
    const MsgBoxStyle style = error.Number == UserNotice ? MsgBoxInformation : MsgBoxCritical;
    desktop_.MsgBox(ErrorText(error), style, QStringLiteral(" - 오류!!!"));
}

Recordset& DBConnect::Records()
{
    if (!objects_.records)
        throw RuntimeError(ObjectNotSet);
    return *objects_.records;
}

std::shared_ptr<const Recordset> DBConnect::ShareRecords()
{
    Records();
    return objects_.records;
}

Connection& DBConnect::OpenConnection()
{
    if (!objects_.connection)
        throw RuntimeError(ObjectNotSet);
    return *objects_.connection;
}

} // namespace tsms
