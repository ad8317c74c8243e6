#include "compose/RefreshBalanceLabel.h"

#include "runtime/RuntimeError.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/engine/Recordset.h"
#include "store/engine/Statement.h"

namespace tsms {

void RefreshBalanceLabel(Session& session, DBConnect& db)
{
    WithHandler(
        [&] {
            db.ConnectWithRetry();
            const Boolean opened = db.OpenRecordset(Statement(u"SELECT * FROM SMSSetup"));
            if (opened == Boolean::True && db.Records().RecordCount() >= 1)
                session.AnnounceBalance(); // the old figure is meant
            db.CloseDB();
            db.ReportDBError(); // silent when no error is current
        },
        [&] {
            db.CloseDB();
            db.ReportDBError();
        });
}

} // namespace tsms
