#include "store/LoadSMSSetup.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "session/Session.h"
#include "store/DBConnect.h"

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

Boolean LoadSMSSetup(Session& session, DBConnect& db)
{
    return WithHandler(
        [&session, &db] {
            db.ConnectWithRetry();
            if (db.OpenRecordset(u"SELECT * FROM SMSSetup") == Boolean::True &&
                db.Records().RecordCount() >= 1) {
                ReadAccount(session, db.Records());
                session.AnnounceBalance();
            }
            db.CloseDB();
            return Boolean::True;
        },
        [&db] {
            db.ReportDBError();
            return Boolean::False;
        });
}

} // namespace tsms
