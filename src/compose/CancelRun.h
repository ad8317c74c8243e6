#pragma once

#include <QString>

#include <cstdint>

namespace tsms {

class DBConnect;
class ModSMS;
class RunDisplay;
class SentRows;

/// One cancellation run: a walk over the ticked messages, one gateway call for each unless its number is "0",
/// one credit at the end.
class CancelRun
{
public:
    CancelRun(DBConnect& db, ModSMS& sms, const SentRows& rows, RunDisplay& display);

    /// Runs to the last row; `total` of the rows are ticked. Failures of the database and of the connection
    /// to the gateway have shown their boxes when it returns; refusals are told by the counts alone.
    void RunCancel(std::int32_t total);

    std::int32_t CountOK = 0;   ///< messages withdrawn in this run
    std::int32_t CountFail = 0; ///< messages that could not be withdrawn

private:
    void CancelAllRows();
    void CancelRow(int row);
    void Withdraw(int row, const QString& number);
    void CreditBalance();

    DBConnect& db_;
    ModSMS& sms_;
    const SentRows& rows_;
    RunDisplay& display_;
    std::int32_t total_ = 0;
    std::int32_t done_ = 0;
};

/// The progress line of a cancellation: "총 취소건수 : <total>건 / 현 취소 건수 : <done>건".
QString CancelStatus(std::int32_t total, const QString& done);

} // namespace tsms
