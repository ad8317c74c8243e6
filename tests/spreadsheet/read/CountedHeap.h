#pragma once

#include <QtGlobal>

namespace tsms::test {

/// Counts what this process takes from the heap, in place of glibc's routines; the program that has it in it
/// must not be under a sanitizer, which wants them for itself.
///
/// The most bytes that were held at once since the last call of ForgetPeak, beyond those held then.
qint64 PeakBytes();
void ForgetPeak();

} // namespace tsms::test
