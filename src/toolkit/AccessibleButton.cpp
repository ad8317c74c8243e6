#include "toolkit/AccessibleButton.h"

#include <QMetaObject>
#include <QWidget>

#include <utility>

namespace tsms {

AccessibleButton::AccessibleButton(QWidget& control, std::function<void()> press)
    : QAccessibleWidget(&control, QAccessible::Button), press_(std::move(press))
{
}

QStringList AccessibleButton::actionNames() const
{
    QStringList actions = QAccessibleWidget::actionNames();
    if (widget()->isEnabled())
        actions.prepend(pressAction());
    return actions;
}

void AccessibleButton::doAction(const QString& action)
{
    // A click may open a dialog, and the screen reader waits for an answer to its call.
    if (action == pressAction() && widget()->isEnabled())
        QMetaObject::invokeMethod(widget(), press_, Qt::QueuedConnection);
    else
        QAccessibleWidget::doAction(action);
}

} // namespace tsms
