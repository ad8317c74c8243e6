#include "shell/frmSMSMain.h"

#include "account/AccountPage.h"
#include "account/dlgSMSSetup.h"
#include "addressbook/dlgSMSGroupSelect.h"
#include "addressbook/MakeSMSExcel.h"
#include "addressbook/UserSMSFileRead.h"
#include "compose/CancelTransport.h"
#include "compose/ComposeBoxes.h"
#include "compose/ComposePage.h"
#include "compose/TemplateEditor.h"
#include "gateway/ModSMS.h"
#include "history/HistoryPage.h"
#include "history/UserSetMakeEXCEL.h"
#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/Text.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "shell/Version.h"
#include "store/DBConnect.h"
#include "templates/TemplateCache.h"
#include "templates/TemplateCards.h"
#include "templates/TemplatePage.h"
#include "templates/TemplatePicker.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"
#include "toolkit/look/Twips.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QPainter>
#include <QScopedValueRollback>
#include <QTimer>

#include <algorithm>
#include <functional>
#include <utility>

namespace tsms {

namespace {

constexpr QSize WindowSize(1000, 700); // less height where the screen has less
constexpr int LeastHeight = 540;       // with all that the pages hold
constexpr QSize PageSize(970, 586);
const QPoint PageCorner(FromTwips(225), FromTwips(1260));
constexpr int SettingsPosition = 4;         // the one toolbar position without a page
constexpr int HeadHeight = FromTwips(1200); // title and toolbar, down to the pages

/// The surface that holds all but the popups: the head in the colour of title strips, the rest as ground.
class Background final : public Panel
{
public:
    /// `whenShown` runs once, behind the first picture of the window.
    Background(QWidget* parent, std::function<void()> whenShown)
        : Panel(parent, QStringLiteral("PictBg"), Border::Edge), whenShown_(std::move(whenShown))
    {
        SetDragsWindow(true);
        setAttribute(Qt::WA_OpaquePaintEvent);
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        if (whenShown_)
            QTimer::singleShot(0, this, std::exchange(whenShown_, nullptr));
        const QRect head(0, 0, width(), HeadHeight - 1);
        QPainter painter(this);
        painter.fillRect(head, theme::Strip);
        painter.fillRect(rect().adjusted(0, head.height(), 0, 0), theme::Ground);
        painter.end();
        Panel::paintEvent(event);
    }

private:
    std::function<void()> whenShown_;
};

} // namespace

frmSMSMain::frmSMSMain(Services& services)
    : Form(services.session, services.desktop, QStringLiteral("frmSMSMain"), Kind::Main), services_(services)
{
    SetCaption(QStringLiteral("TSMS문자메시지"));
    ground_ = new Background(this, [this] { BuildOtherPages(); });
    BuildHead();
    BuildToolbar();
    BuildBalance();
    BuildComposePage();
    SetHeight(WindowSize.height());
    services_.session.BalanceListener = [this] { ShowBalance(); };
}

frmSMSMain::~frmSMSMain()
{
    services_.session.BalanceListener = nullptr;
}

void frmSMSMain::BuildHead()
{
    auto* title = new Label(ground_, QStringLiteral("lblCaption"), Caption());
    title->SetTextColor(theme::StripText);
    title->SetBold(true);
    title->setAttribute(Qt::WA_TransparentForMouseEvents);
    title->setGeometry(15, 8, 300, 24);

    const std::array<QString, 3> pictures{QStringLiteral("window-minimise"),
                                          QStringLiteral("window-maximise"), QStringLiteral("window-close")};
    const std::array<QString, 3> words{QStringLiteral("최소화"), QStringLiteral("최대화"),
                                       QStringLiteral("닫기")};
    for (int i = 0; i < 3; ++i) {
        auto* button =
            new PictureButton(ground_, IndexedName(u"BtnWindows", i), pictures[static_cast<std::size_t>(i)],
                              words[static_cast<std::size_t>(i)],
                              i == 2 ? PictureButton::Look::Closing : PictureButton::Look::Window);
        button->setGeometry(WindowSize.width() - 3 * 36 - 8 + i * 36, 6, 34, 26);
        button->OnClick = WhenIdle(*this, [this, i] { BtnWindowsClick(i); });
    }
}

void frmSMSMain::BuildToolbar()
{
    struct Position
    {
        int left; // twips
        QString picture;
        QString words;
    };
    const std::array<Position, Positions> positions{
        {{120, QStringLiteral("toolbar-compose"), QStringLiteral("문자발송")},
         {1860, QStringLiteral("toolbar-history"), QStringLiteral("발송내역")},
         {3600, QStringLiteral("toolbar-charge"), QStringLiteral("요금현황")},
         {5340, QStringLiteral("toolbar-template"), QStringLiteral("문자서식")},
         {7080, QStringLiteral("toolbar-settings"), QStringLiteral("환경설정")}}};
    for (int i = 0; i < Positions; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        const Position& at = positions[slot];
        idle_[slot] = new PictureButton(ground_, IndexedName(u"BtnToolbarDis", i), at.picture, at.words,
                                        PictureButton::Look::Idle);
        idle_[slot]->setGeometry(FromTwips(at.left), FromTwips(720), FromTwips(1725), FromTwips(480));
        idle_[slot]->OnClick = [this, i] { BtnToolbarDisClick(i); };
        selected_[slot] = new PictureButton(ground_, IndexedName(u"BtnToolbarEn", i), at.picture, at.words,
                                            PictureButton::Look::Selected);
        selected_[slot]->setGeometry(FromTwips(at.left), FromTwips(660), FromTwips(1725), FromTwips(540));
        if (i == SettingsPosition)
            selected_[slot]->OnClick = WhenIdle(*this, [this] { ShowSettings(); });
        idle_[slot]->setVisible(i != 0);
        selected_[slot]->setVisible(i == 0);
    }
}

void frmSMSMain::BuildComposePage()
{
    templateCache_ = Named(new fpSpread(this), QStringLiteral("fpSpreadHidden"));
    templateCache_->hide();
    compose_ = new ComposePage(
        services_,
        {[this] { Unload(); },
         [this] { dlgSMSGroupSelect(services_, compose_->Recipients(), this).ShowModal(); },
         [this] { ShowImport(); }},
        [this](QWidget* page) {
            return cards_ = new TemplateCards(services_, TemplateCards::ComposeSide, page);
        },
        ground_);
    picker_ = std::make_unique<TemplatePicker>(services_, *templateCache_, *cards_,
                                               [this](int card) { TakeTemplate(card); });
    pages_[0] = compose_;
    compose_->FocusMessage();
}

/// The pages that nobody sees at first. They are there when the window has been drawn, or before if somebody
/// is quicker.
void frmSMSMain::BuildOtherPages()
{
    if (history_)
        return;
    const QScopedValueRollback nobodyChooses(services_.session.Busy, true); // what their lists begin with
    const auto exportGrid = [this](const fpSpread& grid, const QString& title) {
        return MakeExcel(services_, grid, title);
    };
    history_ = new HistoryPage(
        services_,
        {[this](const SentRows& rows, std::int32_t count) { CancelSent(rows, count); }, exportGrid}, ground_);
    account_ = new AccountPage(
        services_, {[this] { return compose_->RecipientGrid().ActiveRow(); }, exportGrid}, ground_);
    editor_ = new TemplateEditor(services_, *this, ground_);
    templates_ = new TemplatePage(
        services_, *templateCache_,
        {editor_, editor_->Body(), editor_->Subject(), [this] { editor_->Clear(); }}, ground_);
    pages_ = {compose_, history_, account_, templates_};
    for (QWidget* page : {pages_[1], pages_[2], pages_[3]}) {
        page->hide();
        page->move(PageCorner);
    }
    SetHeight(height());
    history_->Load();
    account_->Load();
}

void frmSMSMain::BuildBalance()
{
    const std::array<QString, 2> captions{QStringLiteral("가입하기"), QStringLiteral("문자충전")};
    auto* panel = new Panel(ground_, QStringLiteral("Picture1"));
    panel->SetBackColor(theme::Ground);
    auto* words = new Label(panel, QStringLiteral("Label7"), QStringLiteral("잔여건수  : "));
    balance_ = new Label(panel, QStringLiteral("lblSMSCnt"), QStringLiteral("0건 남았습니다."));
    balance_->SetBold(true);
    balance_->SetTextColor(theme::Accent);
    auto* row = new QHBoxLayout(panel);
    row->setContentsMargins(6, 0, 6, 0);
    row->setSpacing(2);
    row->addWidget(words);
    row->addWidget(balance_, 1);
    panel->setGeometry(590, 48, 233, 30);
    for (int i = 0; i < 2; ++i) {
        auto* button =
            new PushButton(ground_, IndexedName(u"BtnWebPage", i), captions[static_cast<std::size_t>(i)]);
        button->setGeometry(829 + i * 80, 48, 76, 30);
        button->OnClick = WhenIdle(*this, [this, i] {
            services_.desktop.OpenPage(i == 0 ? services_.session.SMSWeb1 : services_.session.SMSWeb2);
        });
    }
    version_ = new Label(ground_, QStringLiteral("lblVersion"));
    version_->setAlignment(Qt::AlignCenter);
    version_->resize(170, 20);
}

void frmSMSMain::FitInto(QSize room)
{
    SetHeight(std::clamp(room.height(), LeastHeight, WindowSize.height()));
}

/// What the window has less of, the pages have less of.
void frmSMSMain::SetHeight(int height)
{
    const int less = WindowSize.height() - height;
    setFixedSize(WindowSize.width(), height);
    ground_->setGeometry(rect());
    for (QWidget* page : pages_)
        if (page)
            page->resize(PageSize.width(), PageSize.height() - less);
    version_->move(width() - 15 - version_->width(), height - 26);
}

void frmSMSMain::Load()
{
    SetBusy(true);
    compose_->move(PageCorner);
    InitTemplateCache(*templateCache_);
    compose_->Load();
    ShowBalance();
    SetBusy(false);
    CheckAccountAtLoad(services_.desktop, services_.session);
}

void frmSMSMain::OnFirstActivation()
{
    SetBusy(true);
    ShowVersion();
    picker_->Enter();
    ReadRecipients();
    SetBusy(false);
}

void frmSMSMain::ReadRecipients()
{
    ReadRecipientFile(services_.applicationPath, compose_->Recipients(), services_.session,
                      services_.desktop);
}

/// A template into the message; the counter beside it keeps its number until the next key.
void frmSMSMain::TakeTemplate(int card)
{
    const QString body = cards_->Content(card).Caption();
    if (!IsBlank(body))
        compose_->Message().PutText(body);
}

void frmSMSMain::ShowVersion()
{
    version_->SetCaption(QStringLiteral("Version : ") + ProgramVersion());
    version_->SetBackColor(QColor(210, 210, 210));
    version_->SetTextColor(QColor(128, 128, 128));
}

void frmSMSMain::ShowBalance()
{
    balance_->SetCaption(BalanceCaption(services_.session.SMSRemainCnt));
    balance_->Tag = QString::number(services_.session.SMSRemainCnt);
}

void frmSMSMain::BtnToolbarDisClick(int index)
{
    // Not guarded by Busy.
    BuildOtherPages();
    for (int j = 0; j < Positions; ++j) {
        const auto slot = static_cast<std::size_t>(j);
        idle_[slot]->setVisible(j != index);
        selected_[slot]->setVisible(j == index);
        if (index != SettingsPosition && j != SettingsPosition)
            pages_[slot]->setVisible(j == index);
    }
    // The clicked button is gone: its focus belongs to the one in its place, and not to the next tab.
    selected_[static_cast<std::size_t>(index)]->setFocus();
    EnterPage(index);
}

void frmSMSMain::EnterPage(int index)
{
    switch (index) {
    case 0:
        compose_->FocusMessage();
        picker_->Enter();
        compose_->ResetSenderNumber();
        break;
    case 1:
        history_->Enter();
        break;
    case 2:
        account_->Enter();
        break;
    case 3:
        templates_->Enter();
        editor_->RefreshSymbols();
        editor_->Body().SetFocus();
        break;
    default:
        ShowSettings();
        break; // the button keeps its selected look when the dialog has closed
    }
}

void frmSMSMain::CancelSent(const SentRows& rows, std::int32_t count)
{
    CancelTransport(services_, rows, count, this).ShowModal();
}

void frmSMSMain::ShowSettings()
{
    dlgSMSSetup(services_, this).ShowModal();
}

void frmSMSMain::ShowImport()
{
    MakeSMSExcel(services_, compose_->Recipients(), this).ShowModal();
}

void frmSMSMain::BtnWindowsClick(int index)
{
    switch (index) {
    case 0:
        showMinimized();
        break;
    case 1:
        services_.desktop.MsgBox(QStringLiteral("창 최대화를 지원하지 않습니다.!!!"), MsgBoxCritical,
                                 QStringLiteral("창 최대화"));
        break;
    default:
        Unload();
        break;
    }
}

bool frmSMSMain::KeyDown(int key, Qt::KeyboardModifiers)
{
    if (IsBusy() || key != Qt::Key_Escape || compose_->RecipientGrid().IsEditing())
        return false; // a recipient that is being edited gets its cell back
    Unload();
    return true;
}

bool frmSMSMain::QueryUnload()
{
    const MsgBoxAnswer answer =
        services_.desktop.MsgBox(QStringLiteral("프로그램 종료 : 타른리프 문자메시지을 종료하시겠습니까?"),
                                 MsgBoxQuestion, QStringLiteral("프로그램 종료"));
    if (answer != AnswerYes) {
        DoEvents();
        return false;
    }
    services_.db.CloseDB();
    services_.db.CloseDB2();
    const QList<Form*> forms = Loaded();
    for (Form* form : forms)
        if (form->Name() != Name()) {
            DoEvents();
            form->Unload();
            DoEvents();
        }
    DoEvents();
    services_.sms.ReleaseSOAP();
    DoEvents();
    QCoreApplication::quit();
    return true;
}

} // namespace tsms
