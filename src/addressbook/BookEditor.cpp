#include "addressbook/BookEditor.h"

#include "runtime/Desktop.h"
#include "services/ScreenBusy.h"
#include "store/DBConnect.h"
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
    SetScreenBusy(services_, true);
    services_.db.ConnectWithRetry();
    // A change is not looked at: two entries may come to bear one name.
    if (AddMode && IsTaken()) {
        TellTaken();
        return;
    }
    const bool saved = services_.db.ExecuteSQL(Storing());
    services_.db.CloseDB();
    SetScreenBusy(services_, false);
    if (!saved)
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

void BookEditor::TellTaken()
{
    services_.desktop.MsgBox(boxes_.taken.words, MsgBoxCritical, boxes_.taken.title);
    services_.db.CloseDB();
    SetScreenBusy(services_, false);
    EntryName().SetFocus();
}

} // namespace tsms
