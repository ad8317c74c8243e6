#include "addressbook/ModFuncPublic.h"

#include "addressbook/BookStatements.h"
#include "addressbook/BrowseList.h"
#include "store/DBConnect.h"
#include "store/engine/RecordsetCells.h"
#include "toolkit/fields/ComboBox.h"

namespace tsms {

void FillMemberGroupCombo(DBConnect& db, ComboBox& list, const QString& code)
{
    list.Clear();
    if (db.OpenRecordset(GroupList()))
        list.AddRows(RecordsetCells(db.ShareRecords()), code);
    list.AddItem(OtherGroup(), 0);
    list.SetListIndex(0);
}

} // namespace tsms
