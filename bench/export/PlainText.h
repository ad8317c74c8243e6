#pragma once

#include "bench/export/Cells.h"

namespace tsms::bench {

/// Writes the cells as comma separated values in UTF-8, texts in quotes where they need them.
void WritePlainText(const QString& path, const Cells& cells);

} // namespace tsms::bench
