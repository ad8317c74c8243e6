#pragma once

#include <QString>

namespace tsms {

/// The list of sent messages as the cancellation run reads it. Rows are counted from 1, texts are those of
/// the cells.
class SentRows
{
public:
    virtual ~SentRows() = default;
    virtual int MaxRows() const = 0;
    virtual bool IsRowTicked(int row) const = 0;
    virtual QString KeyText(int row) const = 0;    ///< key of the log row
    virtual QString NumberText(int row) const = 0; ///< the gateway's message number
    virtual QString TimeText(int row) const = 0;   ///< send time; begins with the year of its log table
};

} // namespace tsms
