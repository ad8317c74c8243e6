#include "account/AccountPage.h"

#include "account/dlgSMSCharge.h"
#include "account/ModStep3.h"
#include "runtime/Clock.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"
#include "toolkit/look/Tip.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

constexpr int FirstYear = 2010;
constexpr int LastYear = 2020; // the list is not extended

enum Button : int { Add, Delete, ExportLedger, ExportMonths };

void FillHead(QHBoxLayout& row, QWidget& parent, const QString& name, const QString& title,
              const QString& note)
{
    auto* heading = new Label(&parent, name + QStringLiteral("Title"), title);
    heading->SetBold(true);
    auto* words = new Label(&parent, name + QStringLiteral("Note"), note);
    words->SetTextColor(theme::Faint);
    row.setSpacing(6);
    row.addWidget(heading);
    row.addSpacing(2);
    row.addWidget(words);
    row.addStretch(1);
}

} // namespace

AccountPage::AccountPage(Services& services, Window window, QWidget* parent)
    : Panel(parent, IndexedName(u"PlToolBg", 2)), services_(services), window_(std::move(window))
{
    SetBackColor(theme::Page);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(8);
    BuildLedger(*page);
    page->addSpacing(6);
    BuildMonths(*page);
    SetUpLedger();
    SetUpMonths();
}

PushButton* AccountPage::BuildButton(int index, const QString& caption)
{
    auto* button = new PushButton(this, IndexedName(u"BtnChargeFunc", index), caption);
    button->OnClick = WhenIdle(services_.session, [this, index] { BtnChargeFuncClick(index); });
    buttons_.at(static_cast<std::size_t>(index)) = button;
    return button;
}

void AccountPage::BuildLedger(QVBoxLayout& page)
{
    auto* head = new QHBoxLayout;
    FillHead(*head, *this, QStringLiteral("LblCharge"), QStringLiteral("요금충전현황"),
             QStringLiteral("(문자메시지 충전내역을 등록하시면 잔여발송건수를 계산하여 드립니다.)"));
    const QStringList captions{QStringLiteral("등록"), QStringLiteral("삭제"), QStringLiteral("엑셀변환")};
    for (int i = 0; i < captions.size(); ++i)
        head->addWidget(BuildButton(i, captions[i]));
    ledger_ = Named(new fpSpread(this), QStringLiteral("fpSpreadCharge"));
    DescribeBy(*ledger_, QStringLiteral("요금충전현황"));
    ledger_->SetFillWidth(true);
    page.addLayout(head);
    page.addWidget(ledger_, 1);
}

void AccountPage::BuildMonths(QVBoxLayout& page)
{
    auto* head = new QHBoxLayout;
    FillHead(*head, *this, QStringLiteral("LblMonth"), QStringLiteral("월별발송현황"),
             QStringLiteral("(검색하실 연도를 선택하여 주십시오.)"));
    year_ = new ComboBox(this, QStringLiteral("CbMonthYear"));
    DescribeBy(*year_, QStringLiteral("검색 연도"));
    year_->OnClick = WhenIdle(services_.session, [this] {
        SetUpMonths();
        ShowYear();
    });
    head->addWidget(year_);
    head->addWidget(BuildButton(ExportMonths, QStringLiteral("엑셀변환")));
    months_ = Named(new fpSpread(this), QStringLiteral("fpSpreadMonth"));
    DescribeBy(*months_, QStringLiteral("월별발송현황"));
    months_->SetFillWidth(true);
    months_->setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    months_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    page.addLayout(head);
    page.addWidget(months_);
}

void AccountPage::Load()
{
    year_->Clear();
    for (int year = FirstYear; year <= LastYear; ++year)
        year_->AddItem(QString::number(year) + QStringLiteral("년"));
    // A year off the list takes its nearest entry.
    year_->SetListIndex(std::max(services_.clock.Date().year() - FirstYear, 0));
}

void AccountPage::Enter()
{
    SetUpLedger();
    SetUpMonths();
    QueryCharges(services_, *ledger_);
    ShowYear();
}

void AccountPage::SetUpLedger()
{
    ledger_->SetReDraw(false);
    InitChargeGrid(*ledger_);
    ledger_->SetReDraw(true);
}

void AccountPage::SetUpMonths()
{
    months_->SetReDraw(false);
    InitMonthGrid(*months_);
    months_->SetReDraw(true);
    // The four rows are all there is: the grid is as high as they are.
    months_->setFixedHeight(months_->horizontalHeader()->height() + months_->verticalHeader()->length() +
                            2 * months_->frameWidth());
}

void AccountPage::BtnChargeFuncClick(int index)
{
    switch (index) {
    case Add:
        EnterCharge();
        break;
    case Delete:
        // Meant: whether there is something to delete is asked of the row that is active in another grid.
        DeleteCharge(services_, *ledger_, window_.recipientRow());
        break;
    case ExportLedger:
        ShowTip(*buttons_[ExportLedger], window_.exportGrid(*ledger_, QStringLiteral("요금충전현황")));
        break;
    case ExportMonths:
        ShowTip(*buttons_[ExportMonths], window_.exportGrid(*months_, QStringLiteral("월별발송현황")));
        break;
    default:
        break;
    }
}

void AccountPage::EnterCharge()
{
    const auto reload = [this] { QueryCharges(services_, *ledger_); };
    dlgSMSCharge(services_, reload, window()).ShowModal();
}

void AccountPage::ShowYear()
{
    QueryMonths(services_, *months_, year_->Text().left(4));
}

} // namespace tsms
