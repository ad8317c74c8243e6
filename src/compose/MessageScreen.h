#pragma once

#include "toolkit/fields/Controls.h"

namespace tsms {

/// What a message field stands on: a rim in the field's colour, with a ring while the keyboard is in the
/// field.
class MessageScreen : public Panel
{
public:
    /// Takes the field as its child, and its OnGotFocus and OnLostFocus.
    MessageScreen(TextField& field, const QString& name, QWidget* parent);

    /// Whether the ring shows.
    bool HasRing() const;

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    TextField& field_;
};

} // namespace tsms
