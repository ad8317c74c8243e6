#pragma once

#include "runtime/RuntimeError.h"

#include <QString>

namespace tsms {

/// Numbers of the errors of SoapClient30. Everything between here and the gateway is AutomationError.
enum SoapErrorNumber : long {
    UnknownOperation = 438,
    WrongArgumentCount = 450,
};

/// A call that came to nothing. Description is the fault string. The texts never hold anything of a request.
class SoapFault : public RuntimeError
{
public:
    SoapFault(QString code, QString string, QString detail, long number = AutomationError);

    /// Whether the gateway said so itself; if not, it was found on this side of the wire.
    bool IsOfGateway() const { return !Code.isEmpty(); }

    QString Code; ///< "Client", "Server", ... as the gateway gave it; empty for a fault found on this side
    QString Detail;
};

/// A fault found on this side of the wire.
SoapFault LocalFault(QString string, QString detail = {}, long number = AutomationError);

} // namespace tsms
