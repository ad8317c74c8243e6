#pragma once

#include "runtime/Clock.h"
#include "tsms-gateway/HeldMessages.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <mutex>

namespace tsms {

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

    /// Takes over reservations of an earlier run: they can be withdrawn until their time like those of its
    /// own. New messages get numbers behind all of theirs.
    void Hold(const HeldMessages& held);

    QString SendSMS(const QStringList& arguments);   ///< 11 texts
    QString DeleteSMS(const QStringList& arguments); ///< 7 texts

    QList<GatewayMessage> Messages() const; ///< all held and accepted, oldest first, withdrawn ones too
    QDateTime Now() const { return clock_.Now(); }

    /// The reply to a message that the gateway will not take.
    static QString Refusal(const QString& code, const QString& words);

private:
    bool Knows(const QStringList& arguments) const;

    const Clock& clock_;
    const GatewayAccount account_;
    mutable std::mutex mutex_;
    QList<GatewayMessage> messages_;
    int nextNumber_ = 100001; ///< of the next message that is accepted
};

} // namespace tsms
