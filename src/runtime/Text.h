#pragma once

#include <QString>
#include <QStringList>
#include <QStringView>

namespace tsms {

/// The line break of all texts of the program, in fields and in boxes.
inline constexpr QLatin1StringView CrLf("\r\n");

/// Without leading and trailing blanks. Only the character 0x20 is a blank: tabs and line breaks stay.
QString Trim(QStringView text);
QString Trim(const QString& text);     ///< shares the text where there is nothing to take away
QString Trim(QString&& text);          ///< gives it on where there is nothing to take away
QStringView Trimmed(QStringView text); ///< the same as a part of the text

/// True when nothing is left of `text` after Trim.
bool IsBlank(QStringView text);

/// Without any character 0x20, wherever it stands.
QString WithoutBlanks(QStringView text);

} // namespace tsms
