#include "gateway/ReplyGateway.h"

#include <gtest/gtest.h>

namespace tsms::test {

ReplyGateway::ReplyGateway(std::function<HttpAnswer(int)> answer, ServiceStyle style)
    : listener_([this, answer = std::move(answer), style](const HttpRequest& request) {
          if (request.Method == "POST")
              return answer(++calls_);
          return WholeAnswer(200, "text/xml", DescriptionOf(style, Url() + EndpointPath()));
      })
{
    EXPECT_TRUE(listener_.Listen(0));
}

QString ReplyGateway::Url() const
{
    return QStringLiteral("http://127.0.0.1:%1").arg(listener_.Port());
}

HttpAnswer ReplyGateway::Replying(const QString& reply)
{
    return WholeAnswer(200, "text/xml; charset=utf-8",
                       ServiceAnswer(QStringLiteral("SendSMS"), ServiceStyle::RpcEncoded, reply));
}

} // namespace tsms::test
