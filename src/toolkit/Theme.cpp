#include "toolkit/Theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QStyleFactory>

namespace tsms::theme {

QFont Font()
{
    QFont font;
    font.setFamilies({QStringLiteral("굴림"), QStringLiteral("Gulim"), QStringLiteral("NanumGothic"),
                      QStringLiteral("Noto Sans CJK KR")});
    font.setPointSize(9);
    return font;
}

void ApplyTheme(QApplication& application)
{
    application.setStyle(QStyleFactory::create(QStringLiteral("Fusion")));

    QPalette palette;
    palette.setColor(QPalette::Window, Page);
    palette.setColor(QPalette::WindowText, Text);
    palette.setColor(QPalette::Base, White);
    palette.setColor(QPalette::AlternateBase, Ground);
    palette.setColor(QPalette::Text, Text);
    palette.setColor(QPalette::PlaceholderText, Disabled);
    palette.setColor(QPalette::Button, ButtonFace);
    palette.setColor(QPalette::ButtonText, Text);
    palette.setColor(QPalette::BrightText, White);
    palette.setColor(QPalette::Highlight, Accent);
    palette.setColor(QPalette::HighlightedText, White);
    palette.setColor(QPalette::Link, Accent);
    palette.setColor(QPalette::ToolTipBase, Page);
    palette.setColor(QPalette::ToolTipText, Text);
    palette.setColor(QPalette::Mid, Line);
    palette.setColor(QPalette::Dark, Frame);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, Disabled);
    palette.setColor(QPalette::Disabled, QPalette::Base, Ground);
    palette.setColor(QPalette::Disabled, QPalette::Button, Ground);
    palette.setColor(QPalette::Disabled, QPalette::Highlight, Line);
    QApplication::setPalette(palette);
    QApplication::setFont(Font());
}

QColor Hovered(const QColor& face)
{
    return face.lightnessF() > 0.9F ? face.darker(104) : face.lighter(110);
}

QColor Pressed(const QColor& face)
{
    return face.darker(115);
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
