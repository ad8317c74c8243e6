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
    Drop,            ///< takes the request, answers nothing and closes
    Cut,             ///< closes in the middle of the reply
    SoapFault,       ///< a SOAP fault with HTTP 500
    Http500,         ///< HTTP 500 with a page
    Garbage,         ///< HTTP 200 with no XML
    WsdlMissing,     ///< the description: HTTP 404
    WsdlGarbage,     ///< the description: no XML
    WsdlNoOperation, ///< the description: names neither operation
};

struct GatewayFault
{
    FaultKind Kind = FaultKind::Refuse;
    int Call = 0;         ///< which call it hits, from 1, counted over the life of the gateway; 0 every one
    int Milliseconds = 0; ///< of Late

    bool IsOfDescription() const { return Kind >= FaultKind::WsdlMissing; }
};

/// Reads "kind", "kind@call", "late=milliseconds" or "late=milliseconds@call"; the kinds are refuse, short,
/// bad-boolean, late, drop, cut, soap-fault, http500, garbage, wsdl-missing, wsdl-garbage, wsdl-no-operation.
std::optional<GatewayFault> ReadGatewayFault(const QString& text);

} // namespace tsms
