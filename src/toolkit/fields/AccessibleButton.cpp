#include "toolkit/fields/AccessibleButton.h"

#include <QApplication>
#include <QMetaObject>
#include <QWidget>

#include <utility>

namespace tsms {

namespace {

/// Behind a dialog or a box no mouse would reach a control.
bool IsInReach(const QWidget& control)
{
    const QWidget* modal = QApplication::activeModalWidget();
    return control.isEnabled() && control.isVisible() && (!modal || modal == control.window());
}

} // namespace

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
        QMetaObject::invokeMethod(
            widget(),
            [control = widget(), press = press_] {
                if (IsInReach(*control))
                    press();
            },
            Qt::QueuedConnection);
    else
        QAccessibleWidget::doAction(action);
}

} // namespace tsms
