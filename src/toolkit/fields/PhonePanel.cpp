#include "toolkit/fields/PhonePanel.h"

#include "toolkit/look/Theme.h"

#include <QPainter>

namespace tsms {

namespace {

constexpr int Side = 6;
constexpr int EarPiece = 11; // height of the top, with the slit to listen at
constexpr int HomeKey = 11;  // height of the foot
constexpr double Corner = 11;

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
    const QColor screen = on_ ? theme::Phone : theme::Ground;
    return touched_ ? theme::Hovered(screen) : screen;
}

void PhonePanel::paintEvent(QPaintEvent*)
{
    const QColor body = touched_ ? theme::Accent : on_ ? theme::PhoneBody : theme::Line;
    const QColor parts = on_ || touched_ ? body.lighter(150) : theme::Page;
    const double middle = width() / 2.0;
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawRoundedRect(QRectF(rect()), Corner, Corner);
    painter.setBrush(parts);
    painter.drawRoundedRect(QRectF(middle - 14, EarPiece / 2.0 - 1.5, 28, 3), 1.5, 1.5);
    painter.drawEllipse(QPointF(middle, height() - HomeKey / 2.0), 2.5, 2.5);
    painter.fillRect(contentsRect(), ScreenColor());
    if (ring_ && theme::IsByKeyboard())
        theme::DrawFocusRing(painter, rect(), Corner);
}

} // namespace tsms
