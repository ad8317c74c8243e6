#pragma once

#include <QByteArray>
#include <QString>

namespace tsms::test {

/// What a client tells at its log-in.
struct ServerLogin
{
    QString User;
    QString Password;
    QString Database; ///< empty for the one that the server gives
    QString Application;
    quint32 Version = 0; ///< of the protocol; 0x74000004 for 7.4
    int PacketSize = 0;  ///< wished for; 0 for the server's own
};

/// The answer to a PRELOGIN: no encryption, one result at a time.
QByteArray PreLogInAnswer();

/// Reads a LOGIN7 (MS-TDS, 2.2.6.4).
ServerLogin ReadLogIn(const QByteArray& data);

} // namespace tsms::test
