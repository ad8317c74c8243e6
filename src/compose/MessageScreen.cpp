#include "compose/MessageScreen.h"

#include "toolkit/fields/TextField.h"

#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int RimWidth = 4; // room for the ring

} // namespace

MessageScreen::MessageScreen(TextField& field, const QString& name, QWidget* parent)
    : FocusPanel(parent, name)
{
    SetBackColor(field.BackColor());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(RimWidth, RimWidth, RimWidth, RimWidth);
    layout->addWidget(&field.Widget());
    Follow(field.Widget());
}

theme::SurfaceOption MessageScreen::Surface() const
{
    theme::SurfaceOption surface = FocusPanel::Surface();
    surface.ring = HasKeyboard();
    return surface;
}

} // namespace tsms
