#pragma once

#include "support/gateway/TestGateway.h"

#include <QList>

#include <string>

namespace tsms::test {

/// What goes wrong with a call, and how far it got.
struct CallFault
{
    std::string name;
    FaultKind kind = FaultKind::Drop;
    bool arrives = true; ///< at the gateway, whole
    bool isDone = false; ///< by the gateway, all the same
    bool succeeds = false;
};

const QList<CallFault>& CallFaults();

/// Lets it happen to the `nth` call from now, from 1. Before a call that finds nobody the gateway leaves.
void Happen(TestGateway& gateway, const CallFault& fault, int nth);

} // namespace tsms::test
