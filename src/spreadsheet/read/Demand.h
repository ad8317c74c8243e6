#pragma once

#include "runtime/RuntimeError.h"

namespace tsms {

/// What has to hold in a file that can be read. Raises 321 where it does not.
inline void Demand(bool condition)
{
    if (!condition)
        throw RuntimeError(InvalidFileFormat);
}

} // namespace tsms
