#pragma once

#include "toolkit/look/Pictures.h"

#include <QDate>
#include <QString>

#include <cstdint>

namespace tsms {

class fpSpread;

/// The mark with which a sent message is listed: empty when it may still be withdrawn, locked when not. A
/// refused one (status "2") is locked whatever its day. Raises 13 when another has no day.
CheckPicture FirstMark(const QString& status, const QString& sendTime, QDate today);

/// Sets the mark of every row of the filled list. Raises 6 beyond 32,767 rows, and 13 as FirstMark does; the
/// rows before have their marks then.
void SetFirstMarks(fpSpread& list, QDate today);

/// CheckNone where a row has no mark.
CheckPicture MarkOf(const fpSpread& list, int row);

/// Ticked becomes empty and empty ticked; a locked mark stays.
void InvertMark(fpSpread& list, int row);
void InvertMarks(fpSpread& list);

std::int32_t CountTicked(const fpSpread& list);

} // namespace tsms
