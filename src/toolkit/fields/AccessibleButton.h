#pragma once

#include <QAccessibleWidget>

#include <functional>

namespace tsms {

/// What a screen reader is told of a control that a person uses as a button, whatever class it is of: its
/// role and its one action. Name and description are the control's.
class AccessibleButton : public QAccessibleWidget
{
public:
    /// `press` does what a click does. It runs when the caller has returned.
    AccessibleButton(QWidget& control, std::function<void()> press);

    QStringList actionNames() const override;
    void doAction(const QString& action) override;

private:
    std::function<void()> press_;
};

} // namespace tsms
