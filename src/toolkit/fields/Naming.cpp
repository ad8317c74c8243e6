#include "toolkit/fields/Naming.h"

#include "runtime/Text.h"
#include "toolkit/fields/AccessibleFields.h"

#include <QWidget>

namespace tsms {

QString IndexedName(QStringView base, int index)
{
    return QStringLiteral("%1(%2)").arg(base).arg(index);
}

void SetName(QWidget& widget, const QString& name)
{
    TellOfFields();
    widget.setObjectName(name);
}

void DescribeBy(QWidget& control, const QString& caption)
{
    const qsizetype colon = caption.indexOf(u':');
    control.setAccessibleName(colon < 0 ? Trim(caption) : WithoutBlanks(caption.first(colon)));
}

} // namespace tsms
