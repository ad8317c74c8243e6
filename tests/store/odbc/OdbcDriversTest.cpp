#include "store/odbc/OdbcDrivers.h"

#include "runtime/RuntimeError.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "support/Words.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

const OdbcDriver Microsoft{u"ODBC Driver 18 for SQL Server"_q, OdbcDriver::Kind::Microsoft};
const OdbcDriver FreeTds{u"FreeTDS"_q, OdbcDriver::Kind::FreeTds};

ConnectionParts Office()
{
    return {u"SmsDb"_q, u"10.0.0.5"_q, u"1433"_q, u"sms"_q, u"secret"_q};
}

ConnectionParts WithPassword(const QString& password)
{
    ConnectionParts parts = Office();
    parts.password = password;
    return parts;
}

long RefusalOf(const OdbcDriver& driver, const ConnectionParts& parts)
{
    try {
        OdbcConnectionText(driver, parts);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

} // namespace

TEST(OdbcDrivers, TheNewestOfTheRegisteredOnesComesFirst)
{
    const QStringList registered{u"PostgreSQL"_q, u"FreeTDS"_q, u"ODBC Driver 17 for SQL Server"_q,
                                 u"ODBC Driver 18 for SQL Server"_q, u"SQLite3"_q};
    EXPECT_EQ(SuitableOdbcDrivers(registered, {u"/x/libtdsodbc.so"_q}),
              (QList<OdbcDriver>{Microsoft,
                                 {u"ODBC Driver 17 for SQL Server"_q, OdbcDriver::Kind::Microsoft},
                                 FreeTds,
                                 {u"/x/libtdsodbc.so"_q, OdbcDriver::Kind::FreeTds}}));
}

TEST(OdbcDrivers, AFileOfFreeTdsDoesWithoutBeingRegistered)
{
    EXPECT_EQ(SuitableOdbcDrivers({}, {u"/x/libtdsodbc.so"_q}),
              (QList<OdbcDriver>{{u"/x/libtdsodbc.so"_q, OdbcDriver::Kind::FreeTds}}));
}

TEST(OdbcDrivers, RegisteredNamesIgnoreCase)
{
    EXPECT_EQ(SuitableOdbcDrivers({u"freetds"_q}, {}),
              (QList<OdbcDriver>{{u"freetds"_q, OdbcDriver::Kind::FreeTds}}));
}

TEST(OdbcDrivers, DriversOfOtherDatabasesWillNotDo)
{
    EXPECT_EQ(SuitableOdbcDrivers({u"PostgreSQL"_q, u"MySQL"_q}, {}), QList<OdbcDriver>());
}

TEST(OdbcDrivers, TheOldOneOfWindowsWillNotDo)
{
    EXPECT_EQ(SuitableOdbcDrivers({u"SQL Server"_q}, {}), QList<OdbcDriver>());
}

TEST(OdbcDrivers, FreeTdsLiesInTheFolderOfTheArchitecture)
{
    struct Case
    {
        const char16_t* architecture;
        const char16_t* place;
    };
    const Case cases[] = {
        {u"x86_64", u"/usr/lib/x86_64-linux-gnu/odbc/libtdsodbc.so"},
        {u"arm64", u"/usr/lib/aarch64-linux-gnu/odbc/libtdsodbc.so"},
        {u"arm", u"/usr/lib/arm-linux-gnueabihf/odbc/libtdsodbc.so"},
        {u"i386", u"/usr/lib/i386-linux-gnu/odbc/libtdsodbc.so"},
        {u"power64", u"/usr/lib/powerpc64le-linux-gnu/odbc/libtdsodbc.so"},
        {u"riscv64", u"/usr/lib/riscv64-linux-gnu/odbc/libtdsodbc.so"},
        {u"s390x", u"/usr/lib/s390x-linux-gnu/odbc/libtdsodbc.so"},
    };
    for (const Case& one : cases)
        EXPECT_EQ(FreeTdsPlaces(QString::fromUtf16(one.architecture)).first(), QString::fromUtf16(one.place));
}

TEST(OdbcDrivers, MicrosoftsTextNamesServerAndPortTogether)
{
    EXPECT_EQ(
        OdbcConnectionText(Microsoft, Office()),
        u"DRIVER={ODBC Driver 18 for SQL Server};SERVER={10.0.0.5,1433};DATABASE={SmsDb};UID={sms};PWD={secret};APP={tsms};Encrypt=no;TrustServerCertificate=yes;"_q);
}

TEST(OdbcDrivers, TheTextOfFreeTdsPinsVersionAndCharacters)
{
    EXPECT_EQ(
        OdbcConnectionText(FreeTds, Office()),
        u"DRIVER={FreeTDS};SERVER={10.0.0.5};PORT={1433};DATABASE={SmsDb};UID={sms};PWD={secret};APP={tsms};TDS_Version=7.4;ClientCharset=UTF-8;"_q);
}

TEST(OdbcDrivers, WithoutAPortTheDriversOwnIsTaken)
{
    ConnectionParts parts = Office();
    parts.server = u"office\\sql"_q;
    parts.port.clear();
    EXPECT_TRUE(OdbcConnectionText(Microsoft, parts).contains(u";SERVER={office\\sql};DATABASE="_q));
    EXPECT_TRUE(OdbcConnectionText(FreeTds, parts).contains(u";SERVER={office\\sql};DATABASE="_q));
}

TEST(OdbcDrivers, AnInstanceIsLeftOutForFreeTdsWhereAPortIsTold)
{
    ConnectionParts parts = Office();
    parts.server = u"office\\sql"_q;
    EXPECT_TRUE(OdbcConnectionText(FreeTds, parts).contains(u";SERVER={office};PORT={1433};"_q));
    EXPECT_TRUE(OdbcConnectionText(Microsoft, parts).contains(u";SERVER={office\\sql,1433};"_q));
}

TEST(OdbcDrivers, FreeTdsIsToldAHostWhereMicrosoftsDriversHaveAWordOfTheirOwn)
{
    struct Case
    {
        const char16_t* server;
        const char16_t* freeTds;
    };
    const Case cases[] = {
        {u".", u"localhost"},
        {u"(local)", u"localhost"},
        {u"(LOCAL)", u"localhost"},
        {u"tcp:.", u"localhost"},
        {u".\\sql", u"localhost\\sql"},
        {u"(local)\\sql", u"localhost\\sql"},
        {u"tcp:office", u"office"},
        {u"TCP: office\\sql", u"office\\sql"},
        {u"localhost", u"localhost"},
        {u"office.example.kr", u"office.example.kr"},
        {u"::1", u"::1"},
        {u"", u""},
    };
    for (const Case& one : cases) {
        ConnectionParts parts = Office();
        parts.server = QString::fromUtf16(one.server);
        parts.port.clear();
        const QString wanted = u";SERVER={%1};DATABASE="_q;
        EXPECT_TRUE(OdbcConnectionText(FreeTds, parts).contains(wanted.arg(QString::fromUtf16(one.freeTds))))
            << parts.server.toStdString();
        EXPECT_TRUE(OdbcConnectionText(Microsoft, parts).contains(wanted.arg(parts.server)))
            << parts.server.toStdString();
    }
}

TEST(OdbcDrivers, ClosingBracesAreDoubledForMicrosoftAlone)
{
    struct Case
    {
        const char16_t* password;
        const char16_t* microsoft;
        const char16_t* freeTds;
    };
    const Case cases[] = {
        {u"p;w", u";PWD={p;w};", u";PWD={p;w};"},       {u"{p}w", u";PWD={{p}}w};", u";PWD={{p}w};"},
        {u"pw}", u";PWD={pw}}};", u";PWD={pw}};"},      {u"a=b'c\"", u";PWD={a=b'c\"};", u";PWD={a=b'c\"};"},
        {u" p w ", u";PWD={ p w };", u";PWD={ p w };"}, {u"", u";PWD={};", u";PWD={};"},
        {u"비밀", u";PWD={비밀};", u";PWD={비밀};"},
    };
    for (const Case& one : cases) {
        const ConnectionParts parts = WithPassword(QString::fromUtf16(one.password));
        EXPECT_TRUE(OdbcConnectionText(Microsoft, parts).contains(QString::fromUtf16(one.microsoft)))
            << OdbcConnectionText(Microsoft, parts).toStdString();
        EXPECT_TRUE(OdbcConnectionText(FreeTds, parts).contains(QString::fromUtf16(one.freeTds)))
            << OdbcConnectionText(FreeTds, parts).toStdString();
    }
}

TEST(OdbcDrivers, AValueThatWouldEndItsBracesIsRefusedForFreeTds)
{
    const ConnectionParts parts = WithPassword(u"a};SERVER={elsewhere"_q);
    EXPECT_EQ(RefusalOf(FreeTds, parts), BadConnectionText);
    EXPECT_TRUE(OdbcConnectionText(Microsoft, parts).contains(u";PWD={a}};SERVER={elsewhere};APP="_q));
}

TEST(OdbcDrivers, TheMessageNamesEveryDriverThatWouldDo)
{
#ifdef Q_OS_WIN
    EXPECT_EQ(
        WantedOdbcDrivers(),
        u"SQL Server에 연결할 ODBC 드라이버가 없습니다. 다음 가운데 하나를 설치하여 주십시오: Microsoft ODBC Driver 18 for SQL Server, Microsoft ODBC Driver 17 for SQL Server (Windows에 들어 있는 예전 드라이버 \"SQL Server\"로는 연결하지 않습니다.)"_q);
#else
    EXPECT_EQ(
        WantedOdbcDrivers(),
        u"SQL Server에 연결할 ODBC 드라이버가 없습니다. 다음 가운데 하나를 설치하여 주십시오: ODBC Driver 18 for SQL Server, ODBC Driver 17 for SQL Server, FreeTDS"_q);
#endif
}

} // namespace tsms::test
