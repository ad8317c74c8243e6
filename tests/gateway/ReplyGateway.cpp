#include "gateway/ReplyGateway.h"

#include <gtest/gtest.h>

namespace tsms::test {

ReplyGateway::ReplyGateway(std::function<HttpAnswer(int)> answer, ServiceStyle style)
    : answer_(std::move(answer)),
      style_(style),
      scheme_(QStringLiteral("http")),
      listener_([this](const HttpRequest& request) { return Answer(request); })
{
    EXPECT_TRUE(listener_.Listen(0));
}

ReplyGateway::ReplyGateway(std::function<HttpAnswer(int)> answer, const QSslConfiguration& tls)
    : answer_(std::move(answer)),
      style_(ServiceStyle::RpcEncoded),
      scheme_(QStringLiteral("https")),
      listener_([this](const HttpRequest& request) { return Answer(request); }, tls)
{
    EXPECT_TRUE(listener_.Listen(0));
}

HttpAnswer ReplyGateway::Answer(const HttpRequest& request)
{
    if (request.Method == "POST")
        return answer_(++calls_);
    return WholeAnswer(200, "text/xml", DescriptionOf(style_, Url() + EndpointPath()));
}

QString ReplyGateway::Url() const
{
    return QStringLiteral("%1://127.0.0.1:%2").arg(scheme_).arg(listener_.Port());
}

HttpAnswer ReplyGateway::Replying(const QString& reply)
{
    return WholeAnswer(200, "text/xml; charset=utf-8",
                       ServiceAnswer(QStringLiteral("SendSMS"), ServiceStyle::RpcEncoded, reply));
}

} // namespace tsms::test
