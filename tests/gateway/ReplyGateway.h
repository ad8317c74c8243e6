#pragma once

#include "tsms-gateway/HttpListener.h"
#include "tsms-gateway/ServiceWords.h"

#include <QString>

#include <atomic>
#include <functional>

namespace tsms::test {

/// A gateway that describes its service properly and answers calls with bytes of the test's choice. Counts
/// the calls that arrived whole.
class ReplyGateway
{
public:
    /// Answers every call with this; `call` counts from 1.
    explicit ReplyGateway(std::function<HttpAnswer(int call)> answer,
                          ServiceStyle style = ServiceStyle::RpcEncoded);

    /// Such a one at https.
    ReplyGateway(std::function<HttpAnswer(int call)> answer, const QSslConfiguration& tls);

    QString Url() const;
    QString WsdlUrl() const { return Url() + DescriptionPath(); }
    int CallCount() const { return calls_; }
    int ConnectionCount() const { return listener_.ConnectionCount(); }
    int RequestCount() const { return listener_.RequestCount(); } ///< calls and readings of the description

    /// A whole answer of SendSMS with this reply text.
    static HttpAnswer Replying(const QString& reply);

private:
    HttpAnswer Answer(const HttpRequest& request);

    std::function<HttpAnswer(int)> answer_;
    ServiceStyle style_;
    QString scheme_;
    std::atomic<int> calls_ = 0;
    HttpListener listener_; ///< last: its thread uses the above
};

} // namespace tsms::test
