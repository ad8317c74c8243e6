#include "support/database/TestEngine.h"

#include <QByteArray>

namespace tsms::test {

TestEngine ChosenTestEngine()
{
    return qgetenv("TSMS_TEST_ENGINE") == "server" ? TestEngine::Server : TestEngine::Embedded;
}

} // namespace tsms::test
