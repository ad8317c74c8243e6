#pragma once

#include <QString>

#include <chrono>

namespace tsms {

/// Reads the description of the gateway at that address as the program does. Answers with what is wrong and
/// what to do, or nothing. A gateway that says nothing for so long is left alone.
QString LookAtGateway(const QString& gatewayUrl,
                      std::chrono::milliseconds patience = std::chrono::seconds(10));

} // namespace tsms
