#include "runtime/CodePage949.h"
#include "support/program/Program.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QInputMethodEvent>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A Hangul field and how many bytes it takes.
struct HangulField
{
    QString name;
    int limit;
};

class Composing : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(program.Start()); }

    static bool AsksForHangul(const QWidget& field)
    {
        return field.testAttribute(Qt::WA_InputMethodEnabled) &&
               field.inputMethodHints().testFlag(Qt::ImhNoAutoUppercase) &&
               !field.inputMethodHints().testFlag(Qt::ImhPreferLatin);
    }

    /// Fills the field but for one byte and puts another syllable into its middle by an input method, which
    /// asks for two: while it is composed nothing is lost, and when it is finished it finds no room.
    void ExpectLimited(QWidget& window, const HangulField& field)
    {
        QWidget& control = program.On<QWidget>(window, field.name);
        auto& text = program.On<TextField>(window, field.name);
        EXPECT_TRUE(AsksForHangul(control)) << field.name.toStdString();
        const QString full = QString(field.limit / 2 - 1, u'가') + u'a';
        control.setFocus();
        text.SetText(full);
        EXPECT_EQ(text.Text(), full) << field.name.toStdString();
        text.SetSelStart(3);
        QInputMethodEvent composed(u"나"_q, {});
        QApplication::sendEvent(&control, &composed);
        EXPECT_EQ(text.Text(), full) << field.name.toStdString();
        CommitText(control, u"나"_q);
        EXPECT_EQ(text.Text(), full) << field.name.toStdString();
        text.SetText(full.chopped(1));
        CommitText(control, u"나"_q);
        EXPECT_EQ(ByteCount(text.Text()), field.limit) << field.name.toStdString();
        text.SetText(QString());
    }
    void ExpectLimitedInDialog(const QString& form, const QString& button, const HangulField& field)
    {
        WhenShown(form, [this, field](QWidget& dialog) {
            ExpectLimited(dialog, field);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(button);
    }

    Program program;
};

TEST_F(Composing, KeepsTheLimitOfTheMessage)
{
    ExpectLimited(*program.form, {u"TxtPerSendMsg"_q, 80});
}

TEST_F(Composing, BelongsToTheTextThatIsReplacedAndDoesNotComeAgain)
{
    QWidget& message = program.Control(u"TxtPerSendMsg"_q);
    auto& text = program.The<TextField>(u"TxtPerSendMsg"_q);
    QInputMethodEvent composed(u"녕"_q, {});
    QApplication::sendEvent(&message, &composed);
    text.PutText(u"서식"_q);
    QInputMethodEvent again; // as input methods send it that are told to end
    again.setCommitString(u"녕"_q);
    QApplication::sendEvent(&message, &again);
    EXPECT_EQ(text.Text(), u"서식"_q);
    text.Undo();
    EXPECT_EQ(text.Text(), u"녕"_q);
}

TEST_F(Composing, KeepsTheLimitOfATemplatesTitle)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    ExpectLimited(*program.form, {u"txtEditSubject"_q, 40});
}

TEST_F(Composing, KeepsTheLimitInCharactersOfATemplatesBody)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    QWidget& body = program.Control(u"txtEditBox"_q);
    EXPECT_TRUE(AsksForHangul(body));
    const QString full(160, u'가');
    program.The<TextField>(u"txtEditBox"_q).SetText(full);
    CommitText(body, u"나"_q);
    EXPECT_EQ(program.The<TextField>(u"txtEditBox"_q).Text(), full);
}

TEST_F(Composing, KeepsTheLimitOfTheReplyName)
{
    ExpectLimitedInDialog(u"dlgSMSSetup"_q, u"BtnToolbarDis(4)"_q, {u"txtUpdate(4)"_q, 50});
}

TEST_F(Composing, KeepsTheLimitOfARemark)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    ExpectLimitedInDialog(u"dlgSMSCharge"_q, u"BtnChargeFunc(0)"_q, {u"txtUpdate(4)"_q, 200});
}

TEST_F(Composing, KeepsTheLimitsOfTheNamesInTheAddressBook)
{
    WhenShown(u"dlgSMSGroupSelect"_q, [this](QWidget& book) {
        const auto look = [&](const QString& form, const QString& button, const HangulField& field) {
            WhenShown(form, [this, field](QWidget& dialog) {
                ExpectLimited(dialog, field);
                PressKey(dialog, Qt::Key_Escape);
            });
            ClickOn(program.On<QWidget>(book, button));
        };
        look(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, {u"txtGroupNm"_q, 40});
        look(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, {u"txtGroupSub(0)"_q, 40});
        PressKey(book, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(0)"_q);
}

} // namespace
