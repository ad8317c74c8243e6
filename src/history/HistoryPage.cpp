#include "history/HistoryPage.h"

#include "history/ModStep2.h"
#include "runtime/Clock.h"
#include "services/Services.h"
#include "session/Session.h"
#include "toolkit/ComboBox.h"
#include "toolkit/DatePicker.h"
#include "toolkit/fpSpread.h"
#include "toolkit/Naming.h"
#include "toolkit/Pictures.h"
#include "toolkit/TextBox.h"
#include "toolkit/Theme.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace tsms {

namespace {

constexpr int SearchLimit = 50; // bytes

} // namespace

HistoryPage::HistoryPage(Services& services, QWidget* parent)
    : Panel(parent, IndexedName(u"PlToolBg", 1)), services_(services), textHelper_(services.desktop)
{
    SetBackColor(theme::Page);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(8);
    page->addWidget(BuildSearch());
    BuildListHead(*page);
    list_ = Named(new fpSpread(this), QStringLiteral("fpSpreadSendList"));
    list_->SetPictures(CheckPictures());
    InitSendListGrid(*list_);
    page->addWidget(list_, 1);
    BuildButtons(*page);
}

QWidget* HistoryPage::BuildSearch()
{
    auto* panel = new Panel(this, QStringLiteral("PlSerch"), Panel::Border::Line);
    panel->SetBackColor(theme::ButtonFace);
    auto* heading = new Label(panel, QStringLiteral("LblSerchTitle"), QStringLiteral("문자메시지 내역검색"));
    heading->SetBold(true);

    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    BuildPeriod(*row, *panel);
    row->addSpacing(10);
    field_ = new ComboBox(panel, QStringLiteral("CbSerch"));
    field_->AddItem(QStringLiteral("받는사람"));
    field_->AddItem(QStringLiteral("수신번호"));
    field_->AddItem(QStringLiteral("보낸메시지"));
    field_->OnClick = [this] {
        if (!services_.session.IsBusy())
            search_->SetFocus();
    };
    search_ = new TextBox(panel, QStringLiteral("txtSerch"));
    search_->OnChange = [this] { textHelper_.LimitBytes(*search_, SearchLimit); };
    row->addWidget(field_);
    row->addWidget(search_, 1);
    row->addSpacing(10);
    BuildStatus(*row, *panel);
    run_ = new PushButton(panel, QStringLiteral("BtnSendListSerch"), QStringLiteral("검색"),
                          PushButton::Look::Primary);
    run_->setEnabled(false);
    row->addWidget(run_);

    auto* column = new QVBoxLayout(panel);
    column->setContentsMargins(12, 8, 12, 10);
    column->setSpacing(8);
    column->addWidget(heading);
    column->addLayout(row);
    return panel;
}

void HistoryPage::BuildPeriod(QHBoxLayout& row, QWidget& parent)
{
    for (int i = 0; i < 2; ++i) {
        auto* date = new DatePicker(&parent, IndexedName(u"DTPSendDt", i));
        dates_[static_cast<std::size_t>(i)] = date;
        if (i == 1)
            row.addWidget(new Label(&parent, QStringLiteral("LblPeriod"), QStringLiteral("~")));
        row.addWidget(date);
    }
}

void HistoryPage::BuildStatus(QHBoxLayout& row, QWidget& parent)
{
    const QStringList captions{QStringLiteral(" 전체"), QStringLiteral(" 예약중"), QStringLiteral(" 완료"),
                               QStringLiteral(" 실패")};
    for (int i = 0; i < captions.size(); ++i) {
        auto* option = new RadioButton(&parent, IndexedName(u"OptSendStatus", i), captions[i]);
        status_[static_cast<std::size_t>(i)] = option;
        row.addWidget(option);
    }
}

void HistoryPage::BuildListHead(QVBoxLayout& page)
{
    auto* heading =
        new Label(this, QStringLiteral("LblSendListTitle"), QStringLiteral("문자메시지 발송내역"));
    heading->SetBold(true);
    count_ = new Label(this, QStringLiteral("LblSendListCnt"));
    count_->SetTextColor(theme::Accent);
    auto* notice = new Label(this, QStringLiteral("LblSendListNote"),
                             QStringLiteral("예약취소는 발송 1일전까지만 가능합니다."));
    notice->SetTextColor(theme::Faint);
    all_ = new CheckBox(this, QStringLiteral("chkAll"), QStringLiteral("선택"));
    all_->setEnabled(false);
    auto* row = new QHBoxLayout;
    row->setSpacing(8);
    row->addWidget(heading);
    row->addWidget(count_);
    row->addStretch(1);
    row->addWidget(notice);
    row->addSpacing(8);
    row->addWidget(all_);
    page.addLayout(row);
}

void HistoryPage::BuildButtons(QVBoxLayout& page)
{
    const QStringList captions{QStringLiteral("상세보기"), QStringLiteral("예약취소"),
                               QStringLiteral("엑셀변환")};
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    row->addStretch(1);
    for (int i = 0; i < captions.size(); ++i) {
        auto* button = new PushButton(this, IndexedName(u"BtnSendListFun", i), captions[i]);
        button->setEnabled(false);
        buttons_[static_cast<std::size_t>(i)] = button;
        row->addWidget(button);
    }
    page.addLayout(row);
}

void HistoryPage::Load()
{
    field_->SetListIndex(0);
    status_[0]->SetValue(true);
    for (DatePicker* date : dates_)
        date->SetValue(services_.clock.Date());
}

void HistoryPage::FocusSearch()
{
    search_->SetFocus();
}

} // namespace tsms
