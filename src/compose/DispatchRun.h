#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace tsms {

class DBConnect;
class ModSMS;
class RunDisplay;
struct Draft;
struct Session;

/// One send run: a walk over the recipient list, one gateway call for each good row, one debit at the end.
class DispatchRun
{
public:
    DispatchRun(Session& session, DBConnect& db, ModSMS& sms, const Draft& draft, RunDisplay& display);

    /// Runs to the last row. Failures have shown their boxes when it returns; the counts tell the rest.
    void RunSend();

    std::int32_t CountOK = 0;   ///< messages accepted in this run
    std::int32_t CountFail = 0; ///< messages refused in this run

private:
    void SendAllRows();
    bool SendRow(int row); ///< false when there was nothing to send
    void ShowCounts();
    void ShowDone();
    void ShowNow();
    void DebitBalance();

    Session& session_;
    DBConnect& db_;
    ModSMS& sms_;
    const Draft& draft_;
    RunDisplay& display_;
    std::int32_t done_ = 0;
    std::function<void()> unshown_; ///< shows the last row, unless that is done
};

/// The progress line of a send: "총 발송건수 : <total>건 / 현 발송 건수 : <done>건".
QString DispatchStatus(std::int32_t total, const QString& done);

} // namespace tsms
