#pragma once

#include "toolkit/windows/Form.h"

#include <array>
#include <memory>

namespace tsms {

class AccountPage;
class ComposePage;
class fpSpread;
class HistoryPage;
class Label;
class Panel;
class PictureButton;
class SentRows;
class TemplateEditor;
class TemplateCards;
class TemplatePage;
class TemplatePicker;
struct Services;

/// The program's one main window: toolbar, four pages on one spot, window and web buttons, balance, version.
/// It begins with the compose page; the others are built when it has been drawn, or when one is entered.
/// Which page is current lies in what is visible and nowhere else.
class frmSMSMain : public Form
{
    Q_OBJECT

public:
    explicit frmSMSMain(Services& services);
    ~frmSMSMain() override;

    /// What happens once before the window is shown; ends with the account checks and their boxes.
    void Load();

protected:
    bool QueryUnload() override;
    bool KeyDown(int key, Qt::KeyboardModifiers shift) override;
    void OnFirstActivation() override;
    void FitInto(QSize room) override;

private:
    static constexpr int Positions = 5;

    void BuildHead();
    void BuildBalance();
    void BuildToolbar();
    void BuildComposePage();
    void BuildOtherPages();
    void SetHeight(int height);

    void BtnToolbarDisClick(int index);
    void BtnWindowsClick(int index);
    void EnterPage(int index);
    void CancelSent(const SentRows& rows, std::int32_t count);
    void ReadRecipients();
    void TakeTemplate(int card);
    void ShowBalance();
    void ShowVersion();
    void ShowSettings();
    void ShowImport();

    Services& services_;
    Panel* ground_ = nullptr;                          // PictBg
    std::array<PictureButton*, Positions> idle_{};     // BtnToolbarDis
    std::array<PictureButton*, Positions> selected_{}; // BtnToolbarEn
    std::array<QWidget*, 4> pages_{};                  // PlToolBg
    ComposePage* compose_ = nullptr;
    HistoryPage* history_ = nullptr;
    AccountPage* account_ = nullptr;
    TemplateEditor* editor_ = nullptr;
    TemplatePage* templates_ = nullptr;
    TemplateCards* cards_ = nullptr; // of the compose page
    std::unique_ptr<TemplatePicker> picker_;
    fpSpread* templateCache_ = nullptr; // fpSpreadHidden
    Label* balance_ = nullptr;
    Label* version_ = nullptr;
};

} // namespace tsms
