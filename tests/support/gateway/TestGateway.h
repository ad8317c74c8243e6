#pragma once

#include "runtime/Clock.h"

#include "tsms-gateway/SimulatedGateway.h"

#include <QString>

#include <ostream>

namespace tsms {

/// Lets a test that has one for its parameter print it.
inline void PrintTo(FaultKind kind, std::ostream* out)
{
    *out << FaultName(kind).toStdString();
}

} // namespace tsms

namespace tsms::test {

/// The simulated gateway in the test's own process, on a free port, with the account demo / demo /
/// sms.example.kr.
class TestGateway
{
public:
    explicit TestGateway(ServiceStyle style = ServiceStyle::RpcEncoded);
    explicit TestGateway(const Clock& clock, ServiceStyle style = ServiceStyle::RpcEncoded);

    QString Url() const { return gateway_.Url(); }
    QString WsdlUrl() const;

    QList<GatewayMessage> Messages() const { return gateway_.Messages(); } ///< the accepted ones
    QList<ServiceCall> Calls() const { return gateway_.Calls(); } ///< all that arrived, with their arguments
    int CallCount() const { return static_cast<int>(Calls().size()); }
    int RequestCount() const { return gateway_.RequestCount(); } ///< calls and readings of the description
    int ConnectionCount() const { return gateway_.ConnectionCount(); }

    /// The `call`-th call of this gateway's life goes wrong, or every one for 0.
    void Fail(FaultKind kind, int call = 0) { gateway_.Script({kind, call, 0}); }
    void AnswerLate(int milliseconds, int call = 0)
    {
        gateway_.Script({FaultKind::Late, call, milliseconds});
    }
    /// Each answer to a call comes once more, so much later.
    void AnswerTwice(int milliseconds) { gateway_.Script({FaultKind::Twice, 0, milliseconds}); }
    /// Refuses connections from now on, or when it has answered the `call`-th call.
    void Leave() { gateway_.Leave(); }
    void LeaveAfter(int call) { gateway_.Script({FaultKind::Leave, call, 0}); }
    void DescribeLate(int milliseconds) { gateway_.Script({FaultKind::WsdlLate, 0, milliseconds}); }
    void BehaveAgain(); ///< takes back all of the above

private:
    SystemClock systemClock_;
    SimulatedGateway gateway_;
};

} // namespace tsms::test
