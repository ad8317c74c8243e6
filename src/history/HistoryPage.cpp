#include "history/HistoryPage.h"

#include "history/dlgSMSShowDetail.h"
#include "history/GridSentRows.h"
#include "history/ModStep2.h"
#include "history/SendListMarks.h"
#include "history/SendListStatement.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/Numbers.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "session/WhenIdle.h"
#include "store/engine/RecordsetCells.h"
#include "store/WithDatabase.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/fields/RaiseEvent.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/grid/GridHelper.h"
#include "toolkit/look/Pictures.h"
#include "toolkit/look/Theme.h"
#include "toolkit/look/Tip.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include <algorithm>

namespace tsms {

namespace {

constexpr int SearchLimit = 50; // bytes

} // namespace

HistoryPage::HistoryPage(Services& services, Window window, QWidget* parent)
    : Panel(parent, IndexedName(u"PlToolBg", 1)), services_(services), window_(std::move(window))
{
    SetBackColor(theme::Page);
    auto* page = new QVBoxLayout(this);
    page->setContentsMargins(12, 12, 12, 12);
    page->setSpacing(8);
    page->addWidget(BuildSearch());
    BuildListHead(*page);
    list_ = Named(new fpSpread(this), QStringLiteral("fpSpreadSendList"));
    DescribeBy(*list_, QStringLiteral("문자메시지 발송내역"));
    list_->Cells().SetPictures(CheckPictures());
    InitSendListGrid(*list_);
    connect(list_, &fpSpread::Click, this, [this](int column) {
        if (column == SendListStatus)
            RaiseEvent(*list_, WhenIdle(services_.session, [this] { StatusClick(); }));
    });
    connect(list_, &fpSpread::DblClick, this,
            [this] { RaiseEvent(*list_, WhenIdle(services_.session, [this] { BtnSendListFunClick(0); })); });
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
    DescribeBy(*field_, QStringLiteral("검색 항목"));
    field_->AddItem(QStringLiteral("받는사람"));
    field_->AddItem(QStringLiteral("수신번호"));
    field_->AddItem(QStringLiteral("보낸메시지"));
    field_->OnClick = WhenIdle(services_.session, [this] { search_->SetFocus(); });
    search_ = new TextBox(panel, QStringLiteral("txtSerch"));
    DescribeBy(*search_, QStringLiteral("검색어"));
    search_->SetByteLimit(SearchLimit);
    search_->OnKeyPress = [this](char16_t& key) {
        if (key != u'\r')
            return;
        BtnSendListSerchClick();
        key = 0;
    };
    row->addWidget(field_);
    row->addWidget(search_, 1);
    row->addSpacing(10);
    BuildStatus(*row, *panel);
    auto* run = new PushButton(panel, QStringLiteral("BtnSendListSerch"), QStringLiteral("검색"),
                               PushButton::Look::Primary);
    run->OnClick = [this] { BtnSendListSerchClick(); };
    row->addWidget(run);

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
        DescribeBy(*date, i == 0 ? QStringLiteral("검색 시작일") : QStringLiteral("검색 종료일"));
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
        option->OnClick = [this] { BtnSendListSerchClick(); };
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
    // Meant: it turns the ticks round, whatever it shows itself.
    all_->OnClick = WhenIdle(services_.session, [this] { InvertMarks(*list_); });
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
        button->OnClick = WhenIdle(services_.session, [this, i] { BtnSendListFunClick(i); });
        row->addWidget(button);
        export_ = button; // the last one
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

void HistoryPage::Enter()
{
    search_->SetFocus();
    BtnSendListSerchClick();
}

void HistoryPage::BtnSendListSerchClick()
{
    if (services_.session.IsBusy() || !IsWithinOneYear())
        return;
    list_->SetReDraw(false);
    InitSendListGrid(*list_);
    list_->SetReDraw(true);
    WithDatabase(services_.db, [this] { RunQuery(dates_[0]->Value().left(4)); });
}

bool HistoryPage::IsWithinOneYear()
{
    if (dates_[0]->Value().left(4) == dates_[1]->Value().left(4))
        return true;
    services_.desktop.MsgBox(QStringLiteral("문자메시지 전송내역은 같은연도에 한해서 검색이 가능합니다.!"),
                             MsgBoxCritical, QStringLiteral("문자메시지 전송내역"));
    dates_[0]->setFocus(Qt::OtherFocusReason);
    return false;
}

void HistoryPage::RunQuery(const QString& period)
{
    ReportingErrors(services_.db, [&] { WhileScreenBusy(services_, [&] { FillList(period); }); });
}

void HistoryPage::FillList(const QString& period)
{
    services_.db.Select(SendListStatement(Asked(period)), [this](const Recordset& records) {
        list_->Cells().SetMaxRows(records.RecordCount());
        list_->SetDataSource(std::make_shared<RecordsetCells>(services_.db.ShareRecords()));
        ShowCount(records.RecordCount());
        SetFirstMarks(*list_, services_.clock.Date());
    });
}

SendListSearch HistoryPage::Asked(const QString& period)
{
    SendListSearch search;
    search.period = period;
    search.field = field_->ListIndex();
    search.words = search_->Text();
    search.status = ChosenStatus();
    search.first = dates_[0]->Value();
    search.dayAfterLast = QDate::fromString(dates_[1]->Value(), Qt::ISODate).addDays(1).toString(Qt::ISODate);
    return search;
}

/// 0, all, unless one of the others is chosen.
int HistoryPage::ChosenStatus() const
{
    const auto chosen = std::find_if(status_.begin() + 1, status_.end(),
                                     [](const RadioButton* option) { return option->Value(); });
    return chosen == status_.end() ? 0 : static_cast<int>(chosen - status_.begin());
}

void HistoryPage::ShowCount(int records)
{
    all_->setEnabled(records > 0);
    if (records < 1) {
        count_->SetCaption(QStringLiteral("(검색된 전송내역이 없습니다.)"));
        return;
    }
    count_->SetCaption(QStringLiteral("(총 : ") + FormatCount(records) +
                       QStringLiteral("건이 검색되었습니다.)"));
    all_->SetValue(false);
}

void HistoryPage::StatusClick()
{
    if (list_->Cells().MaxRows() == 0)
        return;
    const int row = list_->ActiveRow();
    if (MarkOf(*list_, row) == CheckLocked)
        services_.desktop.MsgBox(
            QStringLiteral("문자메시지 예약확인 : 이미 전송된 문자메시지는 취소가 불가능합니다."),
            MsgBoxCritical, QStringLiteral("문자메세지 예약취소"));
    else
        InvertMark(*list_, row);
}

void HistoryPage::BtnSendListFunClick(int index)
{
    if (list_->Cells().MaxRows() == 0)
        return;
    switch (index) {
    case 0:
        ShowDetail();
        break;
    case 1:
        CancelTicked();
        break;
    default:
        ShowTip(*export_, window_.exportGrid(*list_, QStringLiteral("문자메시지 발송내역")));
        break;
    }
}

void HistoryPage::ShowDetail()
{
    const GridHelper helper;
    const int row = list_->ActiveRow();
    const std::int32_t key = ToLong(helper.GetCellText(*list_, SendListKey, row));
    const QString period = helper.GetCellText(*list_, SendListTime, row).left(4);
    const auto searchAgain = [this] { BtnSendListSerchClick(); };
    dlgSMSShowDetail detail(services_, searchAgain, window());
    detail.Sp_SMSDeTail(key, period);
    detail.ShowModal();
}

void HistoryPage::CancelTicked()
{
    const std::int32_t ticked = CountTicked(*list_);
    if (ticked == 0) {
        services_.desktop.MsgBox(
            QStringLiteral("문자메시지 예약취소 : 예약취소 대상을 선택하지 않았습니다. 취소할 대상을 "
                           "체크하여 주십시오."),
            MsgBoxCritical, QStringLiteral("문자메시지 예약취소"));
        return;
    }
    const MsgBoxAnswer answer =
        services_.desktop.MsgBox(QStringLiteral("예약취소확인 : 총") + QString::number(ticked) +
                                     QStringLiteral("건에 대한 문자메시지를 예약취소 하시겠습니까.?"),
                                 MsgBoxQuestion, QStringLiteral("예약취소"));
    if (answer != AnswerYes)
        return;
    window_.cancel(GridSentRows(*list_), ticked);
    BtnSendListSerchClick();
}

} // namespace tsms
