#pragma once

#include "store/engine/Recordset.h"
#include "store/odbc/OdbcColumn.h"

#include <functional>
#include <memory>
#include <vector>

namespace tsms {

class OdbcHandle;

/// Fetches all rows of the result that a statement stands on, many at a time. No value is cut: null when a
/// value of a column without a width is longer than nearly all are. Then the statement has to be run again,
/// for TakeLongOdbcRows. Calls `whileReading`, where it is one, every so often. Raises OdbcError.
std::unique_ptr<Recordset> TakeOdbcRows(const OdbcHandle& statement, const std::vector<OdbcColumn>& columns,
                                        const std::function<void()>& whileReading);

/// The same row by row, and long values piece by piece.
std::unique_ptr<Recordset> TakeLongOdbcRows(const OdbcHandle& statement,
                                            const std::vector<OdbcColumn>& columns,
                                            const std::function<void()>& whileReading);

} // namespace tsms
