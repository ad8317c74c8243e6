#include "toolkit/Naming.h"

#include "runtime/Text.h"

#include <QAbstractButton>
#include <QLabel>

namespace tsms {

QString IndexedName(QStringView base, int index)
{
    return QStringLiteral("%1(%2)").arg(base).arg(index);
}

namespace {

bool HasWords(const QWidget& widget)
{
    if (const auto* label = qobject_cast<const QLabel*>(&widget))
        return !label->text().isEmpty();
    if (const auto* button = qobject_cast<const QAbstractButton*>(&widget))
        return !button->text().isEmpty();
    return false;
}

} // namespace

void SetName(QWidget& widget, const QString& name)
{
    widget.setObjectName(name);
    widget.setAccessibleName(HasWords(widget) ? QString() : name);
}

void DescribeBy(QWidget& control, const QString& caption)
{
    const qsizetype colon = caption.indexOf(u':');
    control.setAccessibleDescription(colon < 0 ? Trim(caption) : WithoutBlanks(caption.first(colon)));
}

} // namespace tsms
