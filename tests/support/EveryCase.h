#pragma once

#include <QtGlobal>

namespace tsms::test {

/// True with the environment variable TSMS_TEST_ALL: tests of products (every attack on every field, every
/// fault at every statement) run whole then. Without it they run a part in which each factor is met.
inline bool IsEveryCaseAsked()
{
    return qEnvironmentVariableIsSet("TSMS_TEST_ALL");
}

} // namespace tsms::test
