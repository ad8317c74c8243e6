#include "toolkit/look/Strokes.h"

#include "toolkit/look/Elements.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"

#include <QPainter>
#include <QPen>

#include <algorithm>

namespace tsms::theme {

namespace {

QRectF HalfPixelInside(const QRect& rect)
{
    return QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
}

} // namespace

/// A pen would draw it pixel by pixel, which takes longer than all that it frames.
void DrawEdge(QPainter& painter, const QRect& rect, const QColor& color)
{
    painter.fillRect(QRect(rect.left(), rect.top(), rect.width(), 1), color);
    painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), color);
    painter.fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), color);
    painter.fillRect(QRect(rect.right(), rect.top(), 1, rect.height()), color);
}

void DrawBox(QPainter& painter, const QRectF& place, const QColor& face, const QColor& line, double width)
{
    const double inside = width / 2;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(face);
    painter.setPen(QPen(line, width));
    painter.drawRoundedRect(place.adjusted(inside, inside, -inside, -inside), ControlRadius, ControlRadius);
    painter.restore();
}

void DrawSurface(QPainter& painter, const SurfaceOption& surface)
{
    if (surface.face != Qt::transparent)
        painter.fillRect(surface.rect, surface.face);
    if (surface.border != PanelBorder::None)
        DrawEdge(painter, surface.rect, surface.border == PanelBorder::Line ? Line : Frame);
    if (surface.ring)
        DrawFocusRing(painter, surface.rect, ControlRadius);
}

void DrawPhone(QPainter& painter, const PhoneOption& phone)
{
    constexpr double Corner = 11;
    const QColor body = phone.touched ? Accent : phone.on ? PhoneBody : Line;
    const QColor parts = phone.on || phone.touched ? body.lighter(150) : Page;
    const QRectF place(phone.rect);
    const double middle = place.width() / 2;
    const double ear = phone.screen.top();
    const double foot = place.height() - phone.screen.bottom() - 1;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(body);
    painter.drawRoundedRect(place, Corner, Corner);
    painter.setBrush(parts);
    painter.drawRoundedRect(QRectF(middle - 14, ear / 2 - 1.5, 28, 3), 1.5, 1.5);
    painter.drawEllipse(QPointF(middle, place.height() - foot / 2), 2.5, 2.5);
    painter.fillRect(phone.screen, PhoneScreen(phone.on, phone.touched));
    if (phone.ring && IsByKeyboard())
        DrawFocusRing(painter, place, Corner);
}

void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& bar)
{
    const QRectF trough = HalfPixelInside(bar.rect);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Line, 1));
    painter.setBrush(Ground);
    painter.drawRoundedRect(trough, ControlRadius, ControlRadius);
    if (bar.progress > 0) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(Accent);
        QRectF filled = trough.adjusted(1, 1, -1, -1);
        filled.setWidth(filled.width() * bar.progress / bar.maximum);
        painter.drawRoundedRect(filled, std::min(ControlRadius, filled.width() / 2), ControlRadius - 1);
    }
    painter.restore();
}

void DrawSign(QPainter& painter, const QStyleOption& mark, const QString& empty, const QString& chosen)
{
    const bool enabled = mark.state.testFlag(QStyle::State_Enabled);
    const QString& picture = mark.state.testFlag(QStyle::State_On) ? chosen : empty;
    painter.save();
    if (!enabled)
        painter.setOpacity(0.4);
    DrawPicture(painter, mark.rect, picture);
    if (enabled && mark.state.testFlag(QStyle::State_MouseOver)) {
        painter.setOpacity(mark.state.testFlag(QStyle::State_Sunken) ? 0.25 : 0.1);
        DrawPicture(painter, mark.rect, picture, Text);
    }
    painter.restore();
}

void DrawArrow(QPainter& painter, const QRectF& place, bool upright, bool back, const QColor& color)
{
    constexpr double Reach = 3.5;
    const double tip = back ? -Reach / 2 : Reach / 2;
    QPolygonF arrow{{-Reach, -tip}, {0, tip}, {Reach, -tip}};
    if (!upright)
        for (QPointF& point : arrow)
            point = point.transposed();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(arrow.translated(place.center()));
    painter.restore();
}

void DrawFocusRing(QPainter& painter, const QRectF& place, double radius)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    // Light inside dark: one of the two stands out from any face.
    painter.setPen(QPen(Accent, 2));
    painter.drawRoundedRect(place.adjusted(1, 1, -1, -1), radius, radius);
    painter.setPen(QPen(White, 1));
    painter.drawRoundedRect(place.adjusted(2.5, 2.5, -2.5, -2.5), radius - 2, radius - 2);
    painter.restore();
}

} // namespace tsms::theme
