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

    QString Url() const;
    QString WsdlUrl() const { return Url() + DescriptionPath(); }
    int CallCount() const { return calls_; }
    int ConnectionCount() const { return listener_.ConnectionCount(); }

    /// A whole answer of SendSMS with this reply text.
    static HttpAnswer Replying(const QString& reply);

private:
    std::atomic<int> calls_ = 0;
    HttpListener listener_; ///< last: its thread uses the above
};

} // namespace tsms::test
