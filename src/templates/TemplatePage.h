#pragma once

#include "templates/TemplateCommands.h"
#include "templates/TemplatePicker.h"
#include "toolkit/fields/Controls.h"

#include <array>
#include <memory>

namespace tsms {

/// The page on which stored messages are written, changed and deleted.
class TemplatePage : public Panel
{
    Q_OBJECT

public:
    /// The editor of the template under edit. It takes its place on the page.
    struct Editor
    {
        QWidget* widget;
        MemoBox& body;
        TextBox& subject;
        std::function<void()> clear; ///< empties both fields and their Tags and gives the body the focus
    };

    /// `cache` is the hidden grid, which the compose page uses as well.
    TemplatePage(Services& services, fpSpread& cache, const Editor& editor, QWidget* parent);

    /// Reads the categories anew and shows the first page of the first one.
    void Enter() { picker_->Enter(category_); }

private:
    QWidget* BuildPhone(QWidget* editor);
    QWidget* BuildNotes();
    void BtnFuncDocClick(int index);

    Services& services_;
    TemplateCards* cards_ = nullptr;
    ComboBox* category_ = nullptr;         // CbSMSGroup(1)
    std::array<PushButton*, 3> buttons_{}; // BtnFuncDoc
    std::unique_ptr<TemplatePicker> picker_;
    std::unique_ptr<TemplateCommands> commands_;
};

} // namespace tsms
