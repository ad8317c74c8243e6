#pragma once

#include <QString>

#include <optional>

namespace tsms {

/// What a simulated gateway can be told to do wrong.
enum class FaultKind {
    Refuse,          ///< a reply with a failure code and text; the message is not taken
    Short,           ///< a reply of eight items
    BadTruth,        ///< a reply whose return_value is no truth value
    Late,            ///< the right reply after a while
    Twice,           ///< the right reply, and after a while once more
    Drop,            ///< takes the request, answers nothing and closes
    Cut,             ///< closes in the middle of the reply
    SoapFault,       ///< a SOAP fault with HTTP 500
    Http500,         ///< HTTP 500 with a page
    Garbage,         ///< HTTP 200 with no XML
    Leave,           ///< the right reply, and from then on refuses connections
    WsdlMissing,     ///< the description: HTTP 404
    WsdlGarbage,     ///< the description: no XML
    WsdlNoOperation, ///< the description: names neither operation
    WsdlLate,        ///< the description: right, after a while
    WsdlDrop,        ///< the description: answers nothing and closes
    WsdlCut,         ///< the description: closes in the middle of it
    WsdlHttp500,     ///< the description: HTTP 500 with a page
    WsdlLeave,       ///< the description: right, and from then on refuses connections
};

struct GatewayFault
{
    FaultKind Kind = FaultKind::Refuse;
    int Call = 0;         ///< which call it hits, from 1, counted over the life of the gateway; 0 every one
    int Milliseconds = 0; ///< of Late, Twice and WsdlLate

    bool IsOfDescription() const { return Kind >= FaultKind::WsdlMissing; }
    bool TakesTime() const
    {
        return Kind == FaultKind::Late || Kind == FaultKind::Twice || Kind == FaultKind::WsdlLate;
    }
};

/// Reads "kind", "kind@call", "late=milliseconds" or "late=milliseconds@call"; the kinds are refuse, short,
/// bad-boolean, late, twice (with milliseconds, too), drop, cut, soap-fault, http500, garbage, leave, and of
/// the description wsdl-missing, wsdl-garbage, wsdl-no-operation, wsdl-late, wsdl-drop, wsdl-cut,
/// wsdl-http500, wsdl-leave.
std::optional<GatewayFault> ReadGatewayFault(const QString& text);

/// The kind as it is read.
QString FaultName(FaultKind kind);

} // namespace tsms
