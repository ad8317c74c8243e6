#pragma once

namespace tsms {

/// Has a screen reader told of the program's own panels, labels, buttons and lists as what they are to a
/// person; the platform knows their bases only. Called before the first of them is asked about.
void TellOfFields();

} // namespace tsms
