#pragma once

class QString;
class QWidget;

namespace tsms {

/// Tells something beside a control, without a box: as its tool tip, which shows at once and whenever the
/// mouse rests on the control. No words take it away.
void ShowTip(QWidget& control, const QString& words);

} // namespace tsms
