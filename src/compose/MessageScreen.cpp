#include "compose/MessageScreen.h"

#include "toolkit/fields/TextField.h"
#include "toolkit/look/Theme.h"

#include <QEvent>
#include <QPainter>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int RimWidth = 4; // room for the ring
constexpr double RimCorner = 4;

} // namespace

MessageScreen::MessageScreen(TextField& field, const QString& name, QWidget* parent)
    : Panel(parent, name), field_(field)
{
    SetBackColor(field.BackColor());
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(RimWidth, RimWidth, RimWidth, RimWidth);
    layout->addWidget(&field.Widget());
    field.OnGotFocus = [this] { update(); };
    field.OnLostFocus = [this] { update(); };
}

bool MessageScreen::HasRing() const
{
    return field_.Widget().hasFocus();
}

bool MessageScreen::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate || event->type() == QEvent::WindowDeactivate)
        update(); // the ring tells whether the keyboard is here
    return Panel::event(event);
}

void MessageScreen::paintEvent(QPaintEvent* event)
{
    Panel::paintEvent(event);
    if (!HasRing())
        return;
    QPainter painter(this);
    theme::DrawFocusRing(painter, rect(), RimCorner);
}

} // namespace tsms
