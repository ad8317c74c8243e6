#pragma once

#include <QColor>

class QApplication;
class QFontMetrics;
class QPainter;
class QRectF;

namespace tsms::theme {

inline constexpr QColor Page{255, 255, 255};      ///< page background
inline constexpr QColor Ground{240, 240, 240};    ///< what pages stand on
inline constexpr QColor Strip{182, 204, 211};     ///< title strips and running numbers
inline constexpr QColor Phone{144, 215, 250};     ///< the message "phone"
inline constexpr QColor PhoneBody{112, 130, 138}; ///< what holds its screen
inline constexpr QColor Line{223, 223, 223};      ///< lines between things
inline constexpr QColor Focus{255, 224, 192};     ///< back of a text box with the focus
inline constexpr QColor White{255, 255, 255};
inline constexpr QColor Text{34, 40, 44};          ///< near black
inline constexpr QColor Faint{104, 116, 122};      ///< notes
inline constexpr QColor Disabled{160, 168, 172};   ///< words of what cannot be used
inline constexpr QColor StripText{30, 52, 62};     ///< words on a title strip
inline constexpr QColor Accent{28, 110, 140};      ///< the primary button, marks, the sign of the focus
inline constexpr QColor Frame{92, 112, 120};       ///< the border of a control, the fine frame of a window
inline constexpr QColor ButtonFace{244, 247, 248}; ///< face of an ordinary button
inline constexpr QColor Handle{118, 136, 144};     ///< the handle and the arrows of a scroll bar
inline constexpr QColor Warning{200, 64, 56};      ///< a closing button under the mouse, Sundays
inline constexpr QColor Saturday{38, 92, 190};     ///< of a calendar

inline constexpr double ControlRadius = 4; ///< of the corners of buttons and fields
inline constexpr int FieldPadding = 8;     ///< between the edge of a field and what is written in it

/// How high buttons, fields and lists are that stand in one row.
int ControlHeight(const QFontMetrics& metrics);

/// Style, palette and font of the whole program. The style draws all buttons, fields, lists, marks and scroll
/// bars, also those of message boxes and pickers.
void ApplyTheme(QApplication& application);

/// The two steps of ApplyTheme. Between them there is time for what needs no window, while the fonts are read
/// ahead: UseFont waits for them.
void ApplyStyle(QApplication& application);
void UseFont();

/// A darker or lighter neighbour of a face colour, for a face under the mouse or pressed.
QColor Hovered(const QColor& face);
QColor Pressed(const QColor& face);

/// Whether a person works by the keyboard, which alone needs a ring that says where it works: the last press
/// was one of a key, or a key brought the focus. Behind a press of the mouse the eye is there already.
bool IsByKeyboard();

/// The visible sign of the keyboard focus: a ring inside `place`.
void DrawFocusRing(QPainter& painter, const QRectF& place, double radius);

} // namespace tsms::theme
