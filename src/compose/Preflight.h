#pragma once

namespace tsms {

struct Draft;
struct Session;

/// Why a send does not begin.
enum class Refusal {
    None,
    NoAccount,
    NoMessage,
    NoRecipients,
    NoSenderNumber,
    ShortSenderNumber,
    Shortage, ///< more recipients than the balance has messages
};

/// What the checks between a click on "send" and the dialog that sends come to.
struct Verdict
{
    bool isBalanceZero = false; ///< this alone stops nothing: the charge box comes, and then the refusal
    Refusal refusal = Refusal::None;
};

/// Runs the checks in their fixed order, to the first that refuses. Without an account the balance is not
/// looked at.
Verdict Preflight(const Session& session, const Draft& draft);

bool CanPayFor(const Session& session, const Draft& draft);

} // namespace tsms
