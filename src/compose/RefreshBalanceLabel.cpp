#include "compose/RefreshBalanceLabel.h"

#include "session/Session.h"
#include "store/WithDatabase.h"

namespace tsms {

void RefreshBalanceLabel(Session& session, DBConnect& db)
{
    ReportingErrors(db, [&] {
        WithDatabase(db, [&] {
            db.Select(u"SELECT * FROM SMSSetup", [&](const Recordset& account) {
                if (account.RecordCount() >= 1)
                    session.AnnounceBalance(); // the old figure is meant
            });
        });
        db.ReportDBError(); // silent when no error is current
    });
}

} // namespace tsms
