#pragma once

#include <cstdint>

namespace tsms {

class fpSpread;
class MemoBox;
class RecipientList;
class TextBox;
struct Services;

/// The checks between a click on "send" and the dialog that sends, in their fixed order, each with its box.
class SendPreflight
{
public:
    SendPreflight(Services& services, MemoBox& message, fpSpread& grid, const RecipientList& recipients,
                  TextBox& senderNumber);

    /// Runs the checks and, when all pass, the dialog.
    void Run();

private:
    bool AccountIsOpen();
    void OfferChargeWhenEmpty();
    bool MessageIsThere();
    bool RecipientsAreThere();
    bool SenderNumberIsGood();
    bool BalanceCovers(std::int32_t recipients);
    void HandOver(std::int32_t recipients);
    void Refuse(const char16_t* words);

    Services& services_;
    MemoBox& message_;
    fpSpread& grid_;
    const RecipientList& recipients_;
    TextBox& senderNumber_;
};

} // namespace tsms
