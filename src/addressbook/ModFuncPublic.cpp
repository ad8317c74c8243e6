#include "addressbook/ModFuncPublic.h"

#include "addressbook/BookStatements.h"
#include "addressbook/BrowseList.h"
#include "runtime/Numbers.h"
#include "runtime/Text.h"
#include "store/DBConnect.h"
#include "toolkit/fields/ComboBox.h"

namespace tsms {

namespace {

void AddGroups(Recordset& rows, ComboBox& list, const QString& code)
{
    for (; !rows.Eof(); rows.MoveNext()) {
        const QString group = Trim(rows.Field(u"GroupCd"));
        const bool first = !code.isEmpty() && group == code;
        list.InsertItem(first ? 0 : list.ListCount(), rows.Field(u"GroupNm"), ToLong(group));
    }
}

} // namespace

void FillMemberGroupCombo(DBConnect& db, ComboBox& list, const QString& code)
{
    list.Clear();
    db.Select(GroupList(), [&](Recordset& groups) { AddGroups(groups, list, code); });
    list.AddItem(OtherGroup(), 0);
    list.SetListIndex(0);
}

} // namespace tsms
