#pragma once

#include <QBrush>
#include <QPainterPath>
#include <QPen>
#include <QRectF>
#include <QString>

#include <vector>

class QPainter;

namespace tsms {

/// A picture of lines and areas, from an SVG file with no more in it than the program's own pictures have:
/// "svg" with a viewBox, "g", "path" (see PathOfData), "rect" with one rx and "circle", whose attributes
/// "fill", "stroke", "stroke-width", "stroke-opacity", "stroke-linecap" and "stroke-linejoin" are heeded.
class VectorPicture
{
public:
    /// A file that is not there, or that holds another element, leaves the picture empty.
    explicit VectorPicture(const QString& file);

    bool IsEmpty() const { return shapes_.empty(); }

    /// Fills the place with the picture's view box.
    void Draw(QPainter& painter, const QRectF& place) const;

private:
    struct Style
    {
        QBrush area = Qt::black;
        QPen line = Qt::NoPen;
    };
    struct Shape
    {
        QPainterPath outline;
        Style style;
    };
    class Reader;

    QRectF view_;
    std::vector<Shape> shapes_;
};

} // namespace tsms
