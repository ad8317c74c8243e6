#pragma once

#include "recipients/GridRecipientList.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/TextHelper.h"

#include <functional>
#include <memory>

class QVBoxLayout;

namespace tsms {

class fpSpread;
class MemoBox;
class MessageCounter;
class TextBox;
enum class Refusal;
struct Services;

/// The page on which a message is written, its recipients are listed, and both are sent.
class ComposePage : public Panel
{
    Q_OBJECT

public:
    /// What the page asks of the window it stands on.
    struct Window
    {
        std::function<void()> close;           ///< a click on the close button of the page
        std::function<void()> openAddressBook; ///< modal
        std::function<void()> openImport;      ///< modal
    };

    /// Makes the template picker, which takes its place on the page.
    using MakeCards = std::function<QWidget*(QWidget* page)>;

    ComposePage(Services& services, Window window, const MakeCards& makeCards, QWidget* parent);

    /// First state of the list and the sender number, at the load of the window.
    void Load();

    /// The focus that belongs to an entry to the page.
    void FocusMessage();

    /// Sets the sender number to the account's; one that was typed is dropped.
    void ResetSenderNumber();

    fpSpread& RecipientGrid() { return *grid_; }
    RecipientList& Recipients() { return *recipients_; }
    MemoBox& Message() { return *message_; }

private:
    QWidget* BuildPhone();
    QWidget* BuildNotes();
    void BuildMessage(QVBoxLayout& phone, QWidget& parent);
    void BuildRecipients(QVBoxLayout& phone, QWidget& parent);
    void BuildSender(QVBoxLayout& phone, QWidget& parent);

    void BtnFuncMainClick(int index);
    void Send();
    void Refuse(Refusal refusal);
    void SendNoKeyPress(char16_t& key);
    bool RecipientPaste(const QString& text);

    Services& services_;
    TextHelper textHelper_;
    Window window_;
    MemoBox* message_ = nullptr;
    fpSpread* grid_ = nullptr;
    std::unique_ptr<GridRecipientList> recipients_; // what stands in the grid
    TextBox* senderNumber_ = nullptr;
};

} // namespace tsms
