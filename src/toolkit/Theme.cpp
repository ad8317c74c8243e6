#include "toolkit/Theme.h"

#include "toolkit/Pictures.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>

namespace tsms::theme {

namespace {

constexpr double ButtonRadius = 4;

bool Is(const QStyleOption& option, QStyle::StateFlag flag)
{
    return option.state.testFlag(flag);
}

bool IsPrimary(const QStyleOptionButton& button)
{
    return Is(button, QStyle::State_Enabled) && button.features.testFlag(QStyleOptionButton::DefaultButton);
}

/// A face as the mouse makes it look.
QColor Touched(const QColor& face, const QStyleOption& option, bool pressed)
{
    if (!Is(option, QStyle::State_Enabled))
        return face;
    if (pressed)
        return Pressed(face);
    return Is(option, QStyle::State_MouseOver) ? Hovered(face) : face;
}

void DrawButtonFace(QPainter& painter, const QStyleOptionButton& button)
{
    const bool enabled = Is(button, QStyle::State_Enabled);
    const bool primary = IsPrimary(button);
    const bool pressed = Is(button, QStyle::State_Sunken) || Is(button, QStyle::State_On);
    const QColor face = primary ? Accent : enabled ? ButtonFace : Ground;
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Touched(face, button, pressed));
    painter.setPen(primary ? QColor(Pressed(Accent)) : enabled ? Frame : Line);
    painter.drawRoundedRect(QRectF(button.rect).adjusted(0.5, 0.5, -0.5, -0.5), ButtonRadius, ButtonRadius);
    painter.restore();
}

/// An arrow of a scroll bar, pointing back (up, left) or on (down, right).
void DrawArrow(QPainter& painter, const QRectF& place, bool upright, bool back, const QColor& color)
{
    constexpr double Reach = 3.5;
    const double tip = back ? -Reach / 2 : Reach / 2;
    QPolygonF arrow{{-Reach, -tip}, {0, tip}, {Reach, -tip}};
    if (!upright)
        for (QPointF& point : arrow)
            point = point.transposed();
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPolyline(arrow.translated(place.center()));
}

/// The platform's style without a bevel: what it draws that is not a control of the program looks like one.
class Style final : public QProxyStyle
{
public:
    Style() : QProxyStyle(QStringLiteral("Fusion")) {}

    QIcon standardIcon(StandardPixmap icon, const QStyleOption* option, const QWidget* widget) const override
    {
        switch (icon) {
        case SP_MessageBoxCritical:
            return PictureIcon(QStringLiteral("sign-critical"));
        case SP_MessageBoxQuestion:
            return PictureIcon(QStringLiteral("sign-question"));
        case SP_MessageBoxWarning:
            return PictureIcon(QStringLiteral("sign-warning"));
        case SP_MessageBoxInformation:
            return PictureIcon(QStringLiteral("sign-information"));
        default:
            return QProxyStyle::standardIcon(icon, option, widget);
        }
    }

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override
    {
        constexpr int SignSize = 36;
        return metric == PM_MessageBoxIconSize ? SignSize : QProxyStyle::pixelMetric(metric, option, widget);
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        return hint == SH_LineEdit_PasswordCharacter ? u'*'
                                                     : QProxyStyle::styleHint(hint, option, widget, answer);
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        return type == CT_PushButton ? size.expandedTo({0, option->fontMetrics.height() + 14}) : size;
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (button && element == CE_PushButton)
            DrawButton(*button, *painter, widget);
        else if (button && element == CE_PushButtonBevel)
            DrawButtonFace(*painter, *button);
        else
            QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        if (slider && control == CC_ScrollBar)
            DrawScrollBar(*slider, *painter, widget);
        else
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

private:
    void DrawButton(const QStyleOptionButton& button, QPainter& painter, const QWidget* widget) const
    {
        proxy()->drawControl(CE_PushButtonBevel, &button, &painter, widget);
        QStyleOptionButton words(button);
        words.rect = proxy()->subElementRect(SE_PushButtonContents, &button, widget);
        if (IsPrimary(button))
            words.palette.setColor(QPalette::ButtonText, White);
        proxy()->drawControl(CE_PushButtonLabel, &words, &painter, widget);
        if (Is(button, State_HasFocus))
            DrawFocusRing(painter, button.rect, ButtonRadius);
    }

    void DrawScrollBar(const QStyleOptionSlider& bar, QPainter& painter, const QWidget* widget) const
    {
        const bool upright = bar.orientation == Qt::Vertical;
        const bool scrolls = Is(bar, State_Enabled) && bar.maximum > bar.minimum;
        const auto place = [&](SubControl part) {
            return QRectF(proxy()->subControlRect(CC_ScrollBar, &bar, part, widget));
        };
        painter.save();
        painter.fillRect(bar.rect, Ground);
        painter.setRenderHint(QPainter::Antialiasing);
        DrawArrow(painter, place(SC_ScrollBarSubLine), upright, true,
                  scrolls && bar.sliderPosition > bar.minimum ? Handle : Disabled);
        DrawArrow(painter, place(SC_ScrollBarAddLine), upright, false,
                  scrolls && bar.sliderPosition < bar.maximum ? Handle : Disabled);
        if (scrolls) {
            const bool touched = bar.activeSubControls.testFlag(SC_ScrollBarSlider);
            painter.setPen(Qt::NoPen);
            painter.setBrush(touched ? Touched(Handle, bar, Is(bar, State_Sunken)) : Handle);
            const QRectF handle = upright ? place(SC_ScrollBarSlider).adjusted(3, 0, -3, 0)
                                          : place(SC_ScrollBarSlider).adjusted(0, 3, 0, -3);
            const double radius = std::min(handle.width(), handle.height()) / 2;
            painter.drawRoundedRect(handle, radius, radius);
        }
        painter.restore();
    }
};

} // namespace

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
    application.setStyle(new Style);

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
