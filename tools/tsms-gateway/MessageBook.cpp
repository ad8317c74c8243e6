#include "tsms-gateway/MessageBook.h"

#include "runtime/Text.h"

#include <algorithm>

namespace tsms {

namespace {

QString ReplyText(bool accepted, const QString& number, const QString& kind, const QString& code,
                  const QString& words)
{
    return QStringLiteral("return_value:%1;msg_type:SMS;charge_cnt:%2;unique_num:%3;send_type:%4;"
                          "carrier:;result_time:;error_code:%5;error_msg:%6")
        .arg(accepted ? QStringLiteral("true") : QStringLiteral("false"), accepted ? u"1" : u"0", number,
             kind, code, words);
}

} // namespace

MessageBook::MessageBook(const Clock& clock, GatewayAccount account)
    : clock_(clock), account_(std::move(account))
{
}

QString MessageBook::Refusal(const QString& code, const QString& words)
{
    return ReplyText(false, {}, {}, code, words);
}

bool MessageBook::Knows(const QStringList& arguments) const
{
    return arguments[0] == account_.Id && arguments[1] == account_.Password &&
           arguments[2] == account_.Domain;
}

void MessageBook::Hold(const HeldMessages& held)
{
    const std::lock_guard lock(mutex_);
    nextNumber_ = std::max(nextNumber_, held.LastNumber + 1);
    for (GatewayMessage message : held.Messages) {
        message.Arrived = clock_.Now();
        message.Due = ReservationMoment(message.SendTime);
        nextNumber_ = std::max(nextNumber_, message.Number + 1);
        messages_.append(message);
    }
}

QString MessageBook::SendSMS(const QStringList& arguments)
{
    if (!Knows(arguments))
        return Refusal(QStringLiteral("E01"), QStringLiteral("아이디 또는 비밀번호가 올바르지 않습니다."));
    GatewayMessage message;
    message.SenderTelNo = arguments[3];
    message.RecvTelNo = arguments[4];
    message.Content = arguments[5];
    message.SendTime = arguments[7];
    message.Arrived = clock_.Now();
    message.Due = message.Arrived;
    if (IsBlank(message.RecvTelNo))
        return Refusal(QStringLiteral("E02"), QStringLiteral("수신번호가 없습니다."));
    if (IsBlank(message.Content))
        return Refusal(QStringLiteral("E03"), QStringLiteral("보낼 내용이 없습니다."));
    if (!IsBlank(message.SendTime)) {
        const QDateTime moment = ReservationMoment(message.SendTime);
        if (!moment.isValid())
            return Refusal(QStringLiteral("E04"), QStringLiteral("예약시간이 올바르지 않습니다."));
        message.Due = std::max(moment, message.Arrived);
    }
    const std::lock_guard lock(mutex_);
    message.Number = nextNumber_++;
    messages_.append(message);
    return ReplyText(true, QString::number(message.Number),
                     message.Due > message.Arrived ? QStringLiteral("reserved") : QStringLiteral("immediate"),
                     {}, {});
}

QString MessageBook::DeleteSMS(const QStringList& arguments)
{
    if (!Knows(arguments))
        return Refusal(QStringLiteral("E01"), QStringLiteral("아이디 또는 비밀번호가 올바르지 않습니다."));
    const std::lock_guard lock(mutex_);
    const auto message = std::find_if(messages_.begin(), messages_.end(), [&](const GatewayMessage& held) {
        return QString::number(held.Number) == arguments[3];
    });
    if (message == messages_.end())
        return Refusal(QStringLiteral("E11"), QStringLiteral("해당하는 메시지가 없습니다."));
    if (message->Withdrawn)
        return Refusal(QStringLiteral("E12"), QStringLiteral("이미 취소된 메시지입니다."));
    if (message->Due <= clock_.Now())
        return Refusal(QStringLiteral("E13"), QStringLiteral("이미 전송된 메시지입니다."));
    message->Withdrawn = true;
    return ReplyText(true, arguments[3], QStringLiteral("withdrawn"), {}, {});
}

QList<GatewayMessage> MessageBook::Messages() const
{
    const std::lock_guard lock(mutex_);
    return messages_;
}

} // namespace tsms
