#pragma once

#include <QString>

#include <cstdint>
#include <functional>

namespace tsms {

/// The values that live from the launch to the end of the process. Data only: what fills them is
/// shell/Main (fields of the launch line), store/LoadSMSSetup (the account) and the operations (Busy).
struct Session
{
    // Fields 1 to 7 of the launch line.
    QString DBCatalog;
    QString DBServer;
    QString DBPort;
    QString DBUser;
    QString DBPassword;
    std::int32_t UserData1 = 0;
    QString UserData2;

    /// The connection text as it was last assembled.
    QString ConnectionString;

    /// True while a run or a query works. Nearly every event handler begins by doing nothing when it is set.
    bool Busy = false;

    // The account row. They keep what they held when the row cannot be read.
    std::int32_t SMSRemainCnt = 0;
    QString SMSTelNo;
    QString SMSOrgNm;
    QString SMSID;
    QString SMSPWD;
    QString SMSDNS;
    QString SMSWeb1;
    QString SMSWeb2;

    /// Set by the main window while it is loaded: shows SMSRemainCnt as the session holds it.
    std::function<void()> BalanceListener;

    bool IsBusy() const { return Busy; }

    /// Has the main window, if it is loaded, show the session's balance.
    void AnnounceBalance() const;
};

/// The words of the balance label: the count in groups of three, or nothing for 0, and "건 남았습니다.".
QString BalanceCaption(std::int32_t remain);

} // namespace tsms
