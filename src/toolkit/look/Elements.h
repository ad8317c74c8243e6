#pragma once

#include <QColor>
#include <QString>
#include <QStyle>
#include <QStyleOption>

namespace tsms {

enum class PanelBorder { None, Line, Edge };

}

// What the style draws besides the toolkit's own controls. A control says by an option what it is and how it
// stands; how that looks is known to the style alone.
namespace tsms::theme {

/// A button that shows a picture, with words beside it where it has room for some.
enum class PictureLook {
    Idle,     ///< toolbar: rests on the bar
    Selected, ///< toolbar: the page on view
    Framed,   ///< on a page, with the frame of a push button
    Window,   ///< small, on a title strip
    Closing,  ///< as Window; warns when the mouse is over it
    Sign,     ///< a picture at the head of a strip, which shows no sign of the mouse
};

inline constexpr auto PictureButtonElement = QStyle::ControlElement(QStyle::CE_CustomBase + 1);

/// Its picture is the name of a resource, and its text the words.
struct PictureButtonOption : QStyleOptionButton
{
    PictureLook look = PictureLook::Idle;
    QString picture;
};

/// The room that such a button asks for.
QSize PictureButtonSize(PictureLook look, const QString& words, const QFontMetrics& metrics);

/// On title strips there is room for a small picture alone.
bool HasRoomForWords(PictureLook look);

inline constexpr auto SurfaceElement = QStyle::PrimitiveElement(QStyle::PE_CustomBase + 1);

/// A surface that other controls stand on.
struct SurfaceOption : QStyleOption
{
    QColor face = Qt::transparent;
    PanelBorder border = PanelBorder::None;
    bool ring = false; ///< that of the focus, whichever hand brought it
};

inline constexpr auto PhoneElement = QStyle::PrimitiveElement(QStyle::PE_CustomBase + 2);

/// A small phone about its screen.
struct PhoneOption : QStyleOption
{
    QRect screen;
    bool on = true; ///< a phone that is off is pale
    bool touched = false;
    bool ring = false; ///< that of the focus, which only the keyboard shows
};

/// The colour of a phone's screen.
QColor PhoneScreen(bool on, bool touched);

} // namespace tsms::theme
