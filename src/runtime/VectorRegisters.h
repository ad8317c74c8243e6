#pragma once

namespace tsms {

/// Ends the use of the wide vector registers. What fills areas in the toolkit leaves their upper halves in
/// use, and until they are not, some processors take the engine's code for floating point and copies a fifth
/// slower. Does nothing where there are none.
void ReleaseVectorRegisters();

} // namespace tsms
