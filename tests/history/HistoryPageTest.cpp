#include "history/HistoryPage.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Pictures.h"

#include <QTest>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class HistoryPageTest : public ::testing::Test
{
protected:
    template <class W> W& The(const QString& name)
    {
        auto* found = page.findChild<W*>(name);
        if (!found)
            throw std::runtime_error(name.toStdString());
        return *found;
    }

    /// Under Busy, like the load of the window.
    void Load()
    {
        session.Busy = true;
        page.Load();
        session.Busy = false;
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    HistoryPage page{services, {}, nullptr};
};

TEST_F(HistoryPageTest, StartsWithTodayAllFieldsAndAllStatuses)
{
    Load();
    EXPECT_EQ(The<DatePicker>(u"DTPSendDt(0)"_q).Value(), u"2012-05-30"_q);
    EXPECT_EQ(The<DatePicker>(u"DTPSendDt(1)"_q).Value(), u"2012-05-30"_q);
    EXPECT_EQ(The<ComboBox>(u"CbSerch"_q).ListIndex(), 0);
    EXPECT_TRUE(The<RadioButton>(u"OptSendStatus(0)"_q).Value());
}

TEST_F(HistoryPageTest, OffersThreeFieldsInTheirOrder)
{
    auto& field = The<ComboBox>(u"CbSerch"_q);
    ASSERT_EQ(field.ListCount(), 3);
    EXPECT_EQ(field.List(0), u"받는사람"_q);
    EXPECT_EQ(field.List(1), u"수신번호"_q);
    EXPECT_EQ(field.List(2), u"보낸메시지"_q);
}

TEST_F(HistoryPageTest, BearsItsCaptions)
{
    const std::pair<QString, QString> options[] = {{u"OptSendStatus(0)"_q, u" 전체"_q},
                                                   {u"OptSendStatus(1)"_q, u" 예약중"_q},
                                                   {u"OptSendStatus(2)"_q, u" 완료"_q},
                                                   {u"OptSendStatus(3)"_q, u" 실패"_q}};
    for (const auto& [name, caption] : options)
        EXPECT_EQ(The<RadioButton>(name).Caption(), caption);
    EXPECT_EQ(The<PushButton>(u"BtnSendListSerch"_q).Caption(), u"검색"_q);
    EXPECT_EQ(The<PushButton>(u"BtnSendListFun(0)"_q).Caption(), u"상세보기"_q);
    EXPECT_EQ(The<PushButton>(u"BtnSendListFun(1)"_q).Caption(), u"예약취소"_q);
    EXPECT_EQ(The<PushButton>(u"BtnSendListFun(2)"_q).Caption(), u"엑셀변환"_q);
    EXPECT_EQ(The<CheckBox>(u"chkAll"_q).Caption(), u"선택"_q);
    EXPECT_EQ(The<Label>(u"LblSerchTitle"_q).Caption(), u"문자메시지 내역검색"_q);
    EXPECT_EQ(The<Label>(u"LblSendListTitle"_q).Caption(), u"문자메시지 발송내역"_q);
    EXPECT_EQ(The<Label>(u"LblSendListNote"_q).Caption(), u"예약취소는 발송 1일전까지만 가능합니다."_q);
}

TEST_F(HistoryPageTest, ChoosingAFieldMovesTheFocusToTheTextUnlessBusy)
{
    page.show();
    page.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
    Load();
    auto& field = The<ComboBox>(u"CbSerch"_q);
    auto& text = The<TextBox>(u"txtSerch"_q);
    field.setFocus();
    session.Busy = true;
    field.SetListIndex(1);
    EXPECT_FALSE(text.hasFocus());
    session.Busy = false;
    field.SetListIndex(2);
    EXPECT_TRUE(text.hasFocus());
}

TEST_F(HistoryPageTest, TheSearchTextIsHeldToFiftyBytes)
{
    auto& text = The<TextBox>(u"txtSerch"_q);
    text.SetText(QString(26, u'가'));
    EXPECT_EQ(text.Text(), QString(25, u'가'));
}

TEST_F(HistoryPageTest, TheListKnowsItsThreeMarksInTheirOrder)
{
    auto& list = The<fpSpread>(u"fpSpreadSendList"_q);
    list.Cells().SetMaxRows(1);
    const std::pair<CheckPicture, QString> marks[] = {
        {CheckEmpty, u"check-empty"_q}, {CheckTicked, u"check-ticked"_q}, {CheckLocked, u"check-locked"_q}};
    const QSize size(16, 16);
    for (const auto& [mark, name] : marks) {
        list.Cells().SetCellPicture(2, 1, mark);
        const auto shown = list.model()->index(0, 1).data(Qt::DecorationRole).value<QIcon>();
        EXPECT_EQ(shown.pixmap(size).toImage(), PictureIcon(name).pixmap(size).toImage())
            << name.toStdString();
    }
}

} // namespace

} // namespace tsms::test
