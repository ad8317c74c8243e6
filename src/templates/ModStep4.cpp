#include "templates/ModStep4.h"

#include "runtime/Desktop.h"
#include "runtime/RuntimeError.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"

namespace tsms {

Statement TemplateInsert(std::int32_t category, const QString& title, const QString& body)
{
    return Statement(u"Insert INTO SMSTempLSub ")
        .Own(u" (TempLCd, TempLSubNm, TempLContent)")
        .Own(u" VALUES (")
        .Bare(QString::number(category))
        .Own(u",")
        .Quoted(title)
        .Own(u",")
        .Quoted(body)
        .Own(u")");
}

Statement TemplateUpdate(std::int32_t category, const QString& title, const QString& body, std::int32_t key)
{
    return Statement(u"UPDATE SMSTempLSub")
        .Own(u" SET ")
        .Own(u" TempLCd =")
        .Bare(QString::number(category))
        .Own(u",")
        .Own(u" TempLSubNm =")
        .Quoted(title)
        .Own(u",")
        .Own(u" TempLContent =")
        .Quoted(body)
        .Own(u" WHERE TempLSeq=")
        .Bare(QString::number(key));
}

Statement TemplateDelete(const QString& key)
{
    return Statement(u"DELETE SMSTempLSub WHERE TempLSeq = ").Bare(key);
}

Boolean SaveTemplate(Services& services, Boolean isNew, std::int32_t category, const QString& title,
                     const QString& body, std::int32_t key)
{
    return WithHandler(
        [&] {
            SetScreenBusy(services, Boolean::True);
            services.db.ConnectWithRetry();
            if (isNew != Boolean::True && key == 0) {
                services.db.ReportDBError(); // no error is current after a good connection: it only closes
                return Boolean::False;
            }
            const Boolean done =
                services.db.ExecuteSQL(isNew == Boolean::True ? TemplateInsert(category, title, body)
                                                              : TemplateUpdate(category, title, body, key));
            services.db.CloseDB();
            SetScreenBusy(services, Boolean::False);
            return done;
        },
        [&] {
            services.db.ReportDBError();
            return Boolean::False;
        });
}

} // namespace tsms
