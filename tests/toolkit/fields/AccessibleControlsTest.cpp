#include "session/Session.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/Naming.h"
#include "toolkit/windows/DialogForm.h"
#include "toolkit/windows/Form.h"

#include <gtest/gtest.h>

#include <QAccessible>

namespace tsms::test {

namespace {

QAccessibleInterface& Told(QWidget& control)
{
    return *QAccessible::queryAccessibleInterface(&control);
}

QString NameOf(QWidget& control)
{
    return Told(control).text(QAccessible::Name);
}

class AccessibleForm : public ::testing::Test
{
protected:
    Session session;
    ScriptedDesktop desktop;
};

TEST_F(AccessibleForm, IsAWindowOrADialogOfTheNameInItsTitle)
{
    Form window(session, desktop, u"frmTest"_q, Form::Kind::Main);
    Form dialog(session, desktop, u"dlgTest"_q, Form::Kind::Dialog);
    window.SetCaption(u"창"_q);
    EXPECT_EQ(Told(window).role(), QAccessible::Window);
    EXPECT_EQ(Told(dialog).role(), QAccessible::Dialog);
    EXPECT_EQ(NameOf(window), u"창"_q);
    EXPECT_EQ(NameOf(dialog), QString());
}

TEST(AccessiblePanel, IsNoWindowAndHasNoWords)
{
    Panel panel(nullptr, u"PictBg"_q);
    EXPECT_EQ(Told(panel).role(), QAccessible::Grouping);
    EXPECT_EQ(NameOf(panel), QString());
}

TEST(AccessibleLabel, SaysItsWordsAndNothingWithoutThem)
{
    Label label(nullptr, u"lblSMSCnt"_q);
    label.show();
    EXPECT_TRUE(Told(label).state().invisible);
    label.SetCaption(u"   "_q);
    EXPECT_TRUE(Told(label).state().invisible);
    label.SetCaption(u"3건"_q);
    EXPECT_FALSE(Told(label).state().invisible);
    EXPECT_EQ(NameOf(label), u"3건"_q);
    EXPECT_EQ(Told(label).role(), QAccessible::StaticText);
}

TEST(AccessibleLabel, AndItsFieldKnowEachOther)
{
    QWidget window;
    Label label(&window, u"Label1"_q, u"그룹 명칭 :"_q);
    ComboBox field(&window, u"CbGroup"_q);
    label.Describes(field);
    const auto labelled = Told(label).relations(QAccessible::Labelled);
    ASSERT_EQ(labelled.size(), 1);
    EXPECT_EQ(labelled[0].first->object(), &field);
    const auto labels = Told(field).relations(QAccessible::Label);
    ASSERT_EQ(labels.size(), 1);
    EXPECT_EQ(labels[0].first->object(), &label);
}

TEST(AccessibleComboBox, HasTheNameOfItsPurposeAndTheTextOfItsEntry)
{
    ComboBox box(nullptr, u"CbSerch"_q);
    DescribeBy(box, u"검색 항목"_q);
    box.AddItem(u"받는사람"_q);
    box.AddItem(u"수신번호"_q);
    box.SetListIndex(1);
    EXPECT_EQ(Told(box).role(), QAccessible::ComboBox);
    EXPECT_EQ(NameOf(box), u"검색 항목"_q);
    EXPECT_EQ(Told(box).text(QAccessible::Value), u"수신번호"_q);
    QAccessibleTextInterface& text = *Told(box).textInterface();
    EXPECT_EQ(text.text(0, text.characterCount()), u"수신번호"_q);
    EXPECT_EQ(text.text(2, 4), u"번호"_q);
}

TEST(AccessibleComboBox, OpensItsListByItsAction)
{
    ComboBox box(nullptr, u"CbSerch"_q);
    box.AddItem(u"받는사람"_q);
    box.show();
    EXPECT_FALSE(Told(box).state().expanded);
    Told(box).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_TRUE(Told(box).state().expanded);
    EXPECT_EQ(Told(box).child(0)->role(), QAccessible::List);
    Told(box).actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    EXPECT_FALSE(Told(box).state().expanded);
}

TEST(AccessibleChoices, AreToldWithoutTheGapBeforeTheirWords)
{
    RadioButton choice(nullptr, u"OptSendStatus(0)"_q, u" 전체"_q);
    EXPECT_EQ(NameOf(choice), u"전체"_q);
}

TEST(AccessiblePicture, AtTheHeadOfAStripIsSilent)
{
    PictureButton sign(nullptr, u"BtnTopFunc(0)"_q, u"program"_q, QString(), PictureButton::Look::Sign);
    sign.show();
    EXPECT_TRUE(Told(sign).state().invisible);
}

} // namespace

} // namespace tsms::test
