#pragma once

#include <QSslConfiguration>
#include <QString>
#include <QTemporaryDir>

namespace tsms::test {

/// An authority of the test's own, which nobody knows, with the certificates that it gives out.
class TestAuthority
{
public:
    TestAuthority();

    QString File() const; ///< its own certificate

    /// What a server shows as `name` ("IP:127.0.0.1", "DNS:a.test"), valid for the three days that end in so
    /// many.
    QSslConfiguration Certificate(const QString& name, int endsInDays = 2) const;

private:
    QString Path(const QString& file) const { return directory_.filePath(file); }
    QByteArray Bytes(const QString& file) const;
    void Write(const QString& file, const QString& text) const;
    void OpenSsl(const QString& arguments) const; ///< with @ for the directory

    QTemporaryDir directory_;
};

} // namespace tsms::test
