#include "compose/RunFrame.h"

#include "compose/RunDisplay.h"
#include "gateway/ModSMS.h"
#include "runtime/RuntimeError.h"
#include "store/DBConnect.h"

namespace tsms {

void InRunFrame(DBConnect& db, ModSMS& sms, RunDisplay& display, std::int32_t total,
                const std::function<void()>& walk)
{
    WithHandler(
        [&] {
            display.SetRunBusy(true);
            display.SetBarMaximum(total);
            display.SetBarValue(0);
            db.ConnectWithRetry();
            sms.InitWithRetry();
            walk();
            sms.ReleaseSOAP();
            db.CloseDB();
            display.SetRunBusy(false);
        },
        [&] {
            sms.ReleaseSOAP();
            display.SetRunBusy(false);
            db.ReportDBError(); // finds no error any more: it only closes the database
        });
}

} // namespace tsms
