#pragma once

#include "tsms-gateway/GatewayFault.h"
#include "tsms-gateway/HttpListener.h"
#include "tsms-gateway/MessageBook.h"
#include "tsms-gateway/ServiceWords.h"

#include <QList>
#include <QString>

#include <functional>
#include <mutex>
#include <optional>

namespace tsms {

/// A message gateway that sends nothing anywhere: the service with its description, a page "/" that shows
/// the messages as phones received them, "/messages.json", and the plain pages "/join" and "/charge".
class SimulatedGateway
{
public:
    struct Settings
    {
        quint16 Port = 0; ///< 0 for a free one
        GatewayAccount Account;
        ServiceStyle Style = ServiceStyle::RpcEncoded;
        std::function<void(const GatewayMessage&)> OnMessage; ///< an accepted one; in the gateway's thread
    };

    SimulatedGateway(const Clock& clock, Settings settings);
    ~SimulatedGateway();

    /// Takes over reservations of an earlier run. Before Start.
    void Hold(const HeldMessages& held) { book_.Hold(held); }

    /// False when the port is taken.
    bool Start();

    quint16 Port() const { return listener_.Port(); }
    QString Url() const; ///< "http://127.0.0.1:port"

    /// From now on does this wrong, too.
    void Script(const GatewayFault& fault);
    void ClearFaults();

    /// Refuses connections until it returns.
    void Leave() { listener_.Leave(); }
    bool Return() { return listener_.Return(); } ///< false when its port has been taken meanwhile

    QList<GatewayMessage> Messages() const { return book_.Messages(); } ///< held and accepted ones
    QList<ServiceCall> Calls() const; ///< every call that arrived whole, in order, whatever came of it
    int ConnectionCount() const { return listener_.ConnectionCount(); }
    int RequestCount() const { return listener_.RequestCount(); } ///< of any kind, the description's too

private:
    HttpAnswer Answer(const HttpRequest& request);
    HttpAnswer AnswerDescription();
    HttpAnswer AnswerCall(const HttpRequest& request);
    HttpAnswer AnswerPage(const QByteArray& path) const;
    QString Serve(const ServiceCall& call, const std::optional<GatewayFault>& fault);
    std::optional<GatewayFault> FaultOfCall(int call) const;

    MessageBook book_;
    Settings settings_;
    mutable std::mutex mutex_; ///< guards faults_ and calls_
    QList<GatewayFault> faults_;
    QList<ServiceCall> calls_;
    HttpListener listener_; ///< last: its thread uses all of the above
};

} // namespace tsms
