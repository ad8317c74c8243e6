#pragma once

#include <QString>

namespace tsms {

/// Major version, ".", minor version, ".0.", revision.
QString ProgramVersion();

} // namespace tsms
