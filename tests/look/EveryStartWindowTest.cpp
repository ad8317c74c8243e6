#include "look/LayoutFaults.h"
#include "look/SpeechFaults.h"
#include "start/Starter.h"
#include "support/server/TestServer.h"
#include "toolkit/fields/Controls.h"

#include <gtest/gtest.h>

namespace tsms::test {

namespace {

void ExpectWhole(QWidget& window)
{
    Settle();
    const LayoutFaults layout(window);
    EXPECT_EQ(layout.faults.join(u'\n'), QString()) << window.objectName().toStdString();
    EXPECT_GE(layout.looked, 3) << window.objectName().toStdString();
    const SpeechFaults speech(window);
    EXPECT_EQ(speech.faults.join(u'\n'), QString()) << window.objectName().toStdString();
    EXPECT_GE(speech.looked, 1) << window.objectName().toStdString();
}

/// Every control that the Tab key comes to, beginning with the one that has the focus.
QStringList TabOrder(QWidget& window)
{
    QStringList names;
    for (int step = 0; step < 40; ++step) {
        const QString name = window.focusWidget()->objectName();
        if (names.contains(name))
            break;
        names += name;
        PressKey(*window.focusWidget(), Qt::Key_Tab);
    }
    return names;
}

class EveryStartWindow : public ::testing::Test
{
protected:
    EveryStartWindow() : saved_(starter_.Add(database_, u"본사 데이터베이스"_q)) { starter_.Open(); }

    void Within(const QString& dialog, int button, const std::function<void(QWidget&)>& act)
    {
        starter_.Within(dialog, u"BtnConnection(%1)"_q.arg(button), [&act](QWidget& shown) {
            act(shown);
            PressKey(shown, Qt::Key_Escape);
        });
    }

    Starter starter_;
    TestDatabase database_{starter_.clock, {2012, 2012}, TestEngine::Server};
    SavedConnection saved_;
};

} // namespace

TEST_F(EveryStartWindow, IsWholeAndTellsAScreenReaderWhatItHolds)
{
    ExpectWhole(*starter_.window);
    Within(u"ConnectionDialog"_q, 0, [this](QWidget& dialog) {
        ExpectWhole(dialog);
        ClickOn(starter_.On<QWidget>(dialog, u"OptKind(1)"_q));
        ExpectWhole(dialog);
    });
    WhenShown(u"PasswordDialog"_q, [](QWidget& dialog) {
        ExpectWhole(dialog);
        PressKey(dialog, Qt::Key_Escape);
    });
    starter_.Click(u"BtnFunc(0)"_q);
    Within(u"PrepareDialog"_q, 4, [this](QWidget& dialog) {
        starter_.Type(dialog, 1, PasswordOf(database_));
        ClickOn(starter_.On<QWidget>(dialog, u"BtnLook"_q));
        AwaitWork();
        ExpectWhole(dialog);
    });
    saved_.keepsPassword = true;
    starter_.connections.Put(saved_);
    starter_.passwords.kept[saved_.id] = PasswordOf(database_);
    Within(u"TestDialog"_q, 3, [](QWidget& dialog) {
        AwaitWork();
        ExpectWhole(dialog);
    });
    database_.Server()->StaySilentAtPreLogIn();
    Within(u"TestDialog"_q, 3, ExpectWhole);
}

TEST_F(EveryStartWindow, IsWalkedThroughByTheTabKeyInTheOrderInWhichItIsRead)
{
    EXPECT_EQ(TabOrder(*starter_.window),
              (QStringList{u"fpSpreadConnections"_q, u"BtnConnection(0)"_q, u"BtnConnection(1)"_q,
                           u"BtnConnection(2)"_q, u"BtnConnection(3)"_q, u"BtnConnection(4)"_q,
                           u"BtnFunc(0)"_q, u"BtnFunc(1)"_q}));
    Within(u"ConnectionDialog"_q, 0, [this](QWidget& dialog) {
        EXPECT_EQ(TabOrder(dialog), (QStringList{u"txtUpdate(0)"_q, u"OptKind(0)"_q, u"txtUpdate(2)"_q,
                                                 u"BtnPickFile"_q, u"ChkDemo"_q, u"txtUpdate(8)"_q,
                                                 u"txtUpdate(9)"_q, u"BtnFunc(0)"_q, u"BtnFunc(1)"_q}));
        ClickOn(starter_.On<QWidget>(dialog, u"OptKind(1)"_q));
        starter_.On<QWidget>(dialog, u"txtUpdate(0)"_q).setFocus();
        EXPECT_EQ(TabOrder(dialog),
                  (QStringList{u"txtUpdate(0)"_q, u"OptKind(1)"_q, u"txtUpdate(3)"_q, u"txtUpdate(4)"_q,
                               u"txtUpdate(5)"_q, u"txtUpdate(6)"_q, u"txtUpdate(7)"_q, u"ChkKeep"_q,
                               u"txtUpdate(8)"_q, u"txtUpdate(9)"_q, u"BtnFunc(0)"_q, u"BtnFunc(1)"_q}));
    });
    Within(u"PrepareDialog"_q, 4, [](QWidget& dialog) {
        EXPECT_EQ(TabOrder(dialog),
                  (QStringList{u"txtUpdate(0)"_q, u"txtUpdate(1)"_q, u"txtUpdate(2)"_q, u"txtUpdate(3)"_q,
                               u"BtnLook"_q, u"txtScript"_q, u"BtnFunc(0)"_q, u"BtnFunc(1)"_q}));
    });
}

} // namespace tsms::test
