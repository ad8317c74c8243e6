#pragma once

#include <array>

class QVBoxLayout;
class QWidget;

namespace tsms {

class ComboBox;
class fpSpread;
class PictureButton;
class PushButton;
class RadioButton;

/// The controls of the address book: the browse list below what chooses its view, the chosen list, and the
/// buttons between the two.
struct BookControls
{
    std::array<RadioButton*, 2> view{};    // OptType: members, groups
    ComboBox* filter = nullptr;            // CbGroup
    std::array<PictureButton*, 2> add{};   // BtnAdd: a member, a group
    fpSpread* browse = nullptr;            // fpSpreadMst
    std::array<PushButton*, 2> transfer{}; // BtnFuncAdd: add, remove
    fpSpread* chosen = nullptr;            // fpSpread
};

/// Makes them in a body. Members are the view; the grids are not laid out, and nothing answers yet.
BookControls BuildBookControls(QWidget& body, QVBoxLayout& layout);

} // namespace tsms
