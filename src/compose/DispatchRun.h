#pragma once

#include "compose/Recipients.h"

#include <QString>

#include <cstdint>

namespace tsms {

class DBConnect;
class ModSMS;
struct Session;

/// What a run shows while it goes on. Each call is seen at once: the run does not return to the event loop.
class RunDisplay
{
public:
    virtual ~RunDisplay() = default;
    virtual void SetRunBusy(bool busy) = 0;
    virtual QString TotalText() const = 0; ///< the number of recipients, in plain digits
    virtual void SetBarMaximum(int maximum) = 0;
    virtual void SetBarValue(int value) = 0;
    virtual void ShowCounts(const QString& succeeded, const QString& failed) = 0;
    virtual void ShowStatus(const QString& text) = 0;
};

/// What goes out, to all recipients alike.
struct DispatchOrder
{
    QString message;      ///< the editor's text, placeholders still in it
    QString senderNumber; ///< as it stands in its field
    QString reservation;  ///< empty for delivery at once, else the five parts joined by ":"
};

/// One send run: a walk over the recipient list, one gateway call for each good row, one debit at the end.
class DispatchRun
{
public:
    DispatchRun(Session& session, DBConnect& db, ModSMS& sms, const RecipientRows& rows, RunDisplay& display);

    /// Runs to the last row. Failures have shown their boxes when it returns; the counts tell the rest.
    void RunSend(const DispatchOrder& order);

    std::int32_t CountOK = 0;   ///< messages accepted in this run
    std::int32_t CountFail = 0; ///< messages refused in this run

private:
    void SendAllRows(const DispatchOrder& order);
    void SendRow(int row, const DispatchOrder& order);
    void ShowDone();
    void DebitBalance();

    Session& session_;
    DBConnect& db_;
    ModSMS& sms_;
    const RecipientRows& rows_;
    RunDisplay& display_;
    std::int32_t done_ = 0;
};

/// The progress line of a send: "총 발송건수 : <total>건 / 현 발송 건수 : <done>건".
QString DispatchStatus(const QString& total, const QString& done);

} // namespace tsms
