#pragma once

#include "store/OdbcColumn.h"
#include "store/Recordset.h"

#include <memory>
#include <vector>

namespace tsms {

class OdbcHandle;

/// Fetches all rows of the result that a statement stands on: many at a time where every value has a known
/// width, else row by row and long values piece by piece. No value is cut. Raises OdbcError.
std::unique_ptr<Recordset> TakeOdbcRows(const OdbcHandle& statement, const std::vector<OdbcColumn>& columns);

} // namespace tsms
