#pragma once

#include "toolkit/fields/Controls.h"

namespace tsms {

class fpSpread;
class Label;
class MemoBox;
class MessageCounter;
class TextBox;
struct Services;

/// Fills the grid of special characters anew.
void InitSymbolGrid(fpSpread& grid);

/// The editor of a stored message: title, body, counter, and the two popups from which special characters and
/// placeholders are inserted. The popups stand on the window as a whole and stay open across pages.
class TemplateEditor : public QWidget
{
    Q_OBJECT

public:
    /// `popupParent` is the window that the popups stand on.
    TemplateEditor(Services& services, QWidget& popupParent, QWidget* parent);

    MemoBox& Body() { return *body_; }
    TextBox& Subject() { return *subject_; }

    /// Empties both fields and their Tags, so that what is written next is a new message, and shows "0 /".
    void Clear();

    /// Builds the symbol grid anew, at each entry to the page.
    void RefreshSymbols();

private:
    void BuildFields();
    void BuildSymbolPopup(QWidget& parent);
    void BuildPlaceholderPopup(QWidget& parent);
    PushButton* BuildCloseButton(int index, PopupPanel& popup);

    void BtnFuncDocEditClick(int index);
    void InsertAtCaret(const QString& piece);
    void InsertActiveSymbol();
    void SymbolKeyPress(int& key);

    Services& services_;
    MemoBox* body_ = nullptr;
    TextBox* subject_ = nullptr;
    MessageCounter* counter_ = nullptr;
    PopupPanel* popups_[2] = {};
    fpSpread* symbols_ = nullptr;
    PushButton* placeholders_[2] = {};
};

} // namespace tsms
