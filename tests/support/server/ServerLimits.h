#pragma once

#include <QString>

namespace tsms::test {

/// Raises the server's error for a statement that the embedded engine alone takes: one with a word or a sign
/// of that engine, with a value for a generated key, or with more than 1,000 rows of values.
void RefuseWhatTheEngineAloneTakes(const QString& sql);

} // namespace tsms::test
