#include "toolkit/look/VectorPicture.h"

#include "toolkit/look/PathData.h"

#include <QFile>
#include <QPainter>
#include <QXmlStreamReader>

#include <optional>

namespace tsms {

namespace {

double NumberOf(const QXmlStreamAttributes& attributes, QLatin1String name)
{
    return attributes.value(name).toDouble();
}

QRectF RectangleOf(QStringView numbers)
{
    const QList<QStringView> parts = numbers.split(u' ');
    if (parts.size() != 4)
        return {};
    return {parts[0].toDouble(), parts[1].toDouble(), parts[2].toDouble(), parts[3].toDouble()};
}

QPainterPath RoundedRectangle(const QXmlStreamAttributes& attributes)
{
    const double radius = NumberOf(attributes, QLatin1String("rx"));
    QPainterPath outline;
    outline.addRoundedRect(
        {NumberOf(attributes, QLatin1String("x")), NumberOf(attributes, QLatin1String("y")),
         NumberOf(attributes, QLatin1String("width")), NumberOf(attributes, QLatin1String("height"))},
        radius, radius);
    return outline;
}

QPainterPath Circle(const QXmlStreamAttributes& attributes)
{
    const double radius = NumberOf(attributes, QLatin1String("r"));
    QPainterPath outline;
    outline.addEllipse({NumberOf(attributes, QLatin1String("cx")), NumberOf(attributes, QLatin1String("cy"))},
                       radius, radius);
    return outline;
}

/// The outline of an element; nothing for an element that is none, or not to be understood.
std::optional<QPainterPath> OutlineOf(QStringView element, const QXmlStreamAttributes& attributes)
{
    if (element == u"path")
        return PathOfData(attributes.value(QLatin1String("d")));
    if (element == u"rect")
        return RoundedRectangle(attributes);
    if (element == u"circle")
        return Circle(attributes);
    return std::nullopt;
}

/// A pen as SVG has it where nothing is said: Qt's own has square caps.
QPen PlainPen(const QColor& color)
{
    QPen pen(color, 1, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(4);
    return pen;
}

} // namespace

class VectorPicture::Reader
{
public:
    Reader(QFile& file, VectorPicture& into) : xml_(&file), picture_(into) {}

    /// False when there is something in it that is not understood.
    bool Read()
    {
        return xml_.readNextStartElement() && xml_.name() == u"svg" && ReadView() && ReadChildren({}) &&
               !xml_.hasError();
    }

private:
    bool ReadView()
    {
        picture_.view_ = RectangleOf(xml_.attributes().value(QLatin1String("viewBox")));
        return !picture_.view_.isEmpty();
    }

    bool ReadChildren(const Style& inherited)
    {
        while (xml_.readNextStartElement())
            if (!ReadElement(StyleOf(inherited)))
                return false;
        return true;
    }

    bool ReadElement(const Style& style)
    {
        if (xml_.name() == u"g")
            return ReadChildren(style);
        const std::optional<QPainterPath> outline = OutlineOf(xml_.name(), xml_.attributes());
        if (outline)
            picture_.shapes_.push_back({*outline, style});
        xml_.skipCurrentElement();
        return outline.has_value();
    }

    /// What the element says for itself over what the one around it says.
    Style StyleOf(Style style) const
    {
        const QXmlStreamAttributes says = xml_.attributes();
        if (const QStringView fill = says.value(QLatin1String("fill")); !fill.isEmpty())
            style.area = fill == u"none" ? QBrush() : QBrush(QColor(fill));
        if (const QStringView stroke = says.value(QLatin1String("stroke")); !stroke.isEmpty())
            style.line = PlainPen(QColor(stroke));
        if (!says.value(QLatin1String("stroke-width")).isEmpty())
            style.line.setWidthF(NumberOf(says, QLatin1String("stroke-width")));
        if (says.value(QLatin1String("stroke-linecap")) == u"round")
            style.line.setCapStyle(Qt::RoundCap);
        if (says.value(QLatin1String("stroke-linejoin")) == u"round")
            style.line.setJoinStyle(Qt::RoundJoin);
        if (!says.value(QLatin1String("stroke-opacity")).isEmpty())
            style.line.setColor(
                WithOpacity(style.line.color(), NumberOf(says, QLatin1String("stroke-opacity"))));
        return style;
    }

    static QColor WithOpacity(QColor color, double opacity)
    {
        color.setAlphaF(static_cast<float>(opacity));
        return color;
    }

    QXmlStreamReader xml_;
    VectorPicture& picture_;
};

VectorPicture::VectorPicture(const QString& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly) || !Reader(source, *this).Read())
        shapes_.clear();
}

void VectorPicture::Draw(QPainter& painter, const QRectF& place) const
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / view_.width(), place.height() / view_.height());
    painter.translate(-view_.topLeft());
    for (const Shape& shape : shapes_) {
        painter.setBrush(shape.style.area);
        painter.setPen(shape.style.line);
        painter.drawPath(shape.outline);
    }
    painter.restore();
}

} // namespace tsms
