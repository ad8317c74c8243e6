#include "look/LayoutFaults.h"
#include "support/program/Program.h"
#include "templates/CardLabel.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QHeaderView>
#include <QScreen>
#include <QScrollBar>

using namespace tsms;
using namespace tsms::test;

namespace {

class Layout : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_EQ(qApp->devicePixelRatio(), qEnvironmentVariable("QT_SCALE_FACTOR", u"1"_q).toDouble());
        ASSERT_TRUE(program.Start());
    }

    bool OnSmallDesk() const { return program.form->screen()->availableSize().height() < 700; }
    void ExpectGood(const QWidget& window, int leastControls)
    {
        Settle();
        const LayoutFaults found(window);
        EXPECT_EQ(found.faults.join(u'\n'), QString());
        EXPECT_GE(found.looked, leastControls); // or the looking itself has failed
    }

    /// Lists a message on the history page whose fields are as long as they come.
    void ListLongMessage()
    {
        program.database.Execute(
            u"INSERT INTO SMSLog_2012 (SMSStatus, SMSNo, SendNm, SendTelNo, SMSContent, SendTime, ErrCd, "
            u"ErrMsg) "
            u"VALUES ('1', '100001', '%1', '010-1234-5678', '%2', '2012-05-31-10-00', 'E305', '%3')"_q.arg(
                u"한빛마을도서관 자원봉사자 모임 대표 "_q.repeated(2), u"가나다라"_q.repeated(10),
                u"수신자의 휴대전화가 꺼져 있거나 통화권 밖에 있어 전송하지 못했습니다. "_q.repeated(2)));
        program.The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(program.clock.Date().addDays(1));
        program.Click(u"BtnToolbarDis(1)"_q);
        ClickCell(program.The<fpSpread>(u"fpSpreadSendList"_q), 2, 1);
    }
    void ExpectGoodDialog(const QString& button, const QString& form, int leastControls)
    {
        WhenShown(form, [this, leastControls](QWidget& dialog) {
            ExpectGood(dialog, leastControls);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(button);
    }
    void AddTemplate(const QString& body)
    {
        program.database.Execute(u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) "
                                 u"VALUES (1,'제목이 조금 길어도','%1')"_q.arg(body));
    }
    void AddCategory(const QString& name)
    {
        program.database.Execute(u"INSERT INTO SMSTempLMst VALUES (1,'%1')"_q.arg(name));
    }
    /// The template page, and the compose page again behind it: both with what the database holds now.
    void EnterBothPages()
    {
        program.Click(u"BtnToolbarDis(3)"_q);
        program.Click(u"BtnToolbarDis(0)"_q);
    }

    Program program;
};

TEST_F(Layout, NothingIsCutOrOverlapsOnTheComposePage)
{
    ExpectGood(*program.form, 30);
}

TEST_F(Layout, NothingIsCutOrOverlapsOnTheHistoryPage)
{
    program.Click(u"BtnToolbarDis(1)"_q);
    ExpectGood(*program.form, 24);
}

TEST_F(Layout, NothingIsCutOrOverlapsOnTheHistoryPageWithTheMostRowsThatAreCounted)
{
    ListLongMessage();
    program.The<Label>(u"LblSendListCnt"_q).SetCaption(u"(총 : 2,147,483,647건이 검색되었습니다.)"_q);
    ExpectGood(*program.form, 24);
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheDetailDialog)
{
    ListLongMessage();
    ExpectGoodDialog(u"BtnSendListFun(0)"_q, u"dlgSMSShowDetail"_q, 14);
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheCancellationDialog)
{
    ListLongMessage();
    program.desktop.Expect({u"예약취소"_q,
                            u"예약취소확인 : 총1건에 대한 문자메시지를 예약취소 하시겠습니까.?"_q,
                            MsgBoxQuestion},
                           AnswerYes);
    ExpectGoodDialog(u"BtnSendListFun(1)"_q, u"MakeSMSTransport"_q, 16);
}

TEST_F(Layout, NothingIsCutOrOverlapsOnTheChargePage)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    ExpectGood(*program.form, 18);
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheChargeDialog)
{
    program.Click(u"BtnToolbarDis(2)"_q);
    WhenShown(u"dlgSMSCharge"_q, [this](QWidget& dialog) {
        ExpectGood(dialog, 10);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnChargeFunc(0)"_q);
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheSettings)
{
    WhenShown(u"dlgSMSSetup"_q, [this](QWidget& dialog) {
        ExpectGood(dialog, 14);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnToolbarDis(4)"_q);
}

TEST_F(Layout, NothingIsCutOrOverlapsOnTheTemplatePage)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    ExpectGood(*program.form, 36);
}

TEST_F(Layout, NothingIsCutOrOverlapsWithTemplatesOnTheCards)
{
    AddCategory(u"행사 안내"_q);
    for (int card = 1; card <= 8; ++card)
        AddTemplate(QString(20 * card, u'가'));
    EnterBothPages();
    ExpectGood(*program.form, 30);
    program.Click(u"BtnToolbarDis(3)"_q);
    ExpectGood(*program.form, 36);
}

TEST_F(Layout, AMessageOfEightyBytesIsWholeOnTheCardsOfBothPages)
{
    AddCategory(u"행사 안내"_q);
    QStringList messages{QString(40, u'가')};
    if (!OnSmallDesk()) // where the cards shrink; they show the rest in a tool tip then
        messages << QString(80, u'W') << u"한 줄\r\n\r\n세 줄\r\n\r\n\r\n여섯\r\n일곱"_q;
    for (const QString& message : messages)
        AddTemplate(message);
    EnterBothPages();
    for (int card = 1; card <= messages.size(); ++card)
        for (const QString& name : {u"LblTmpContent(%1)"_q, u"LblTmpContentEdit(%1)"_q}) {
            const auto& body = program.The<CardLabel>(name.arg(card));
            EXPECT_EQ(body.Caption(), messages[card - 1]);
            EXPECT_FALSE(body.Shown().cut) << body.Caption().toStdString();
        }
}

TEST_F(Layout, TheHeadingsOfAPageStandInLine)
{
    const auto middle = [this](const QString& name) {
        QWidget& heading = program.Control(name);
        return heading.mapTo(program.form.get(), heading.rect().center()).y();
    };
    EXPECT_EQ(middle(u"Label2(0)"_q), middle(u"Label2(1)"_q));
    program.Click(u"BtnToolbarDis(3)"_q);
    EXPECT_EQ(middle(u"Label2(4)"_q), middle(u"Label2(2)"_q));
}

TEST_F(Layout, ALongCategoryNameMovesNothing)
{
    const QStringList names{u"CbTempCd"_q, u"CbSMSGroup(0)"_q, u"CbSMSGroup(1)"_q, u"Label2(1)"_q,
                            u"Label2(2)"_q};
    const QString longest(50, u'가'); // as long as the column takes
    EnterBothPages();
    QList<QRect> places;
    QList<QSize> hints;
    for (const QString& name : names) {
        places += program.Control(name).geometry();
        hints += program.Control(name).sizeHint();
    }
    AddCategory(longest);
    EnterBothPages();
    Settle();
    EXPECT_EQ(program.The<ComboBox>(u"CbTempCd"_q).Text(), longest);
    for (int i = 0; i < names.size(); ++i) {
        EXPECT_EQ(program.Control(names[i]).geometry(), places[i]) << names[i].toStdString();
        EXPECT_EQ(program.Control(names[i]).sizeHint(), hints[i]) << names[i].toStdString();
    }
}

TEST_F(Layout, NothingIsCutOrOverlapsInThePopups)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    program.Click(u"BtnFuncDocEdit(0)"_q);
    ExpectGood(program.Control(u"PlDocEdit(0)"_q), 1);
    program.Click(u"BtnFuncDocEdit(1)"_q);
    ExpectGood(program.Control(u"PlDocEdit(1)"_q), 5);
}

TEST_F(Layout, ThePopupsLeaveTheEditorInView)
{
    program.Click(u"BtnToolbarDis(3)"_q);
    for (int popup : {0, 1}) {
        program.Click(u"BtnFuncDocEdit(%1)"_q.arg(popup));
        const QRect over = program.Control(u"PlDocEdit(%1)"_q.arg(popup)).geometry();
        for (const QString& name : {u"txtEditSubject"_q, u"txtEditBox"_q, u"LblEditLength"_q, u"Label13"_q,
                                    u"BtnFuncDocEdit(1)"_q, u"BtnFuncDoc(2)"_q}) {
            QWidget& control = program.Control(name);
            const QRect under(control.mapTo(program.form.get(), QPoint()), control.size());
            EXPECT_FALSE(over.intersects(under)) << name.toStdString();
        }
    }
}

TEST_F(Layout, TheLargestBalanceIsNotCut)
{
    program.session.SMSRemainCnt = 2147483647;
    program.session.AnnounceBalance();
    ExpectGood(program.Control(u"Picture1"_q), 2);
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheDispatchDialog)
{
    program.Write(u"안녕하세요"_q);
    program.List({{u"김하늘"_q, u"010-0000-0001"_q}});
    WhenShown(u"MakeSMSTransport"_q, [this](QWidget& dialog) {
        ExpectGood(dialog, 20);
        ClickOn(program.On<QWidget>(dialog, u"ChkTime"_q));
        ExpectGood(dialog, 20);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnSend(0)"_q);
}

class AddressBookLayout : public Layout
{
protected:
    void SetUp() override
    {
        const QString longest = QString(u"가"_q).repeated(20); // 40 bytes
        program.database.Execute(
            u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('청년부'), ('%1')"_q.arg(longest));
        program.database.Execute(
            u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES "
            "(1, '김하늘', '010-0000-0001'), (2, '%1', '010-0000-00012')"_q.arg(longest));
        Layout::SetUp();
    }

    /// Runs `look` in the address book, which is then left.
    void InBook(std::function<void(QWidget& book)> look)
    {
        WhenShown(u"dlgSMSGroupSelect"_q, [look](QWidget& book) {
            look(book);
            PressKey(book, Qt::Key_Escape);
        });
        program.Click(u"BtnFuncMain(0)"_q);
    }

    void InDialog(QWidget& book, const QString& form, const QString& button, int leastControls)
    {
        WhenShown(form, [this, leastControls](QWidget& dialog) {
            ExpectGood(dialog, leastControls);
            PressKey(dialog, Qt::Key_Escape);
        });
        ClickOn(program.On<QWidget>(book, button));
    }
};

TEST_F(AddressBookLayout, NothingIsCutOrOverlapsInEitherViewOfTheAddressBook)
{
    InBook([this](QWidget& book) {
        ExpectGood(book, 11);
        ClickOn(program.On<QWidget>(book, u"OptType(1)"_q));
        ExpectGood(book, 10);
    });
}

TEST_F(AddressBookLayout, TheListsFitTheirColumnsAndShowWholeRows)
{
    InBook([this](QWidget& book) {
        for (const QString& name : {u"fpSpreadMst"_q, u"fpSpread"_q}) {
            const auto& grid = program.On<fpSpread>(book, name);
            EXPECT_FALSE(grid.horizontalScrollBar()->isVisible()) << name.toStdString();
            EXPECT_EQ(grid.viewport()->height() % grid.verticalHeader()->defaultSectionSize(), 0)
                << name.toStdString();
        }
    });
}

TEST_F(AddressBookLayout, NothingMovesWhenTheFilterGoes)
{
    InBook([this](QWidget& book) {
        QWidget& add = program.On<QWidget>(book, u"BtnAdd(0)"_q);
        const QRect before = add.geometry();
        const QSize size = book.size();
        ClickOn(program.On<QWidget>(book, u"OptType(1)"_q));
        Settle();
        EXPECT_EQ(add.geometry(), before);
        EXPECT_EQ(book.size(), size);
    });
}

TEST_F(AddressBookLayout, TheAddressBookKeepsInsideTheMainWindowWhateverTheNames)
{
    InBook([this](QWidget& book) {
        EXPECT_LE(book.width(), program.form->width());
        EXPECT_LE(book.height(), program.form->height());
    });
}

TEST_F(AddressBookLayout, NothingIsCutOrOverlapsInTheDialogsOfGroupsAndMembers)
{
    InBook([this](QWidget& book) {
        InDialog(book, u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, 5);
        InDialog(book, u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, 8);
    });
}

TEST_F(Layout, NothingIsCutOrOverlapsInTheImportDialog)
{
    WhenShown(u"MakeSMSExcel"_q, [this](QWidget& dialog) {
        ExpectGood(dialog, 18);
        program.On<Label>(dialog, u"LblTotalCnt"_q).SetCaption(u"32767건"_q);
        program.On<Label>(dialog, u"LblLoseCnt"_q).SetCaption(u"32767건"_q);
        program.On<Label>(dialog, u"lblCountNm"_q)
            .SetCaption(u"■ 엑셀데이터에 있는 휴대번호를 검증합니다....      총 : 65536, 현 : 65536"_q);
        ExpectGood(dialog, 18);
        PressKey(dialog, Qt::Key_Escape);
    });
    program.Click(u"BtnFuncMain(1)"_q);
}

} // namespace
