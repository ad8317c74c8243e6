#pragma once

namespace tsms {

/// Tells the processor that nobody uses the upper halves of its vector registers. Routines of Qt that have
/// versions for wide registers (its hash of texts, its drawing) leave them in use. On newer x86 processors
/// whatever copies short texts by the common instructions is then slower, until somebody says this. Costs
/// next to nothing.
void ReleaseWideRegisters();

} // namespace tsms
