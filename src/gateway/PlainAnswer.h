#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

namespace tsms {

/// The text result in the envelope of an ordinary answer, pulled straight from its bytes: declared as UTF-8,
/// one element below the body, in it one element, in that nothing but text. Nothing for anything else, as a
/// fault, a header, a reference, an entity, a comment or what is no XML at all: that needs the whole tree.
std::optional<QString> ReadPlainAnswer(const QByteArray& envelope);

} // namespace tsms
