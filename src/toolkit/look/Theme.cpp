#include "toolkit/look/Theme.h"

#include "toolkit/look/Elements.h"
#include "toolkit/look/Fonts.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Strokes.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QStyleOption>

#include <algorithm>
#include <optional>
#include <utility>

namespace tsms::theme {

namespace {

constexpr int ArrowWidth = 22; // of the part of a list that opens it
constexpr int MarkSize = 16;
constexpr int FocusedBorder = 2; // how wide a field's border is at most

constexpr int PictureSize = 18; // of a button
constexpr int SmallPictureSize = 14;
constexpr int PictureGap = 7; // between it and the words

/// Room of a mark and its words for the ring of the focus.
constexpr QMargins RingRoom(4, 3, 4, 3);

bool byKeyboard = true; // nobody has pressed the mouse yet

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
    const bool chosen = enabled && Is(button, QStyle::State_On);
    const QColor face = primary ? Accent : chosen ? Strip : enabled ? ButtonFace : Ground;
    const QColor line = primary ? Pressed(Accent) : chosen ? Accent : enabled ? Frame : Line;
    DrawBox(painter, button.rect, Touched(face, button, Is(button, QStyle::State_Sunken)), line);
}

/// What is written in shows that it has the focus whichever hand brought it.
void DrawField(QPainter& painter, const QStyleOption& field, const QColor& face)
{
    if (!Is(field, QStyle::State_Enabled))
        DrawBox(painter, field.rect, Ground, Line);
    else if (Is(field, QStyle::State_HasFocus))
        DrawBox(painter, field.rect, face, Accent, FocusedBorder);
    else
        DrawBox(painter, field.rect, face, Frame);
}

int PictureWordsWidth(PictureLook look, const QString& words, const QFontMetrics& metrics)
{
    const bool shown = HasRoomForWords(look) && !words.isEmpty();
    return shown ? PictureGap + metrics.horizontalAdvance(words) : 0;
}

bool IsUnderMouse(const PictureButtonOption& button)
{
    return Is(button, QStyle::State_Enabled) &&
           (Is(button, QStyle::State_Sunken) || Is(button, QStyle::State_MouseOver));
}

/// At rest it shows what it lies on.
QColor FaceOf(const PictureButtonOption& button)
{
    if (button.look == PictureLook::Selected)
        return Page;
    if (button.look == PictureLook::Sign || !IsUnderMouse(button))
        return Qt::transparent;
    const bool pressed = Is(button, QStyle::State_Sunken);
    if (button.look == PictureLook::Closing)
        return pressed ? Pressed(Warning) : Warning;
    return Touched(Strip, button, pressed);
}

QColor InkOf(const PictureButtonOption& button)
{
    if (!Is(button, QStyle::State_Enabled))
        return Disabled;
    if (button.look == PictureLook::Closing && IsUnderMouse(button))
        return White;
    return button.look == PictureLook::Selected ? Accent : StripText;
}

bool IsRingDue(const QStyleOption& option)
{
    return byKeyboard && Is(option, QStyle::State_HasFocus);
}

bool IsModifier(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta;
}

/// Which hand an event shows, the keyboard's or the mouse's.
std::optional<bool> KeyboardOf(const QEvent& event)
{
    switch (event.type()) {
    case QEvent::KeyPress:
        return IsModifier(static_cast<const QKeyEvent&>(event).key()) ? std::nullopt : std::optional(true);
    case QEvent::MouseButtonPress:
        return false;
    case QEvent::FocusIn:
        switch (static_cast<const QFocusEvent&>(event).reason()) {
        case Qt::TabFocusReason:
        case Qt::BacktabFocusReason:
        case Qt::ShortcutFocusReason:
            return true;
        case Qt::MouseFocusReason:
            return false;
        default:
            return {};
        }
    default:
        return {};
    }
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
        switch (metric) {
        case PM_MessageBoxIconSize:
            return SignSize;
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
            return MarkSize;
        default:
            return QProxyStyle::pixelMetric(metric, option, widget);
        }
    }

    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* answer) const override
    {
        switch (hint) {
        case SH_LineEdit_PasswordCharacter:
            return u'*';
        case SH_DialogButtonBox_ButtonsHaveIcons:
            return 0;
        default:
            return QProxyStyle::styleHint(hint, option, widget, answer);
        }
    }

    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                           const QWidget* widget) const override
    {
        constexpr int LeastButtonWidth = 64;
        constexpr int AroundWords = 14;
        constexpr int AroundEntry = 3; // a pixel that the style keeps free, and those of a line edit
        const int height = ControlHeight(option->fontMetrics);
        const QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
        switch (type) {
        case CT_PushButton:
            return {std::max(LeastButtonWidth, contents.width() + 2 * AroundWords), height};
        case CT_SpinBox:
            if (!HasList(option))
                return {contents.width() + 2 * AroundEntry, height};
            [[fallthrough]];
        case CT_ComboBox:
            return {contents.width() + FieldPadding + ArrowWidth + 2 * AroundEntry, height};
        case CT_LineEdit:
            return HasFrame(option) ? QSize(size.width() + 2 * FieldPadding, height) : size;
        case CT_CheckBox:
        case CT_RadioButton:
            return size.grownBy(RingRoom);
        default:
            return size;
        }
    }

    QRect subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const override
    {
        if (element == SE_LineEditContents && HasFrame(option))
            return option->rect.adjusted(FieldPadding, FocusedBorder, -FieldPadding, -FocusedBorder);
        return QProxyStyle::subElementRect(element, option, widget);
    }

    QRect subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                         const QWidget* widget) const override
    {
        const QRect& place = option->rect;
        if (control == CC_ComboBox && part == SC_ComboBoxArrow)
            return place.adjusted(place.width() - ArrowWidth, 0, 0, 0);
        if (control == CC_ComboBox && part == SC_ComboBoxEditField)
            return place.adjusted(FieldPadding + 1, FocusedBorder, -ArrowWidth, -FocusedBorder);
        return QProxyStyle::subControlRect(control, option, part, widget);
    }

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override
    {
        if (element == PE_PanelLineEdit && HasFrame(option))
            DrawField(*painter, *option, option->palette.color(QPalette::Base));
        else if (element == SurfaceElement)
            DrawSurface(*painter, static_cast<const SurfaceOption&>(*option));
        else if (element == PhoneElement)
            DrawPhone(*painter, static_cast<const PhoneOption&>(*option));
        else if (element == PE_IndicatorCheckBox)
            DrawSign(*painter, *option, QStringLiteral("check-empty"), QStringLiteral("check-ticked"));
        else if (element == PE_IndicatorRadioButton)
            DrawSign(*painter, *option, QStringLiteral("radio-empty"), QStringLiteral("radio-chosen"));
        else
            QProxyStyle::drawPrimitive(element, option, painter, widget);
    }

    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override
    {
        const auto* button = qstyleoption_cast<const QStyleOptionButton*>(option);
        if (element == PictureButtonElement)
            DrawPictureButton(static_cast<const PictureButtonOption&>(*option), *painter);
        else if (const auto* bar = qstyleoption_cast<const QStyleOptionProgressBar*>(option);
                 bar && element == CE_ProgressBar)
            DrawProgress(*painter, *bar);
        else if (element == CE_ShapedFrame && IsBox(option))
            DrawEdge(*painter, option->rect, option->palette.color(QPalette::WindowText));
        else if (button && element == CE_PushButton)
            DrawButton(*button, *painter, widget);
        else if (button && element == CE_PushButtonBevel)
            DrawButtonFace(*painter, *button);
        else if (button && (element == CE_CheckBox || element == CE_RadioButton))
            DrawMark(element, *button, *painter, widget);
        else
            QProxyStyle::drawControl(element, option, painter, widget);
    }

    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                            const QWidget* widget) const override
    {
        const auto* slider = qstyleoption_cast<const QStyleOptionSlider*>(option);
        const auto* list = qstyleoption_cast<const QStyleOptionComboBox*>(option);
        if (slider && control == CC_ScrollBar)
            DrawScrollBar(*slider, *painter, widget);
        else if (list && control == CC_ComboBox)
            DrawList(*list, *painter, widget);
        else if (const auto* tool = qstyleoption_cast<const QStyleOptionToolButton*>(option))
            DrawToolButton(*tool, *painter, widget);
        else
            QProxyStyle::drawComplexControl(control, option, painter, widget);
    }

    /// Of all events of the program.
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool keyboard = KeyboardOf(*event).value_or(byKeyboard);
        if (std::exchange(byKeyboard, keyboard) != keyboard)
            UpdateFocus();
        return QProxyStyle::eventFilter(watched, event);
    }

private:
    /// Of a box for numbers or a date, the calendar that it opens.
    static bool HasList(const QStyleOption* option)
    {
        const auto* box = qstyleoption_cast<const QStyleOptionSpinBox*>(option);
        return box && box->buttonSymbols != QAbstractSpinBox::NoButtons;
    }

    static bool IsBox(const QStyleOption* option)
    {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        return frame && frame->frameShape == QFrame::Box;
    }
    static bool HasFrame(const QStyleOption* option)
    {
        const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
        return frame && frame->lineWidth > 0;
    }

    static void UpdateFocus()
    {
        QWidget* focus = QApplication::focusWidget();
        if (!focus)
            return;
        focus->update();
        if (!focus->isWindow())
            focus->parentWidget()->update(); // a card stands on the panel that draws its ring
    }

    void DrawButton(const QStyleOptionButton& button, QPainter& painter, const QWidget* widget) const
    {
        proxy()->drawControl(CE_PushButtonBevel, &button, &painter, widget);
        QStyleOptionButton words(button);
        words.rect = proxy()->subElementRect(SE_PushButtonContents, &button, widget);
        if (IsPrimary(button))
            words.palette.setColor(QPalette::ButtonText, White);
        proxy()->drawControl(CE_PushButtonLabel, &words, &painter, widget);
        if (IsRingDue(button))
            DrawFocusRing(painter, button.rect, ControlRadius);
    }

    static void DrawPictureButton(const PictureButtonOption& button, QPainter& painter)
    {
        const QRect& place = button.rect;
        painter.setRenderHint(QPainter::Antialiasing);
        if (button.look == PictureLook::Framed) {
            DrawButtonFace(painter, button);
        } else {
            painter.setPen(Qt::NoPen);
            painter.setBrush(FaceOf(button));
            painter.drawRoundedRect(place, ControlRadius, ControlRadius);
        }
        QFont font = painter.font();
        font.setBold(button.look == PictureLook::Selected);
        const QColor ink = InkOf(button);
        const bool isLarge = HasRoomForWords(button.look) || button.look == PictureLook::Sign;
        const int size = isLarge ? PictureSize : SmallPictureSize;
        const int words = PictureWordsWidth(button.look, button.text, QFontMetrics(font, painter.device()));
        const int left = (place.width() - size - words) / 2;
        DrawPicture(painter, QRectF(left, (place.height() - size) / 2.0, size, size), button.picture, ink);
        painter.setFont(font);
        painter.setPen(ink);
        if (words > 0)
            painter.drawText(QRect(left + size + PictureGap, 0, words, place.height()),
                             Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, button.text);
        if (button.look == PictureLook::Selected)
            painter.fillRect(QRect(10, place.height() - 3, place.width() - 20, 2), Accent);
        if (IsRingDue(button))
            DrawFocusRing(painter, place, ControlRadius);
    }

    void DrawMark(ControlElement element, const QStyleOptionButton& mark, QPainter& painter,
                  const QWidget* widget) const
    {
        QStyleOptionButton inside(mark);
        inside.rect = mark.rect.marginsRemoved(RingRoom);
        inside.state &= ~State_HasFocus; // the ring goes around the sign and its words
        QProxyStyle::drawControl(element, &inside, &painter, widget);
        if (IsRingDue(mark))
            DrawFocusRing(painter, mark.rect, ControlRadius);
    }

    /// A list that can be written in is a field.
    void DrawList(const QStyleOptionComboBox& list, QPainter& painter, const QWidget* widget) const
    {
        QStyleOptionComboBox field(list);
        if (!list.editable)
            field.state.setFlag(State_HasFocus, IsRingDue(list));
        const QColor face = list.palette.color(list.editable ? QPalette::Base : QPalette::Button);
        DrawField(painter, field, Touched(face, list, Is(list, State_On)));
        const QRect arrow = proxy()->subControlRect(CC_ComboBox, &list, SC_ComboBoxArrow, widget);
        DrawArrow(painter, arrow, true, false, Is(list, State_Enabled) ? Handle : Disabled);
    }

    /// The month of a calendar, whose list needs no sign of its own in the corner of its word.
    void DrawToolButton(const QStyleOptionToolButton& button, QPainter& painter, const QWidget* widget) const
    {
        QStyleOptionToolButton plain(button);
        plain.features &= ~QStyleOptionToolButton::HasMenu;
        QProxyStyle::drawComplexControl(CC_ToolButton, &plain, &painter, widget);
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

int ControlHeight(const QFontMetrics& metrics)
{
    return metrics.height() + 14;
}

bool HasRoomForWords(PictureLook look)
{
    return look == PictureLook::Idle || look == PictureLook::Selected || look == PictureLook::Framed;
}

QSize PictureButtonSize(PictureLook look, const QString& words, const QFontMetrics& metrics)
{
    if (look == PictureLook::Window || look == PictureLook::Closing)
        return {34, 28};
    if (look == PictureLook::Sign)
        return {26, 28};
    const int height =
        look == PictureLook::Framed ? ControlHeight(metrics) : std::max(PictureSize, metrics.height()) + 14;
    return {PictureSize + PictureWordsWidth(look, words, metrics) + 24, height};
}

QColor PhoneScreen(bool on, bool touched)
{
    const QColor screen = on ? Phone : Ground;
    return touched ? Hovered(screen) : screen;
}

void ApplyTheme(QApplication& application)
{
    ApplyStyle(application);
    UseFont();
}

void ApplyStyle(QApplication& application)
{
    auto* style = new Style;
    application.setStyle(style);
    application.installEventFilter(style);

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
    palette.setColor(QPalette::Active, QPalette::Button, White);
    palette.setColor(QPalette::Inactive, QPalette::Button, White);
    QApplication::setPalette(palette, "QComboBox"); // a field to the eye
}

void UseFont()
{
    static bool isUsed = false; // where the desk's own font is the same, some controls would keep another
    if (!std::exchange(isUsed, true) || QApplication::font() != Font())
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

bool IsByKeyboard()
{
    return byKeyboard;
}

} // namespace tsms::theme
