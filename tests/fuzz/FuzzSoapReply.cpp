// Takes any bytes for an answer of the gateway: a line with the content type, then the envelope. The text in
// it is read as the gateway's reply.
#include "fuzz/Target.h"
#include "gateway/PlainAnswer.h"
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
    shape.resultName = resultName;
    try {
        return ReadAnswer(shape, envelope, contentType);
    } catch (const SoapFault& fault) {
        Require(fault.IsOfGateway() || !fault.Description.isEmpty());
        return std::nullopt;
    }
}

/// What is pulled from the bytes is what stands in the tree. A comment behind the root needs the tree.
void RequireSameFromTheTree(const QByteArray& envelope, const QString& resultName)
{
    if (const std::optional<QString> plain = ReadPlainAnswer(envelope))
        Require(AnswerIn(envelope + "<!---->", {}, resultName) == plain);
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
    for (const QString& resultName : {QString(), QStringLiteral("SendSMSReturn")}) {
        RequireSameFromTheTree(bytes.sliced(line), resultName);
        if (const auto text = AnswerIn(bytes.sliced(line), bytes.first(line), resultName))
            ReadReplyText(*text);
    }
}

const Target soapReply("soap-reply", ReadSoapReply);

} // namespace
