#include "compose/CancelRun.h"

#include "compose/RunDisplay.h"
#include "compose/RunFrame.h"
#include "compose/SentRows.h"
#include "gateway/ModSMS.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "store/DBConnect.h"
#include "store/engine/Statement.h"

namespace tsms {

CancelRun::CancelRun(DBConnect& db, ModSMS& sms, const SentRows& rows, RunDisplay& display)
    : db_(db), sms_(sms), rows_(rows), display_(display)
{
}

void CancelRun::RunCancel(std::int32_t total)
{
    total_ = total;
    CountOK = 0;
    CountFail = 0;
    done_ = 0;
    InRunFrame(db_, sms_, display_, total, [&] { CancelAllRows(); });
}

void CancelRun::CancelAllRows()
{
    const int lastRow = rows_.MaxRows();
    for (int row = 1; row <= lastRow; ++row) {
        if (rows_.IsRowTicked(row))
            CancelRow(row);
        display_.SetBarValue(row);
    }
    CreditBalance();
}

void CancelRun::CancelRow(int row)
{
    const QString number = Trim(rows_.NumberText(row));
    if (number != QStringView(u"0")) // the gateway never took it: nothing to withdraw
        Withdraw(row, number);
    ++done_;
    display_.ShowStatus(CancelStatus(total_, FormatCount(done_)));
}

void CancelRun::Withdraw(int row, const QString& number)
{
    const QString key = Trim(rows_.KeyText(row));
    const QString year = Trim(rows_.TimeText(row)).left(4);
    if (!sms_.WithdrawSMS(key, number, year, QString(), QString(), QString()))
        ++CountFail;
    else if (++CountOK == 1)
        db_.ExpectChanges(total_ - done_ - 1);
    display_.ShowCounts(FormatCount(CountOK), FormatCount(CountFail));
}

void CancelRun::CreditBalance()
{
    if (CountOK > 0)
        db_.ExecuteSQL(
            Statement(u"UPDATE SMSSetup SET SMSRemainCnt= SMSRemainCnt + ").Own(QString::number(CountOK)));
}

QString CancelStatus(std::int32_t total, const QString& done)
{
    return QStringLiteral("총 취소건수 : ") + QString::number(total) +
           QStringLiteral("건 / 현 취소 건수 : ") + done + QStringLiteral("건");
}

} // namespace tsms
