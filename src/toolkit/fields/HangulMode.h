#pragma once

class QWidget;

namespace tsms {

/// Has the Korean input method of Windows write Hangul, or Latin letters, as soon as the control that is
/// about to get the focus has it. A person may change it there. Nothing with other methods and elsewhere.
void AskForHangul(QWidget& control, bool hangul);

} // namespace tsms
