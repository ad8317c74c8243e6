#include "templates/ModFuncPublic.h"

#include "services/Services.h"
#include "session/Session.h"
#include "store/engine/RecordsetCells.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/ComboBox.h"

namespace tsms {

void FillTemplateCombo(Services& services, ComboBox& combo, const QString& code)
{
    ReportingErrors(services.db, [&] {
        services.session.Busy = true;
        combo.Clear();
        combo.setPlaceholderText(QString()); // a list that is read and empty shows nothing
        if (services.db.OpenRecordset(u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd"))
            combo.AddRows(RecordsetCells(services.db.ShareRecords()), code);
        combo.SetListIndex(0);
        services.session.Busy = false;
    });
}

} // namespace tsms
