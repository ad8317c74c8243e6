#include "gateway/TestAuthority.h"

#include <gtest/gtest.h>

#include <QDateTime>
#include <QFile>
#include <QProcess>
#include <QSslCertificate>
#include <QSslKey>

namespace tsms::test {

namespace {

/// Of the authority: as a certificate, and as one that gives out others.
constexpr const char* Settings = R"([req]
distinguished_name=name
x509_extensions=authority
[name]
[authority]
basicConstraints=critical,CA:TRUE
keyUsage=critical,keyCertSign
subjectKeyIdentifier=hash
[ca]
default_ca=giving
[giving]
database=@/index
serial=@/serial
new_certs_dir=@
certificate=@/ca.pem
private_key=@/ca.key
default_md=sha256
policy=any
unique_subject=no
[any]
commonName=supplied
)";

QString TimeIn(int days)
{
    return QDateTime::currentDateTimeUtc().addDays(days).toString(QStringLiteral("yyyyMMddHHmmss'Z'"));
}

} // namespace

TestAuthority::TestAuthority()
{
    Write(QStringLiteral("ca.cnf"), QString::fromLatin1(Settings).replace(u'@', directory_.path()));
    Write(QStringLiteral("index"), {});
    OpenSsl(QStringLiteral("req -x509 -config @/ca.cnf -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes "
                           "-keyout @/ca.key -out @/ca.pem -subj /CN=Test-authority -days 2"));
}

QString TestAuthority::File() const
{
    return Path(QStringLiteral("ca.pem"));
}

QSslConfiguration TestAuthority::Certificate(const QString& name, int endsInDays) const
{
    Write(QStringLiteral("server.cnf"), QStringLiteral("basicConstraints=CA:FALSE\nsubjectAltName=") + name);
    OpenSsl(QStringLiteral("req -config @/ca.cnf -new -newkey ec -pkeyopt ec_paramgen_curve:P-256 -nodes "
                           "-keyout @/server.key -out @/server.csr -subj /CN=Test-server"));
    OpenSsl(QStringLiteral("ca -batch -notext -create_serial -config @/ca.cnf -extfile @/server.cnf "
                           "-in @/server.csr -out @/server.pem -startdate %1 -enddate %2")
                .arg(TimeIn(endsInDays - 3), TimeIn(endsInDays)));
    QSslConfiguration configuration;
    configuration.setLocalCertificate(QSslCertificate(Bytes(QStringLiteral("server.pem"))));
    configuration.setPrivateKey(QSslKey(Bytes(QStringLiteral("server.key")), QSsl::Ec));
    return configuration;
}

QByteArray TestAuthority::Bytes(const QString& file) const
{
    QFile opened(Path(file));
    EXPECT_TRUE(opened.open(QIODevice::ReadOnly));
    return opened.readAll();
}

void TestAuthority::Write(const QString& file, const QString& text) const
{
    QFile opened(Path(file));
    EXPECT_TRUE(opened.open(QIODevice::WriteOnly));
    opened.write(text.toUtf8());
}

void TestAuthority::OpenSsl(const QString& arguments) const
{
    QProcess openssl;
    openssl.start(QStringLiteral("openssl"), QString(arguments).replace(u'@', directory_.path()).split(u' '));
    EXPECT_TRUE(openssl.waitForFinished() && openssl.exitCode() == 0)
        << openssl.readAllStandardError().toStdString();
}

} // namespace tsms::test
