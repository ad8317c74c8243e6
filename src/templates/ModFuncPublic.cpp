#include "templates/ModFuncPublic.h"

#include "runtime/Numbers.h"
#include "runtime/RuntimeError.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
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
    WithHandler(
        [&] {
            services.session.Busy = Boolean::True;
            combo.Clear();
            combo.setPlaceholderText(QString()); // a list that is read and empty shows nothing
            const Boolean opened =
                services.db.OpenRecordset(u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd");
            if (opened == Boolean::True)
                AddCategories(services.db.Records(), combo, code);
            combo.SetListIndex(0);
            services.session.Busy = Boolean::False;
        },
        [&] { services.db.ReportDBError(); });
}

} // namespace tsms
