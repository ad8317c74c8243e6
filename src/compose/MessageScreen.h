#pragma once

#include "toolkit/fields/Controls.h"

namespace tsms {

/// What a message field stands on: a rim in the field's colour, with a ring while the keyboard is in the
/// field.
class MessageScreen : public FocusPanel
{
public:
    /// Takes the field as its child.
    MessageScreen(TextField& field, const QString& name, QWidget* parent);

protected:
    theme::SurfaceOption Surface() const override;
};

} // namespace tsms
