#include "templates/ModStep4.h"

#include "runtime/Desktop.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/WithDatabase.h"

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

bool SaveTemplate(Services& services, bool isNew, std::int32_t category, const QString& title,
                  const QString& body, std::int32_t key)
{
    return ReportingErrors(services.db, [&] {
        return WhileScreenBusy(services, [&] {
            return WithDatabase(services.db, [&] {
                if (isNew || key != 0)
                    return services.db.ExecuteSQL(isNew ? TemplateInsert(category, title, body)
                                                        : TemplateUpdate(category, title, body, key));
                services.db.ReportDBError(); // that it did not connect: otherwise there is no error
                return false;
            });
        });
    });
}

} // namespace tsms
