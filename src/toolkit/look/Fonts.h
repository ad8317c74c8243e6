#pragma once

#include <QFont>
#include <QStringList>

namespace tsms::theme {

/// Has the system's list of fonts read on a thread of its own, beside the start of the toolkit. Font() waits
/// for it. Call it before that start, and behind what sets the environment and the locale: until Font()
/// nothing may change them. Nothing where the toolkit does not go by fontconfig.
void ReadFontsAhead();

/// Those of the program's font families that are installed, in the order in which they are tried; all of them
/// where none is. For one that is not, the toolkit would look for the next best font, for each style anew.
QStringList FontFamilies(const QStringList& installed);

/// The program's font, size 9.
QFont Font();

} // namespace tsms::theme
