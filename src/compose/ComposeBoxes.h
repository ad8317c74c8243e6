#pragma once

#include <QString>

namespace tsms {

class Desktop;
enum class Refusal;
struct Session;

/// The three boxes that send the operator to a web page. Each shows its box and then opens the page.
void ShowSignUpBox(Desktop& desktop, const Session& session);
void ShowChargeBox(Desktop& desktop, const Session& session);
void ShowShortageBox(Desktop& desktop, const Session& session);

/// Tells why a send does not begin; no word where nothing refuses it.
void ShowRefusal(Desktop& desktop, const Session& session, Refusal refusal);

/// Tells that no message could be withdrawn.
void ShowNothingCancelledBox(Desktop& desktop);

/// The account checks at the load of the main window: an account that is not there, or has no messages left.
void CheckAccountAtLoad(Desktop& desktop, const Session& session);

} // namespace tsms
