#pragma once

#include <QByteArray>

namespace tsms::bench {

/// Opens the workbook by FreeXL, goes through its cells and closes it. How many texts it holds.
int GoThroughWorkbook(const QByteArray& path);

/// Reads a recipient file whole and lays the names and the numbers of those with a mobile number one behind
/// the other into memory, in UTF-16. How many there are.
int ReadRecords(const QByteArray& path);

} // namespace tsms::bench
