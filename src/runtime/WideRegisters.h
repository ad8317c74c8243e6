#pragma once

namespace tsms {

/// Tells the processor that nobody uses the upper halves of its vector registers. Routines of Qt that have
/// versions for wide registers (its hash of texts, its drawing) leave them in use. On newer x86 processors
/// each short text that is then copied by the common instructions takes some 100 ns longer, until somebody
/// says this: an import of 32,000 rows takes half as long again. Costs next to nothing.
void ReleaseWideRegisters();

} // namespace tsms
