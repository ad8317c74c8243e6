#include "templates/TemplatePage.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/MemoBox.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/grid/fpSpread.h"

#include <QApplication>
#include <QTest>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class TemplatePageTest : public ::testing::Test
{
protected:
    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    QWidget window;
    fpSpread cache;
    QWidget* editor = new QWidget(&window);
    TextBox* title = new TextBox(editor, u"title"_q);
    MemoBox* body = new MemoBox(editor, u"body"_q);
    TemplatePage page{services, cache, {editor, *body, *title, [] {}}, &window};
};

TEST_F(TemplatePageTest, BearsItsCaptions)
{
    EXPECT_EQ(page.findChild<PushButton*>(u"BtnFuncDoc(0)"_q)->Caption(), u"신규"_q);
    EXPECT_EQ(page.findChild<PushButton*>(u"BtnFuncDoc(1)"_q)->Caption(), u"저장"_q);
    EXPECT_EQ(page.findChild<PushButton*>(u"BtnFuncDoc(2)"_q)->Caption(), u"삭제"_q);
    EXPECT_EQ(page.findChild<Label*>(u"Label2(4)"_q)->Caption(), u"문자메시지 서식편집"_q);
    EXPECT_EQ(page.findChild<Label*>(u"Label10"_q)->Caption(), u"분류"_q);
    EXPECT_EQ(
        page.findChild<Label*>(u"Label5(2)"_q)->Caption(),
        u"문구자동변환을 하실때는 문자서식에 반드시 \"[\",\"]\" 표기를 하시고 \"받는사람\",\"보내는사람\"을 기재"_q);
}

TEST_F(TemplatePageTest, TabRunsFromTheCategoryThroughTheFieldsToTheCards)
{
    page.resize(970, 586);
    window.resize(970, 586);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    page.findChild<ComboBox*>(u"CbSMSGroup(1)"_q)->setFocus();
    QStringList order;
    for (int i = 0; i < 7; ++i) {
        order << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order.join(u' '),
              u"CbSMSGroup(1) title body BtnFuncDoc(0) BtnFuncDoc(1) BtnFuncDoc(2) CbSMSGroup(0)"_q);
}

} // namespace

} // namespace tsms::test
