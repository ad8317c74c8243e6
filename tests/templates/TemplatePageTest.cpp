#include "templates/TemplatePage.h"
#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "templates/TemplateCards.h"
#include "toolkit/ComboBox.h"

#include <QLineEdit>
#include <QTest>

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

class TemplatePageTest : public ::testing::Test
{
protected:
    TemplatePageTest()
    {
        title->setObjectName(u"title"_q);
        body->setObjectName(u"body"_q);
    }

    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    DBConnect db{session, desktop, {}};
    ModSMS sms{session, db, desktop, clock, QString()};
    Services services{session, desktop, clock, db, sms};
    QWidget window;
    QWidget* editor = new QWidget(&window);
    QLineEdit* title = new QLineEdit(editor);
    QLineEdit* body = new QLineEdit(editor);
    TemplatePage page{services, editor, &window};
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
    for (auto* button : page.findChildren<PushButton*>())
        button->setEnabled(true);
    page.resize(970, 586);
    window.resize(970, 586);
    window.show();
    window.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    page.Category().setFocus();
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
