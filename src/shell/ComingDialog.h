#pragma once

class QWidget;

namespace tsms {

struct Services;

/// The dialogs whose work is not in this version yet.
enum class ComingDialog { Import };

/// Shows the frame of such a dialog, which says so, modally.
void ShowComingDialog(Services& services, ComingDialog which, QWidget* owner);

} // namespace tsms
