#include "toolkit/look/Tip.h"

#include <QToolTip>
#include <QWidget>

namespace tsms {

void ShowTip(QWidget& control, const QString& words)
{
    const QString tip = words.isEmpty() ? words : QStringLiteral("<qt>%1</qt>").arg(words.toHtmlEscaped());
    control.setToolTip(tip);
    QToolTip::showText(control.mapToGlobal(QPoint(0, control.height())), tip, &control);
}

} // namespace tsms
