#include "support/database/TestEngine.h"

#include <QByteArray>

namespace tsms::test {

TestEngine ChosenTestEngine()
{
    const QByteArray name = qgetenv("TSMS_TEST_ENGINE");
    if (name == "live")
        return TestEngine::Live;
    return name == "server" ? TestEngine::Server : TestEngine::Embedded;
}

} // namespace tsms::test
