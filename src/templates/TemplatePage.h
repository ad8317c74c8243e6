#pragma once

#include "toolkit/Controls.h"

#include <array>

namespace tsms {

class ComboBox;
class TemplateCards;
struct Services;

/// The page on which stored messages are written, changed and deleted.
class TemplatePage : public Panel
{
    Q_OBJECT

public:
    /// `editor` holds the fields of the message under edit; it takes its place on the page.
    TemplatePage(Services& services, QWidget* editor, QWidget* parent);

    TemplateCards& Cards() { return *cards_; }
    ComboBox& Category() { return *category_; } ///< that a save writes

private:
    QWidget* BuildPhone(QWidget* editor);
    QWidget* BuildNotes();

    Services& services_;
    TemplateCards* cards_ = nullptr;
    ComboBox* category_ = nullptr;         // CbSMSGroup(1)
    std::array<PushButton*, 3> buttons_{}; // BtnFuncDoc
};

} // namespace tsms
