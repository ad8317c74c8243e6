#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace tsms {

/// The list of recipients: names and numbers in rows that are counted from 1. A row that was removed stays in
/// its place and keeps what it held. Whatever names a row beyond the list is ignored, and reads as empty.
class RecipientList
{
public:
    virtual ~RecipientList() = default;

    virtual int Rows() const = 0; ///< removed ones count
    virtual QString Name(int row) const = 0;
    virtual QString Phone(int row) const = 0; ///< both as they stand in the list, blanks and all
    virtual bool IsRemoved(int row) const = 0;

    /// Back to 20 numbered, empty rows, whatever the list held before.
    virtual void Reset() = 0;

    /// Rows beyond a smaller size are lost; new ones are empty and without a running number.
    virtual void Resize(int rows) = 0;

    virtual void Write(int row, QString name, QString phone) = 0;
    virtual void WriteRunningNumber(int row, QString number) = 0;
    virtual void WriteThirdValue(int row, QString value) = 0; ///< out of sight, and read by nothing

    /// Makes changes of many rows. What is on view follows when they are done, also where they raise.
    virtual void InOneGo(const std::function<void()>& changes) = 0;

    /// Rows with any number at all; removed rows count here.
    std::int32_t Filled() const;

    /// Rows with any number that are not removed: the recipients, whether their numbers are good or not.
    std::int32_t Count() const;
};

} // namespace tsms
