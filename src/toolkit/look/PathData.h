#pragma once

#include <QPainterPath>
#include <QStringView>

#include <optional>

namespace tsms {

/// The outline that path data of SVG 1.1 (8.3, "Path data") describes. Of its commands these: M, L, H, V, C,
/// S, A with circles, and Z, in capitals and small letters. Nothing for data that has anything else.
std::optional<QPainterPath> PathOfData(QStringView data);

} // namespace tsms
