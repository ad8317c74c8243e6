#include "support/gateway/TestGateway.h"

#include <cstdio>
#include <cstdlib>

namespace tsms::test {

namespace {

SimulatedGateway::Settings SettingsFor(ServiceStyle style)
{
    SimulatedGateway::Settings settings;
    settings.Style = style;
    return settings;
}

void StartOrDie(SimulatedGateway& gateway)
{
    if (gateway.Start())
        return;
    std::fputs("the simulated gateway found no port\n", stderr);
    std::abort();
}

} // namespace

TestGateway::TestGateway(ServiceStyle style) : gateway_(systemClock_, SettingsFor(style))
{
    StartOrDie(gateway_);
}

TestGateway::TestGateway(const Clock& clock, ServiceStyle style) : gateway_(clock, SettingsFor(style))
{
    StartOrDie(gateway_);
}

void TestGateway::BehaveAgain()
{
    gateway_.ClearFaults();
    if (!gateway_.Return()) {
        std::fputs("the simulated gateway has lost its port\n", stderr);
        std::abort();
    }
}

QString TestGateway::WsdlUrl() const
{
    return Url() + DescriptionPath();
}

} // namespace tsms::test
