#include "compose/MessageScreen.h"

#include "toolkit/fields/TextField.h"
#include "toolkit/look/Theme.h"

#include <QPainter>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int RimWidth = 4; // room for the ring
constexpr double RimCorner = 4;

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

void MessageScreen::paintEvent(QPaintEvent* event)
{
    FocusPanel::paintEvent(event);
    if (!HasKeyboard())
        return;
    QPainter painter(this);
    theme::DrawFocusRing(painter, rect(), RimCorner);
}

} // namespace tsms
