#pragma once

#include <QIcon>
#include <QList>
#include <QPixmap>
#include <QRectF>
#include <QString>

class QPainter;

namespace tsms {

/// The pictures of mark cells, by their index.
enum CheckPicture : int { CheckNone = -1, CheckEmpty = 0, CheckTicked = 1, CheckLocked = 2 };

/// The element pictures of imgCheck2: empty, ticked, locked.
QList<QIcon> CheckPictures();
/// The element pictures of ImgCheck: empty, ticked.
QList<QIcon> PlainCheckPictures();

/// What a screen reader says of the picture of a mark cell; nothing for none.
QString CheckWords(int picture);

/// A picture of the program (":/toolkit/<name>.svg") as an icon that is crisp at every scaling.
QIcon PictureIcon(const QString& name);

/// Draws a picture of the program into `place`; with a valid colour, in that one colour.
void DrawPicture(QPainter& painter, const QRectF& place, const QString& name, const QColor& color = QColor());

} // namespace tsms
