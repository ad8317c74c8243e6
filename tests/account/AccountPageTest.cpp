#include "account/AccountPage.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/ComboBox.h"
#include "toolkit/fpSpread.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class AccountPageTest : public ::testing::Test
{
protected:
    QString YearIn(int year)
    {
        clock.Set(QDateTime(QDate(year, 6, 1), QTime(9, 0)));
        page.Load();
        return page.findChild<ComboBox*>(u"CbMonthYear"_q)->Text();
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    AccountPage page{services, nullptr};
};

TEST_F(AccountPageTest, OffersElevenYearsHoweverOftenItIsLoaded)
{
    page.Load();
    page.Load();
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
    auto& months = page.MonthGrid();
    const QModelIndex last = months.model()->index(3, 12);
    EXPECT_TRUE(months.viewport()->rect().contains(months.visualRect(last)));
}

TEST_F(AccountPageTest, BearsItsCaptions)
{
    const std::pair<QString, QString> buttons[] = {{u"BtnChargeFunc(0)"_q, u"등록"_q},
                                                   {u"BtnChargeFunc(1)"_q, u"삭제"_q},
                                                   {u"BtnChargeFunc(2)"_q, u"엑셀변환"_q},
                                                   {u"BtnChargeFunc(3)"_q, u"엑셀변환"_q}};
    for (const auto& [name, caption] : buttons)
        EXPECT_EQ(page.findChild<PushButton*>(name)->Caption(), caption);
}

} // namespace

} // namespace tsms::test
