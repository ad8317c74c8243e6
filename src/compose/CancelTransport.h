#pragma once

#include "compose/RunDialog.h"

namespace tsms {

class SentRows;

/// The dialog that withdraws the ticked messages. It bears the name of the one that sends.
class CancelTransport : public RunDialog
{
    Q_OBJECT

public:
    CancelTransport(Services& services, const SentRows& sent, std::int32_t total, QWidget* owner = nullptr);

private:
    void Run() override;
    void TellOutcome(std::int32_t countOK);

    const SentRows& sent_;
    std::int32_t total_;
};

} // namespace tsms
