#include "store/odbc/OdbcDrivers.h"

#include "runtime/RuntimeError.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "store/odbc/OdbcHandle.h"

#include <QFileInfo>
#include <QSysInfo>

#include <array>

namespace tsms {

namespace {

#ifdef Q_OS_WIN
constexpr bool IsWindows = true;
#else
constexpr bool IsWindows = false;
#endif

struct KnownDriver
{
    QStringView name;
    OdbcDriver::Kind kind;
};

constexpr KnownDriver KnownDrivers[] = {
    {u"ODBC Driver 18 for SQL Server", OdbcDriver::Kind::Microsoft},
    {u"ODBC Driver 17 for SQL Server", OdbcDriver::Kind::Microsoft},
    {u"FreeTDS", OdbcDriver::Kind::FreeTds},
};

/// The name that Debian gives an architecture in its library folders.
QString MultiarchName(QStringView architecture)
{
    constexpr std::array<std::array<QStringView, 2>, 5> names{{{u"arm64", u"aarch64-linux-gnu"},
                                                               {u"arm", u"arm-linux-gnueabihf"},
                                                               {u"power64", u"powerpc64le-linux-gnu"},
                                                               {u"i386", u"i386-linux-gnu"},
                                                               {u"riscv64", u"riscv64-linux-gnu"}}};
    for (const auto& [ours, theirs] : names)
        if (architecture == ours)
            return theirs.toString();
    return architecture.toString() + QStringLiteral("-linux-gnu");
}

[[noreturn]] void RefuseValue()
{
    throw RuntimeError(
        BadConnectionText,
        QStringLiteral("데이터베이스 접속 정보에 ODBC 드라이버로 넘길 수 없는 글자가 있습니다."));
}

/// Microsoft's drivers end a value at the first single closing brace.
QString InMicrosoftBraces(QString value)
{
    return u'{' + value.replace(u'}', QStringLiteral("}}")) + u'}';
}

/// FreeTDS ends it at the first brace with a semicolon behind, and takes a doubled brace for two.
QString InFreeTdsBraces(const QString& value)
{
    if (value.contains(QStringLiteral("};")))
        RefuseValue();
    return u'{' + value + u'}';
}

QString MicrosoftText(const OdbcDriver& driver, const ConnectionParts& parts)
{
    const QString server = parts.port.isEmpty() ? parts.server : parts.server + u',' + parts.port;
    return QStringLiteral("DRIVER=") + InMicrosoftBraces(driver.name) + QStringLiteral(";SERVER=") +
           InMicrosoftBraces(server) + QStringLiteral(";DATABASE=") + InMicrosoftBraces(parts.catalog) +
           QStringLiteral(";UID=") + InMicrosoftBraces(parts.user) + QStringLiteral(";PWD=") +
           InMicrosoftBraces(parts.password) +
           QStringLiteral(";APP={tsms};Encrypt=no;TrustServerCertificate=yes;");
}

/// FreeTDS knows a host, and an instance as long as no port is given: it refuses both together, while
/// Microsoft's drivers pass over the instance then. Of the other words that these understand it knows none.
QString FreeTdsServer(const ConnectionParts& parts)
{
    constexpr QStringView protocol = u"tcp:";
    QStringView server = parts.server;
    if (server.startsWith(protocol, Qt::CaseInsensitive))
        server = server.sliced(protocol.size()).trimmed();
    const qsizetype sign = server.indexOf(u'\\');
    const QStringView name = sign < 0 ? server : server.first(sign);
    const bool isHere = name == u"." || name.compare(u"(local)", Qt::CaseInsensitive) == 0;
    QString host = isHere ? QStringLiteral("localhost") : name.toString();
    if (sign >= 0 && parts.port.isEmpty())
        host += server.sliced(sign);
    return host;
}

/// The version is pinned, since a server that says nothing would let the driver try all of them, and
/// statements pass through the client's character set. Without the last semicolon the last brace would be
/// part of a value.
QString FreeTdsText(const OdbcDriver& driver, const ConnectionParts& parts)
{
    const QString port =
        parts.port.isEmpty() ? QString() : QStringLiteral(";PORT=") + InFreeTdsBraces(parts.port);
    return QStringLiteral("DRIVER=") + InFreeTdsBraces(driver.name) + QStringLiteral(";SERVER=") +
           InFreeTdsBraces(FreeTdsServer(parts)) + port + QStringLiteral(";DATABASE=") +
           InFreeTdsBraces(parts.catalog) + QStringLiteral(";UID=") + InFreeTdsBraces(parts.user) +
           QStringLiteral(";PWD=") + InFreeTdsBraces(parts.password) +
           QStringLiteral(";APP={tsms};TDS_Version=7.4;ClientCharset=UTF-8;");
}

QStringList RegisteredDrivers()
{
    const OdbcHandle& environment = OdbcEnvironment();
    QStringList names;
    std::array<SQLWCHAR, 256> name;
    SQLUSMALLINT direction = SQL_FETCH_FIRST;
    SQLSMALLINT size = 0;
    while (SQL_SUCCEEDED(OdbcLibrary::Get().Drivers(environment.Get(), direction, name.data(), name.size(),
                                                    &size, nullptr, 0, nullptr))) {
        names += OdbcText(name, size);
        direction = SQL_FETCH_NEXT;
    }
    return names;
}

} // namespace

QList<OdbcDriver> SuitableOdbcDrivers(const QStringList& registered, const QStringList& freeTdsFiles)
{
    QList<OdbcDriver> suitable;
    for (const KnownDriver& known : KnownDrivers)
        for (const QString& name : registered)
            if (name.compare(known.name, Qt::CaseInsensitive) == 0)
                suitable += OdbcDriver{name, known.kind};
    for (const QString& file : freeTdsFiles)
        suitable += OdbcDriver{file, OdbcDriver::Kind::FreeTds};
    return suitable;
}

QStringList FreeTdsPlaces(const QString& architecture)
{
    const QString multiarch = QStringLiteral("/usr/lib/") + MultiarchName(architecture);
    return {multiarch + QStringLiteral("/odbc/libtdsodbc.so"), QStringLiteral("/usr/lib/odbc/libtdsodbc.so"),
            QStringLiteral("/usr/local/lib/libtdsodbc.so")};
}

QList<OdbcDriver> InstalledOdbcDrivers()
{
    QStringList files;
    for (const QString& place : FreeTdsPlaces(QSysInfo::buildCpuArchitecture()))
        if (!IsWindows && QFileInfo::exists(place))
            files += place;
    return SuitableOdbcDrivers(RegisteredDrivers(), files);
}

QString OdbcConnectionText(const OdbcDriver& driver, const ConnectionParts& parts)
{
    return driver.kind == OdbcDriver::Kind::Microsoft ? MicrosoftText(driver, parts)
                                                      : FreeTdsText(driver, parts);
}

QString WantedOdbcDrivers()
{
    QStringList names;
    for (const KnownDriver& known : KnownDrivers)
        if (!IsWindows)
            names += known.name.toString();
        else if (known.kind == OdbcDriver::Kind::Microsoft) // the other can hardly be had there
            names += QStringLiteral("Microsoft ") + known.name.toString();
    const QString words = QStringLiteral(
        "SQL Server에 연결할 ODBC 드라이버가 없습니다. 다음 가운데 하나를 설치하여 주십시오: ");
    const QString old =
        QStringLiteral(" (Windows에 들어 있는 예전 드라이버 \"SQL Server\"로는 연결하지 않습니다.)");
    return words + names.join(QStringLiteral(", ")) + (IsWindows ? old : QString());
}

} // namespace tsms
