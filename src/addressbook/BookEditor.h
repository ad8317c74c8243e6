#pragma once

#include "toolkit/fields/TextHelper.h"
#include "toolkit/windows/DialogForm.h"

#include <functional>

namespace tsms {

class Statement;
class TextBox;
struct Services;

/// What the dialogs of a group and of a member have in common: they add an entry to the address book or
/// change one. The opener sets AddMode and, for a change, the titles and the entry.
class BookEditor : public DialogForm
{
    Q_OBJECT

public:
    bool AddMode = false;

protected:
    struct Box
    {
        QString words;
        QString title;
    };
    struct Boxes
    {
        Box taken; ///< the name is there already
        Box added;
        Box changed;
    };

    /// `reload` shows the entries anew, once the dialog has stored one and is unloaded.
    BookEditor(Services& services, const DialogFrame& frame, Boxes boxes, std::function<void()> reload,
               QWidget* owner);

    void OnButton(int index) override;

    virtual bool FieldsPass() = 0;           ///< where they do not, it has been told
    virtual TextBox& EntryName() const = 0;  ///< the box of its name
    virtual Statement Namesakes() const = 0; ///< the entries of that name
    virtual Statement Storing() const = 0;

    Services& services_;
    TextHelper textHelper_;

private:
    void Save();
    bool IsTaken();

    Boxes boxes_;
    std::function<void()> reload_;
};

} // namespace tsms
