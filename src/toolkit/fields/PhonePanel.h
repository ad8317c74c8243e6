#pragma once

#include "toolkit/fields/Controls.h"

namespace tsms {

/// A panel in the shape of a small phone. Its contents rectangle is the screen, so a layout without margins
/// of its own fills the screen and nothing else.
class PhonePanel : public Panel
{
    Q_OBJECT

public:
    PhonePanel(QWidget* parent, const QString& name);

    /// A phone that is off is pale, and its screen is empty; a new one is on.
    void SetOn(bool on);
    bool IsOn() const { return on_; }

    /// The signs of the mouse over what the phone holds, and of the keyboard focus in it.
    void SetTouched(bool touched);
    void SetRing(bool ring);
    bool HasRing() const { return ring_; }

    /// The colour of the screen as it is now.
    QColor ScreenColor() const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Change(bool& sign, bool to);

    bool on_ = true;
    bool touched_ = false;
    bool ring_ = false;
};

} // namespace tsms
