#include "compose/RunFrame.h"

#include "compose/RunDisplay.h"
#include "gateway/ModSMS.h"
#include "runtime/StayAwake.h"
#include "store/WithDatabase.h"

namespace tsms {

void InRunFrame(DBConnect& db, ModSMS& sms, RunDisplay& display, std::int32_t total,
                const std::function<void()>& walk)
{
    const StayAwake awake; // a call that sleep cuts off takes all rows behind it along
    WithHandler(
        [&] {
            display.SetRunBusy(true);
            display.SetBarMaximum(total);
            display.SetBarValue(0);
            WithDatabase(db, [&] {
                sms.InitWithRetry();
                walk();
                sms.ReleaseSOAP();
            });
            display.SetRunBusy(false);
        },
        [&] {
            sms.ReleaseSOAP();
            display.SetRunBusy(false);
            db.ReportDBError(); // finds no error any more: it only closes the database
        });
}

} // namespace tsms
