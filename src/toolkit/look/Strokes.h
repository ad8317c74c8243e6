#pragma once

#include <QColor>

class QPainter;
class QRect;
class QRectF;
class QString;
class QStyleOption;
class QStyleOptionProgressBar;

// The strokes that the style draws with. Controls do not call them: they say by an option what they are.
namespace tsms::theme {

struct PhoneOption;
struct SurfaceOption;

/// A face with a border inside `place`: the shape of all buttons and fields.
void DrawBox(QPainter& painter, const QRectF& place, const QColor& face, const QColor& line,
             double width = 1);

/// A fine line inside `rect`, closed on all sides whatever the scaling of the screen.
void DrawEdge(QPainter& painter, const QRect& rect, const QColor& color);

void DrawSurface(QPainter& painter, const SurfaceOption& surface);
void DrawPhone(QPainter& painter, const PhoneOption& phone);
void DrawProgress(QPainter& painter, const QStyleOptionProgressBar& bar);

/// The sign of a mark, as it stands in the cells of grids too, and its shade under the mouse.
void DrawSign(QPainter& painter, const QStyleOption& mark, const QString& empty, const QString& chosen);

/// An arrow of a scroll bar or of a list, pointing back (up, left) or on (down, right).
void DrawArrow(QPainter& painter, const QRectF& place, bool upright, bool back, const QColor& color);

} // namespace tsms::theme
