// Takes any bytes for an answer of the gateway: a line with the content type, then the envelope. The text in
// it is read as the gateway's reply.
#include "fuzz/Target.h"
#include "gateway/ReplyGrammar.h"
#include "gateway/SoapFault.h"
#include "gateway/SoapMessage.h"

#include <optional>

using namespace tsms;
using namespace tsms::test;

namespace {

std::optional<QString> AnswerIn(const QByteArray& envelope, const QByteArray& contentType,
                                const QString& resultName)
{
    CallShape shape;
    shape.ResultName = resultName;
    try {
        return ReadAnswer(shape, envelope, contentType);
    } catch (const SoapFault& fault) {
        Require(fault.IsOfGateway() || !fault.Description.isEmpty());
        return std::nullopt;
    }
}

void ReadReplyText(const QString& text)
{
    constexpr qsizetype itemsRead = 9;
    const bool hasAll = text.count(u';') + 1 >= itemsRead;
    Reply reply;
    try {
        ReadReply(text, reply);
        Require(hasAll);
    } catch (const RuntimeError& error) {
        Require(error.Number == TypeMismatch || (error.Number == SubscriptOutOfRange && !hasAll));
    }
}

void ReadSoapReply(const QByteArray& bytes)
{
    const qsizetype line = qMax<qsizetype>(bytes.indexOf('\n'), 0);
    for (const QString& resultName : {QString(), QStringLiteral("SendSMSReturn")})
        if (const auto text = AnswerIn(bytes.sliced(line), bytes.first(line), resultName))
            ReadReplyText(*text);
}

const Target soapReply("soap-reply", ReadSoapReply);

} // namespace
