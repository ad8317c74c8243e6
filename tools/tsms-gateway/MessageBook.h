#pragma once

#include "runtime/Clock.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <mutex>

namespace tsms {

/// A message as the simulated gateway holds it.
struct GatewayMessage
{
    int Number = 0; ///< the unique_num of its reply
    QString SenderTelNo;
    QString RecvTelNo;
    QString Content;
    QString SendTime;  ///< the reservation as it was given; empty for at once
    QDateTime Arrived; ///< when the call came in
    QDateTime Due;     ///< when the phone gets it
    bool Withdrawn = false;
};

/// Who may send.
struct GatewayAccount
{
    QString Id = QStringLiteral("demo");
    QString Password = QStringLiteral("demo");
    QString Domain = QStringLiteral("sms.example.kr");
};

/// The gateway's business: the account, the messages, the reservations. Answers with reply texts of nine
/// items. May be asked from any thread.
class MessageBook
{
public:
    explicit MessageBook(const Clock& clock, GatewayAccount account = {});

    QString SendSMS(const QStringList& arguments);   ///< 11 texts
    QString DeleteSMS(const QStringList& arguments); ///< 7 texts

    QList<GatewayMessage> Messages() const; ///< all that were accepted, oldest first, withdrawn ones too
    QDateTime Now() const { return clock_.Now(); }

    /// The reply to a message that the gateway will not take.
    static QString Refusal(const QString& code, const QString& words);

private:
    bool Knows(const QStringList& arguments) const;

    const Clock& clock_;
    const GatewayAccount account_;
    mutable std::mutex mutex_;
    QList<GatewayMessage> messages_;
};

/// The moment of a reservation "YYYY:MM:DD:HH:MM"; hour 24 is the next day's 0. Invalid when it is none.
QDateTime ReservationMoment(const QString& sendTime);

} // namespace tsms
