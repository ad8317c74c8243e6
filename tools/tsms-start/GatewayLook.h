#pragma once

#include <QString>

namespace tsms {

/// Reads the description of the gateway at that address as the program does. Answers with what is wrong and
/// what to do, or nothing. A gateway that says nothing for ten seconds is left alone: windows repaint
/// meanwhile.
QString LookAtGateway(const QString& gatewayUrl);

} // namespace tsms
