#pragma once

#include <QString>

namespace tsms {

class fpSpread;
struct Services;

/// Takes what a grid shows away as a workbook: asks for a folder, writes "<title><YYYYMMDD>.xls" there, with
/// the column titles above the rows, and opens it in the program that the user has for it. Where a file of
/// that name stands, a question comes first. The grid stays as it is.
///
/// Meant: a failure ends it without a box. It leaves a former file as it was. Answers in words where
/// the file went or that it did not; nothing when the user ended it.
QString MakeExcel(Services& services, const fpSpread& grid, const QString& title);

} // namespace tsms
