#pragma once

#include <QString>

namespace tsms {

class BiffStream;
class SharedStrings;

/// What comes before the sheet: [MS-XLS] 2.1.7.20.3, with everything that a workbook must have. It ends where
/// the sheet named `sheetName` has to begin.
void WriteGlobals(BiffStream& stream, const QString& sheetName, const SharedStrings& strings);

} // namespace tsms
