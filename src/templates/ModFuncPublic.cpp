#include "templates/ModFuncPublic.h"

#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/ComboBox.h"

namespace tsms {

namespace {

void AddCategories(Recordset& rows, ComboBox& combo, const QString& code)
{
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString category = Trim(rows.Field(u"TempLCd"));
        const bool first = !code.isEmpty() && category == code;
        combo.InsertItem(first ? 0 : combo.ListCount(), rows.Field(u"TempLNm"), ToLong(category));
    }
}

} // namespace

void FillTemplateCombo(Services& services, ComboBox& combo, const QString& code)
{
    ReportingErrors(services.db, [&] {
        services.session.Busy = true;
        combo.Clear();
        combo.setPlaceholderText(QString()); // a list that is read and empty shows nothing
        services.db.Select(u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd",
                           [&](Recordset& categories) { AddCategories(categories, combo, code); });
        combo.SetListIndex(0);
        services.session.Busy = false;
    });
}

} // namespace tsms
