#include "addressbook/BookEditor.h"

#include "runtime/Desktop.h"
#include "services/ScreenBusy.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/TextBox.h"

namespace tsms {

BookEditor::BookEditor(Services& services, const DialogFrame& frame, Boxes boxes,
                       std::function<void()> reload, QWidget* owner)
    : DialogForm(services.session, services.desktop, frame, owner),
      services_(services),
      textHelper_(services.desktop),
      boxes_(std::move(boxes)),
      reload_(std::move(reload))
{
}

void BookEditor::OnButton(int index)
{
    if (index != 0)
        Unload();
    else
        Save();
}

void BookEditor::Save()
{
    if (!FieldsPass())
        return;
    bool isTaken = false;
    const bool isSaved = WhileScreenBusy(services_, [&] {
        return WithDatabase(services_.db, [&] {
            isTaken = AddMode && IsTaken(); // a change is not looked at: two entries may bear one name
            if (isTaken)
                services_.desktop.MsgBox(boxes_.taken.words, MsgBoxCritical, boxes_.taken.title);
            return !isTaken && services_.db.ExecuteSQL(Storing());
        });
    });
    if (isTaken)
        EntryName().SetFocus();
    if (!isSaved)
        return;
    const Box& box = AddMode ? boxes_.added : boxes_.changed;
    services_.desktop.MsgBox(box.words, MsgBoxInformation, box.title);
    Unload();
    reload_();
}

/// A query that fails does not hold the insert up.
bool BookEditor::IsTaken()
{
    return services_.db.OpenRecordset(Namesakes()) && services_.db.Records().RecordCount() > 0;
}

} // namespace tsms
