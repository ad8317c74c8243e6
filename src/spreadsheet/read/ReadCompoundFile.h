#pragma once

#include <QByteArray>
#include <QStringView>

#include <initializer_list>

class QIODevice;

namespace tsms {

/// The most bytes that a stream may have to be read.
inline constexpr qint64 MostStreamBytes = 64 << 20;

/// The content of a stream of a compound file ([MS-CFB], of 512 or 4096 bytes a sector): of the first of
/// `names` that its root has. Case does not count in names.
///
/// The file comes from anywhere, so nothing that it says is believed: all of its streams have to be whole,
/// with sectors that lie in the file and belong to one chain alone. Raises 321 where they are not, where the
/// file is no compound file, has no such stream or one of more than MostStreamBytes, and where it cannot be
/// read.
QByteArray ReadCompoundStream(QIODevice& file, std::initializer_list<QStringView> names);

} // namespace tsms
