#include "tsms-start/SavedConnection.h"

#include "runtime/CodePage949.h"
#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "shell/LaunchLine.h"
#include "store/engine/ConnectionText.h"

#include <QStringList>

#include <algorithm>

namespace tsms {

namespace {

constexpr qsizetype MostTextBytes = 4000; // of the caller's text
const QString EmbeddedServer = QStringLiteral("(embedded)");

/// A value as a connection text takes it, whatever it holds.
QString QuotedWhereNeeded(const QString& value)
{
    const bool isPlain = !value.contains(u';') && !value.startsWith(u'\'') && !value.startsWith(u'"') &&
                         value.trimmed() == value;
    return isPlain ? value : u'"' + QString(value).replace(u'"', QStringLiteral("\"\"")) + u'"';
}

/// What a launch line cannot hold: its own separator, and what ends a line or a text.
bool HasForbiddenSign(const QString& value)
{
    return std::any_of(value.begin(), value.end(),
                       [](QChar c) { return c == LaunchSeparator || c.category() == QChar::Other_Control; });
}

bool IsWholeNumber(const QString& text)
{
    try {
        ToLong(text);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool IsPort(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar c) { return c >= u'0' && c <= u'9'; });
}

QStringList Fields(const SavedConnection& connection, const QString& password)
{
    const bool isServer = connection.IsServer();
    return {QuotedWhereNeeded(isServer ? connection.database : connection.file),
            isServer ? connection.server : EmbeddedServer,
            isServer ? connection.port : QString(),
            isServer ? QuotedWhereNeeded(connection.login) : QString(),
            isServer ? QuotedWhereNeeded(password) : QString(),
            connection.number,
            connection.text};
}

QString FaultOfServer(const SavedConnection& connection)
{
    if (IsBlank(connection.server))
        return QStringLiteral("서버를 입력하여 주십시오.");
    if (connection.server.contains(u';') || connection.server.contains(u','))
        return QStringLiteral("서버에는 이름이나 주소만 입력하고, 포트는 아래 칸에 입력하여 주십시오.");
    if (!IsPort(connection.port))
        return QStringLiteral("포트에는 숫자만 입력하여 주십시오. 비워 두면 1433입니다.");
    if (IsBlank(connection.database))
        return QStringLiteral("데이터베이스를 입력하여 주십시오.");
    if (IsBlank(connection.login))
        return QStringLiteral("로그인을 입력하여 주십시오.");
    return {};
}

QString FaultOfCaller(const SavedConnection& connection)
{
    if (!IsWholeNumber(connection.number))
        return QStringLiteral("호출 번호에는 -2147483648부터 2147483647까지의 숫자를 입력하여 주십시오.");
    if (connection.text.contains(u'\''))
        return QStringLiteral("호출 문구에는 작은따옴표(')를 쓸 수 없습니다.");
    if (ToCodePage949(connection.text).size() > MostTextBytes)
        return QStringLiteral("호출 문구가 너무 깁니다.");
    return {};
}

} // namespace

QString PlaceOf(const SavedConnection& connection)
{
    if (!connection.IsServer())
        return connection.file;
    const QString port = connection.port.isEmpty() ? QString() : u',' + connection.port;
    return connection.server + port + QStringLiteral(" / ") + connection.database;
}

QString FaultOf(const SavedConnection& connection, const QString& password)
{
    if (IsBlank(connection.name))
        return QStringLiteral("연결 이름을 입력하여 주십시오.");
    if (!connection.IsServer() && IsBlank(connection.file))
        return QStringLiteral("데이터베이스 파일을 입력하여 주십시오.");
    if (connection.IsServer())
        if (QString fault = FaultOfServer(connection); !fault.isEmpty())
            return fault;
    if (QString fault = FaultOfCaller(connection); !fault.isEmpty())
        return fault;
    const QStringList fields = Fields(connection, password);
    if (std::any_of(fields.begin(), fields.end(), HasForbiddenSign))
        return QStringLiteral("■ 글자와 줄바꿈은 쓸 수 없습니다.");
    return {};
}

QString LaunchLineOf(const SavedConnection& connection, const QString& password)
{
    return Fields(connection, password).join(LaunchSeparator);
}

QString ConnectionTextOf(const SavedConnection& connection, const QString& password, const QString& database)
{
    SavedConnection other = connection;
    if (!database.isEmpty())
        other.database = database;
    Session session;
    StoreLaunchLine(LaunchLineOf(other, password), session);
    return AssembleConnectionText(session);
}

} // namespace tsms
