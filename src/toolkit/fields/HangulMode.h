#pragma once

#include <QtGlobal>

class QWidget;

namespace tsms {

/// The conversion mode of a method of Windows (bits IME_CMODE_… of imm.h) that writes Hangul, or Latin
/// letters. Letters and blanks are of half width, each a byte of a message; the other bits stay.
quint32 WithHangul(quint32 conversion, bool hangul);

/// Has the Korean input method of Windows write Hangul, or Latin letters, as soon as the control that is
/// about to get the focus has it. A person may change it there. Nothing with other methods and elsewhere.
void AskForHangul(QWidget& control, bool hangul);

} // namespace tsms
