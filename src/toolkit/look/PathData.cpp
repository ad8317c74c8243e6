#include "toolkit/look/PathData.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

namespace tsms {

namespace {

/// An arc of a circle. Angles are in radians, with the clock.
struct Arc
{
    QPointF centre;
    double radius;
    double start;
    double length;

    QPointF At(double angle) const { return centre + radius * QPointF(std::cos(angle), std::sin(angle)); }
};

double AngleAt(const QPointF& centre, const QPointF& point)
{
    return std::atan2(point.y() - centre.y(), point.x() - centre.x());
}

/// An arc by its ends (SVG 1.1, F.6.5): of the four that there are, the one on the long way round or not, and
/// the one with the clock or not.
Arc ArcBetween(const QPointF& from, const QPointF& to, double radius, bool isLong, bool isWithClock)
{
    const QPointF half = (to - from) / 2;
    const double halfLength = std::hypot(half.x(), half.y());
    radius = std::max(radius, halfLength);
    const double away = std::sqrt(radius * radius - halfLength * halfLength) / halfLength;
    const QPointF aside = QPointF(-half.y(), half.x()) * (isLong == isWithClock ? -away : away);
    const QPointF centre = from + half + aside;
    const double start = AngleAt(centre, from);
    double length = AngleAt(centre, to) - start;
    if (isWithClock && length < 0)
        length += 2 * std::numbers::pi;
    if (!isWithClock && length > 0)
        length -= 2 * std::numbers::pi;
    return {centre, radius, start, length};
}

/// Curves that no eye tells from the arc, none longer than a quarter of the circle.
void AddArc(QPainterPath& path, const Arc& arc)
{
    const int parts =
        std::max(1, static_cast<int>(std::ceil(std::abs(arc.length) / (std::numbers::pi / 2 + 0.001))));
    const double part = arc.length / parts;
    const double handle = 4.0 / 3 * std::tan(part / 4);
    for (int i = 0; i < parts; ++i) {
        const QPointF from = arc.At(arc.start + i * part) - arc.centre;
        const QPointF to = arc.At(arc.start + (i + 1) * part) - arc.centre;
        path.cubicTo(arc.centre + from + handle * QPointF(-from.y(), from.x()),
                     arc.centre + to - handle * QPointF(-to.y(), to.x()), arc.centre + to);
    }
}

class PathReader
{
public:
    explicit PathReader(QStringView data) : rest_(data) {}

    std::optional<QPainterPath> Read()
    {
        SkipSeparators();
        while (!rest_.isEmpty() && isWhole_) {
            if (rest_.front().isLetter())
                TakeCommand();
            Draw();
            SkipSeparators();
        }
        return isWhole_ ? std::optional(path_) : std::nullopt;
    }

private:
    void TakeCommand()
    {
        isRelative_ = rest_.front().isLower();
        command_ = rest_.front().toUpper();
        rest_ = rest_.sliced(1);
    }

    /// One command, whose letter may stand once for several.
    void Draw()
    {
        const QPointF here = path_.currentPosition();
        const QPointF origin = isRelative_ ? here : QPointF();
        const QPointF mirrored = 2 * here - std::exchange(handle_, std::nullopt).value_or(here);
        switch (command_.unicode()) {
        case u'M':
            path_.moveTo(Point(origin));
            command_ = u'L'; // what further points of it mean
            break;
        case u'L':
            path_.lineTo(Point(origin));
            break;
        case u'H':
            path_.lineTo(origin.x() + Number(), here.y());
            break;
        case u'V':
            path_.lineTo(here.x(), origin.y() + Number());
            break;
        case u'C':
            DrawCurve(Point(origin), origin);
            break;
        case u'S':
            DrawCurve(mirrored, origin);
            break;
        case u'A':
            DrawArc(origin);
            break;
        case u'Z':
            path_.closeSubpath();
            command_ = {}; // no numbers may follow
            break;
        default:
            isWhole_ = false;
        }
    }

    void DrawCurve(const QPointF& first, const QPointF& origin)
    {
        handle_ = Point(origin);
        path_.cubicTo(first, *handle_, Point(origin));
    }

    void DrawArc(const QPointF& origin)
    {
        const double radius = Number();
        isWhole_ = isWhole_ && radius > 0 && Number() == radius && Number() == 0;
        const bool isLong = Number() != 0;
        const bool isWithClock = Number() != 0;
        const QPointF from = path_.currentPosition();
        const QPointF to = Point(origin);
        isWhole_ = isWhole_ && from != to;
        if (!isWhole_)
            return;
        AddArc(path_, ArcBetween(from, to, radius, isLong, isWithClock));
    }

    QPointF Point(const QPointF& origin)
    {
        const double x = Number();
        return origin + QPointF(x, Number());
    }

    double Number()
    {
        SkipSeparators();
        qsizetype end = 0;
        bool hasPoint = false;
        while (end < rest_.size() && CanGoOn(rest_[end], end == 0, hasPoint))
            ++end;
        bool isNumber = false;
        const double number = rest_.first(end).toDouble(&isNumber);
        rest_ = rest_.sliced(end);
        isWhole_ = isWhole_ && isNumber;
        return number;
    }

    /// A sign and a second point begin the next number.
    static bool CanGoOn(QChar character, bool isFirst, bool& hasPoint)
    {
        if (character == u'.')
            return !std::exchange(hasPoint, true);
        return character.isDigit() || (isFirst && character == u'-');
    }

    void SkipSeparators()
    {
        while (!rest_.isEmpty() && (rest_.front().isSpace() || rest_.front() == u','))
            rest_ = rest_.sliced(1);
    }

    QStringView rest_;
    QPainterPath path_;
    QChar command_;
    bool isRelative_ = false;
    bool isWhole_ = true;
    std::optional<QPointF> handle_; // the last one of a curve, which a smooth curve right behind it mirrors
};

} // namespace

std::optional<QPainterPath> PathOfData(QStringView data)
{
    return PathReader(data).Read();
}

} // namespace tsms
