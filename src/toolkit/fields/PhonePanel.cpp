#include "toolkit/fields/PhonePanel.h"

#include <QStylePainter>

namespace tsms {

namespace {

constexpr int Side = 6;
constexpr int EarPiece = 11; // height of the top, with the slit to listen at
constexpr int HomeKey = 11;  // height of the foot

} // namespace

PhonePanel::PhonePanel(QWidget* parent, const QString& name) : Panel(parent, name)
{
    setContentsMargins(Side, EarPiece, Side, HomeKey);
}

void PhonePanel::Change(bool& sign, bool to)
{
    if (sign == to)
        return;
    sign = to;
    update();
}

void PhonePanel::SetOn(bool on)
{
    Change(on_, on);
}

void PhonePanel::SetTouched(bool touched)
{
    Change(touched_, touched);
}

void PhonePanel::SetRing(bool ring)
{
    Change(ring_, ring);
}

QColor PhonePanel::ScreenColor() const
{
    return theme::PhoneScreen(on_, touched_);
}

void PhonePanel::paintEvent(QPaintEvent*)
{
    theme::PhoneOption phone;
    phone.initFrom(this);
    phone.screen = contentsRect();
    phone.on = on_;
    phone.touched = touched_;
    phone.ring = ring_;
    QStylePainter(this).drawPrimitive(theme::PhoneElement, phone);
}

} // namespace tsms
