#include "store/LoadSMSSetup.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "store/WithDatabase.h"

namespace tsms {

namespace {

void ReadAccount(Session& session, const Recordset& row)
{
    session.SMSRemainCnt = ToLong(Trim(row.Field(u"SMSRemainCnt")));
    session.SMSTelNo = Trim(row.Field(u"SMSTelNo"));
    session.SMSID = Trim(row.Field(u"SMSID"));
    session.SMSPWD = Trim(row.Field(u"SMSPWD"));
    session.SMSDNS = Trim(row.Field(u"SMSDNS"));
    session.SMSOrgNm = Trim(row.Field(u"SMSOrgNm"));
    session.SMSWeb1 = Trim(row.Field(u"SMSWeb1"));
    session.SMSWeb2 = Trim(row.Field(u"SMSWeb2"));
}

} // namespace

bool LoadSMSSetup(Session& session, DBConnect& db)
{
    return ReportingErrors(db, [&] {
        WithDatabase(db, [&] {
            db.Select(u"SELECT * FROM SMSSetup", [&](const Recordset& account) {
                if (account.RecordCount() < 1)
                    return;
                ReadAccount(session, account);
                session.AnnounceBalance();
            });
        });
        return true;
    });
}

} // namespace tsms
