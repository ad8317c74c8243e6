#include "account/AccountPage.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/grid/fpSpread.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class AccountPageTest : public ::testing::Test
{
protected:
    /// As at the load of the window, which is busy.
    void Load()
    {
        session.Busy = true;
        page.Load();
        session.Busy = false;
    }

    QString YearIn(int year)
    {
        clock.Set(QDateTime(QDate(year, 6, 1), QTime(9, 0)));
        Load();
        return page.findChild<ComboBox*>(u"CbMonthYear"_q)->Text();
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    AccountPage page{services, {[] { return 1; }, {}}, nullptr};
};

PushButton& Button(AccountPage& page, int index)
{
    return *page.findChild<PushButton*>(u"BtnChargeFunc(%1)"_q.arg(index));
}

TEST_F(AccountPageTest, OffersElevenYearsHoweverOftenItIsLoaded)
{
    Load();
    Load();
    const auto* years = page.findChild<ComboBox*>(u"CbMonthYear"_q);
    ASSERT_EQ(years->ListCount(), 11);
    EXPECT_EQ(years->List(0), u"2010년"_q);
    EXPECT_EQ(years->List(10), u"2020년"_q);
}

TEST_F(AccountPageTest, ChoosesThePresentYearOrTheNearestOne)
{
    EXPECT_EQ(YearIn(2012), u"2012년"_q);
    EXPECT_EQ(YearIn(2020), u"2020년"_q);
    EXPECT_EQ(YearIn(2026), u"2020년"_q);
    EXPECT_EQ(YearIn(2009), u"2010년"_q);
}

TEST_F(AccountPageTest, ShowsTheMonthGridWhole)
{
    page.resize(970, 586);
    page.show();
    const auto* months = page.findChild<fpSpread*>(u"fpSpreadMonth"_q);
    const QModelIndex last = months->model()->index(3, 12);
    EXPECT_TRUE(months->viewport()->rect().contains(months->visualRect(last)));
}

TEST_F(AccountPageTest, BearsItsCaptions)
{
    const QStringList captions{u"등록"_q, u"삭제"_q, u"엑셀변환"_q, u"엑셀변환"_q};
    for (int i = 0; i < captions.size(); ++i)
        EXPECT_EQ(Button(page, i).Caption(), captions[i]);
    const std::pair<QString, QString> labels[] = {
        {u"LblChargeTitle"_q, u"요금충전현황"_q},
        {u"LblChargeNote"_q, u"(문자메시지 충전내역을 등록하시면 잔여발송건수를 계산하여 드립니다.)"_q},
        {u"LblMonthTitle"_q, u"월별발송현황"_q},
        {u"LblMonthNote"_q, u"(검색하실 연도를 선택하여 주십시오.)"_q}};
    for (const auto& [name, words] : labels)
        EXPECT_EQ(page.findChild<Label*>(name)->Caption(), words);
}

class ExportingPage : public AccountPageTest
{
protected:
    QStringList exported;
    AccountPage exporting{services,
                          {[] { return 1; },
                           [this](const fpSpread& grid, const QString& title) {
                               exported += grid.objectName() + u" "_q + title;
                               return u"told of "_q + title;
                           }},
                          nullptr};
};

TEST_F(ExportingPage, EachGridGoesOutUnderItsTitle)
{
    Button(exporting, 2).Click();
    Button(exporting, 3).Click();
    EXPECT_EQ(exported, (QStringList{u"fpSpreadCharge 요금충전현황"_q, u"fpSpreadMonth 월별발송현황"_q}));
    EXPECT_TRUE(Button(exporting, 2).toolTip().contains(u"told of 요금충전현황"_q));
    EXPECT_TRUE(Button(exporting, 3).toolTip().contains(u"told of 월별발송현황"_q));
}

TEST_F(ExportingPage, NoButtonActsWhileBusy)
{
    session.Busy = true;
    for (int i = 0; i < 4; ++i)
        Button(exporting, i).Click();
    EXPECT_EQ(exported, QStringList());
    EXPECT_TRUE(desktop.events.isEmpty());
}

} // namespace

} // namespace tsms::test
