#include "e2e/PictureBook.h"

#include "shell/Main.h"
#include "store/engine/ConnectionText.h"
#include "store/engine/DatabaseError.h"
#include "support/program/Hands.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/look/Pictures.h"
#include "tsms-db/Demo.h"

#include <gtest/gtest.h>

#include <QFile>
#include <QScreen>
#include <QtTest/QTest>

#include <algorithm>

namespace tsms::test {

namespace {

const QList<QStringList> Recipients{{u"김하늘"_q, u"010-0000-0001"_q}, {u"이바다"_q, u"010-0000-0002"_q},
                                    {u"박나무"_q, u"011-000-0003"_q},  {u"최구름"_q, u"016-000-0004"_q},
                                    {u"정노을"_q, u"010-0000-0005"_q}, {u"한별"_q, u"02-000-0006"_q}};
constexpr int MobileRecipients = 5;
const QString Message = u"[받는사람]님, 내일 모임은 저녁 7시입니다.\n[보내는사람]"_q;

/// So that a box shows that has lost its window.
void PlaceOffTheMiddle(QWidget& window)
{
    const QSize room = window.screen()->availableSize() - window.size();
    window.move(std::min(40, room.width()), std::min(30, room.height()));
}

} // namespace

PictureBook::PictureBook(PictureDesk::TakePicture take, const QString& home)
    : take_(std::move(take)),
      home_(home),
      database_(clock_),
      connections_(database_.Connections()),
      gateway_(clock_),
      desk_([this](QWidget& of, const QString& name) { Take(of, name); }),
      db_(session_, desk_, connections_.Maker()),
      sms_(session_, db_, desk_, clock_, gateway_.WsdlUrl()),
      services_{session_, desk_, clock_, db_, sms_, home_.path()}
{
    home_.mkpath(u"."_q);
    FillDatabase();
}

PictureBook::~PictureBook()
{
    End();
    QDir(home_.filePath(u".."_q)).removeRecursively();
}

void PictureBook::FillDatabase()
{
    Session session;
    database_.Describe(session);
    const std::unique_ptr<Connection> connection = database_.Connections()();
    connection->ConnectionString = AssembleConnectionText(session);
    connection->Open();
    FillDemo(*connection, clock_.Now(), {2010, 2030});
    FillTemplates();
}

/// Two categories behind those of the demonstration: one of bodies that are hard to show, on two pages,
/// and one without templates.
void PictureBook::FillTemplates()
{
    database_.Execute(u"INSERT INTO SMSTempLMst VALUES (6,'여러 가지 본문'),(7,'빈 분류')"_q);
    QList<std::pair<QString, QString>> templates{
        {u"가득 찬 글"_q, QString(40, u'가')},
        {u"긴 글 한 편을 담은 긴 제목"_q,
         u"책 읽기 좋은 계절입니다. 새로 들어온 책을 만나러 오세요. 매주 토요일 오후 2시에는 2층 강당에서 "_q
         u"저자와 함께하는 이야기 마당이 열리고, 일요일 오전에는 그림책 교실이 있습니다. 누구나 환영합니다. "_q
         u"문의는 안내 데스크로 주세요. 고맙습니다."_q},
        {u"줄바꿈"_q, u"안녕하세요.\r\n\r\n내일 모임은\r\n저녁 7시입니다.\r\n\r\n[보내는사람]"_q},
        {u"기호"_q, u"☆☎☏☜＠♪℡※★○●◎◇◆□■△▲▽▼→←↑↓↔〓◁◀▷▶♤♠♡♥♧♣⊙◈▣◐"_q},
        {u"따옴표"_q, u"\"겹\" `뒤` “둥근” ‘홑’ 「낫」"_q},
        {u"부호 밖의 글자"_q, u"뷁 똠방각하 ☃ ñ é"_q},
        {u"English"_q, u"The quick brown fox jumps over the lazy dog. Supercalifragilisticexpialidocious!"_q},
        {u"줄이 많은 글"_q, u"1\r\n2\r\n3\r\n4\r\n5\r\n6\r\n7\r\n8\r\n9\r\n10"_q}};
    for (int more = 9; more <= 13; ++more)
        templates.emplaceBack(u"제목 %1"_q.arg(more), u"%1번째 서식의 본문입니다."_q.arg(more));
    for (const auto& [title, body] : templates)
        database_.Execute(
            u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) VALUES (6,'%1','%2')"_q.arg(title,
                                                                                                      body));
}

void PictureBook::Start(const QString& command)
{
    form_ = Main(command, services_).form;
    desk_.ExpectNoneLeft();
    if (form_) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
        PlaceOffTheMiddle(*form_);
    }
}

void PictureBook::End()
{
    desk_.ExpectNoneLeft();
    form_.reset();
    Settle();
}

void PictureBook::Take(QWidget& window, const QString& name)
{
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window)) << name.toStdString();
    Settle();
    take_(window, name);
}

/// A click of a person, who waits until the window is there again behind a box.
void PictureBook::Click(const QString& name)
{
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get())) << name.toStdString();
    ClickOn(The<QWidget>(name));
}

void PictureBook::Write(const QString& message)
{
    QWidget& field = The<QWidget>(u"TxtPerSendMsg"_q);
    dynamic_cast<TextField&>(field).SetText(QString());
    field.setFocus();
    TypeText(field, message);
}

void PictureBook::List(const QList<QStringList>& recipients)
{
    Click(u"BtnFuncMain(2)"_q);
    int row = 0;
    for (const QStringList& recipient : recipients) {
        ++row;
        TypeIntoCell(Grid(), 2, row, recipient[0]);
        TypeIntoCell(Grid(), 3, row, recipient[1]);
    }
}

void PictureBook::SetSenderNumber(const QString& number)
{
    The<TextField>(u"txtSendNo"_q).SetText(number);
}

void PictureBook::FillComposePage()
{
    List(Recipients);
    Write(Message);
    SetSenderNumber(session_.SMSTelNo);
}

void PictureBook::EmptyComposePage()
{
    List({});
    Write(QString());
    SetSenderNumber(session_.SMSTelNo);
}

/// A click on "send" that ends in one box.
void PictureBook::Refuse(const QString& box)
{
    desk_.Await(box);
    Click(u"BtnSend(0)"_q);
    desk_.ExpectNoneLeft();
}

/// Opens the dispatch dialog, acts in it, and clicks its send button unless it is gone by then.
void PictureBook::Send(std::function<void(QWidget& dialog)> act)
{
    WhenShown(u"MakeSMSTransport"_q, [this, act](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        if (act)
            act(dialog);
        ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    });
    Click(u"BtnSend(0)"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::FailedStarts()
{
    desk_.Await(u"box-launch-refused"_q);
    Start(QString());
    desk_.Await(u"box-launch-failed"_q);
    Start(u"tsms■(embedded)■0■sa■secret■7"_q);

    // The second answer is not looked at, so the start goes on without an account.
    connections_.RefuseOpens(2);
    desk_.Await(u"box-server-down-at-launch"_q);
    desk_.Await(QString());
    desk_.Await(u"box-sign-up-at-launch"_q);
    Start(LaunchLine());
    End();
}

void PictureBook::Pages()
{
    Start(LaunchLine());
    Take(*form_, u"compose"_q);
    FillComposePage();
    Take(*form_, u"compose-filled"_q);
    ComposeCards();
    Click(u"BtnToolbarDis(1)"_q);
    Take(*form_, u"history"_q);
    Click(u"BtnToolbarDis(2)"_q);
    Take(*form_, u"charges"_q);
    Click(u"BtnToolbarDis(3)"_q);
    TypeText(The<QWidget>(u"txtEditBox"_q), u"[받는사람]님 안녕하세요."_q);
    Take(*form_, u"templates"_q);
    Click(u"BtnFuncDocEdit(0)"_q);
    Take(*form_, u"templates-symbols"_q);
    Click(u"BtnFuncDocEdit(1)"_q);
    Take(*form_, u"templates-placeholders"_q);
    Click(u"BtnDocEdit(1)"_q);
    EditorCards();
    Click(u"BtnToolbarDis(0)"_q);
}

void PictureBook::ComposeCards()
{
    auto& categories = The<ComboBox>(u"CbTempCd"_q);
    categories.SetListIndex(5);
    Take(*form_, u"compose-cards-long"_q);
    Click(u"BtnPageCount(1)"_q);
    The<QWidget>(u"LblTmpContent(1)"_q).setFocus();
    PressKey(The<QWidget>(u"LblTmpContent(1)"_q), Qt::Key_Right);
    Take(*form_, u"compose-cards-second-page"_q);
    categories.SetListIndex(6);
    Take(*form_, u"compose-cards-empty"_q);
    Click(u"BtnPageCount(0)"_q);
}

void PictureBook::EditorCards()
{
    auto& categories = The<ComboBox>(u"CbSMSGroup(0)"_q);
    categories.SetListIndex(5);
    ClickOn(The<QWidget>(u"LblTmpContentEdit(2)"_q));
    Take(*form_, u"templates-cards-long"_q);
    Click(u"BtnPageCount(11)"_q);
    ClickOn(The<QWidget>(u"LblTmpContentEdit(1)"_q));
    Take(*form_, u"templates-cards-second-page"_q);
    desk_.Await(u"box-template-change"_q, AnswerNo);
    Click(u"BtnFuncDoc(1)"_q);
    desk_.Await(u"box-template-delete"_q, AnswerNo);
    Click(u"BtnFuncDoc(2)"_q);
    Click(u"BtnPageCount(10)"_q);
    categories.SetListIndex(6);
    ClickOn(The<QWidget>(u"LblTmpContentEdit(1)"_q)); // empty: begins a new one in this category
    Take(*form_, u"templates-cards-empty"_q);
    desk_.Await(u"box-template-no-body"_q);
    Click(u"BtnFuncDoc(1)"_q);
    TypeText(The<QWidget>(u"txtEditBox"_q), u"[받는사람]님 안녕하세요."_q);
    desk_.Await(u"box-template-no-title"_q);
    Click(u"BtnFuncDoc(1)"_q);
    TypeText(The<QWidget>(u"txtEditSubject"_q), u"인사"_q);
    desk_.Await(u"box-template-new"_q, AnswerYes);
    desk_.Await(u"box-template-stored"_q);
    Click(u"BtnFuncDoc(1)"_q);
    ClickOn(The<QWidget>(u"LblTmpContentEdit(1)"_q));
    desk_.Await(QString(), AnswerYes);
    desk_.Await(u"box-template-changed"_q);
    Click(u"BtnFuncDoc(1)"_q);
    ClickOn(The<QWidget>(u"LblTmpContentEdit(1)"_q));
    desk_.Await(QString(), AnswerYes);
    desk_.Await(u"box-template-deleted"_q);
    Click(u"BtnFuncDoc(2)"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::SettingsWork()
{
    WhenShown(u"dlgSMSSetup"_q, [this](QWidget& dialog) {
        Take(dialog, u"settings"_q);
        On<TextField>(dialog, u"txtUpdate(4)"_q).SetText(QString());
        Ask(dialog, u"box-required"_q);
        On<TextField>(dialog, u"txtUpdate(4)"_q).SetText(session_.SMSOrgNm);
        Ask(dialog, u"box-settings-saved"_q);
    });
    Click(u"BtnToolbarDis(4)"_q);
    desk_.ExpectNoneLeft();
    Click(u"BtnToolbarDis(1)"_q);
    Click(u"BtnToolbarDis(0)"_q);
}

void PictureBook::SetPeriod(const QString& first, const QString& last)
{
    The<DatePicker>(u"DTPSendDt(0)"_q).SetValue(QDate::fromString(first, Qt::ISODate));
    The<DatePicker>(u"DTPSendDt(1)"_q).SetValue(QDate::fromString(last, Qt::ISODate));
}

void PictureBook::SearchHistory(const QString& first, const QString& last, int status)
{
    SetPeriod(first, last);
    The<RadioButton>(u"OptSendStatus(%1)"_q.arg(status)).SetValue(true);
    Click(u"BtnSendListSerch"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::ClickHistoryCell(int column, int row)
{
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    ClickCell(SentList(), column, row);
    desk_.ExpectNoneLeft();
}

void PictureBook::History()
{
    Click(u"BtnToolbarDis(1)"_q);
    SearchHistory(u"2012-05-29"_q, u"2012-06-30"_q, 0);
    for (int row : {2, 3, 5})
        ClickHistoryCell(2, row);
    Take(*form_, u"history-marks"_q);
    desk_.Await(u"box-history-locked"_q);
    int locked = 1;
    while (SentList().Cells().CellPicture(2, locked) != CheckLocked)
        ++locked;
    ClickHistoryCell(2, locked);

    SetPeriod(u"2011-12-31"_q, u"2012-01-01"_q);
    desk_.Await(u"box-history-two-years"_q);
    Click(u"BtnSendListSerch"_q);
    desk_.ExpectNoneLeft();
    SearchHistory(u"2012-12-01"_q, u"2012-12-31"_q, 0);
    Take(*form_, u"history-empty"_q);
}

/// Reservations that the gateway knows, beside those of the demonstration, which it refuses.
void PictureBook::Reserve()
{
    db_.ConnectDB();
    sms_.InitSOAP();
    for (int i = 0; i < MobileRecipients; ++i)
        EXPECT_TRUE(sms_.SubmitSMS(Recipients[i][0], Recipients[i][1], session_.SMSTelNo,
                                   u"내일 모임은 저녁 7시입니다."_q, u"2012:06:01:19:00"_q, {}, {}, {}));
    sms_.ReleaseSOAP();
    db_.CloseDB();
}

/// Ticks that many rows, clicks "cancel" on the page, answers the question with yes, acts in the dialog and
/// clicks its button.
void PictureBook::Withdraw(int ticked, const QString& question, std::function<void(QWidget& dialog)> act)
{
    for (int row = 1; row <= ticked; ++row)
        ClickHistoryCell(2, row);
    desk_.Await(question, AnswerYes);
    WhenShown(u"MakeSMSTransport"_q, [this, act](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        act(dialog);
        ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    });
    Click(u"BtnSendListFun(1)"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::Cancellation()
{
    Reserve();
    SearchHistory(u"2012-06-01"_q, u"2012-06-01"_q, 1);
    desk_.Await(u"box-cancel-nothing-ticked"_q);
    Click(u"BtnSendListFun(1)"_q);
    int deletions = 0;
    Withdraw(SentList().Cells().MaxRows(), u"box-cancel-question"_q, [&](QWidget& dialog) {
        Take(dialog, u"cancellation"_q);
        connections_.BeforeStatement([&](const QString& sql) {
            if (sql.startsWith(u"DELETE"_q) && ++deletions == MobileRecipients)
                take_(dialog, u"cancellation-running"_q);
        });
        desk_.Await(u"box-cancelled"_q);
    });
    connections_.BeforeStatement({});
    EXPECT_EQ(deletions, MobileRecipients);

    gateway_.Fail(FaultKind::Refuse);
    SearchHistory(u"2012-05-31"_q, u"2012-06-30"_q, 1);
    Withdraw(1, QString(), [this](QWidget&) { desk_.Await(u"box-nothing-cancelled"_q); });
    gateway_.BehaveAgain();
}

void PictureBook::OpenDetail(int row, std::function<void(QWidget& dialog)> act)
{
    ClickHistoryCell(8, row);
    WhenShown(u"dlgSMSShowDetail"_q, [act](QWidget& dialog) {
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        act(dialog);
        if (!dialog.isVisible())
            return;
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog)); // again, behind a box
        PressKey(dialog, Qt::Key_Escape);
    });
    Click(u"BtnSendListFun(0)"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::Details()
{
    SearchHistory(u"2012-01-01"_q, u"2012-05-30"_q, 3);
    OpenDetail(1, [this](QWidget& dialog) {
        Take(dialog, u"detail-failed"_q);
        desk_.Await(u"box-detail-not-reserved"_q);
        ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    });
    Reserve();
    SearchHistory(u"2012-06-01"_q, u"2012-06-01"_q, 1);
    OpenDetail(1, [this](QWidget& dialog) {
        Take(dialog, u"detail-reserved"_q);
        desk_.Await(u"box-detail-cancelled"_q);
        ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    });
    Click(u"BtnToolbarDis(0)"_q);
}

void PictureBook::ChargeWork()
{
    database_.Execute(u"CREATE TABLE Kept AS SELECT * FROM SMSCharge; DELETE FROM SMSCharge"_q);
    The<ComboBox>(u"CbMonthYear"_q).SetListIndex(0);
    Click(u"BtnToolbarDis(2)"_q);
    Take(*form_, u"charges-empty"_q);
    database_.Execute(u"INSERT INTO SMSCharge SELECT * FROM Kept; DROP TABLE Kept"_q);
    The<ComboBox>(u"CbMonthYear"_q).SetListIndex(2);

    WhenShown(u"dlgSMSCharge"_q, [this](QWidget& dialog) {
        Take(dialog, u"charge-empty"_q);
        const QStringList texts{u"1-2"_q, u"20000"_q, u"20"_q, u"여름 행사용"_q};
        for (int i = 1; i <= texts.size(); ++i)
            On<TextField>(dialog, u"txtUpdate(%1)"_q.arg(i)).SetText(texts[i - 1]);
        Ask(dialog, u"box-count-no-number"_q);
        On<TextField>(dialog, u"txtUpdate(1)"_q).SetText(u"1000"_q);
        Take(dialog, u"charge"_q);
        Ask(dialog, u"box-charge-saved"_q);
    });
    Click(u"BtnChargeFunc(0)"_q);
    desk_.ExpectNoneLeft();

    desk_.Await(u"box-delete-question"_q, AnswerYes);
    desk_.Await(u"box-deleted"_q);
    Click(u"BtnChargeFunc(1)"_q);
    desk_.ExpectNoneLeft();
    Grid().SetActiveCell(2, Grid().Cells().MaxRows());
    desk_.Await(u"box-nothing-selected"_q);
    Click(u"BtnChargeFunc(1)"_q);
    desk_.ExpectNoneLeft();
    Click(u"BtnToolbarDis(0)"_q);
}

/// Saves a dialog, which ends in one box.
void PictureBook::Ask(QWidget& dialog, const QString& box)
{
    desk_.Await(box);
    ClickOn(On<QWidget>(dialog, u"BtnFunc(0)"_q));
    desk_.ExpectNoneLeft();
}

/// The address book with its two small dialogs, in which nothing is stored.
void PictureBook::AddressBook()
{
    const auto inBook = [this](const std::function<void(QWidget&)>& act) {
        WhenShown(u"dlgSMSGroupSelect"_q, [act](QWidget& book) {
            act(book);
            PressKey(book, Qt::Key_Escape);
        });
        Click(u"BtnFuncMain(0)"_q);
        desk_.ExpectNoneLeft();
    };
    inBook([this](QWidget& book) { MemberView(book); });
    inBook([this](QWidget& book) { GroupView(book); });
    database_.Execute(u"DELETE FROM SMSGroupSub"_q);
    database_.Execute(u"DELETE FROM SMSGroupMst"_q);
    inBook([this](QWidget& book) { EmptyBook(book); });
}

void PictureBook::MemberView(QWidget& book)
{
    Take(book, u"address-book"_q);
    auto& browse = On<fpSpread>(book, u"fpSpreadMst"_q);
    for (const int row : {1, 2, 3, 16})
        ClickCell(browse, 2, row);
    browse.scrollToTop();
    ClickOn(On<QWidget>(book, u"BtnFuncAdd(0)"_q));
    ClickCell(On<fpSpread>(book, u"fpSpread"_q), 2, 3);
    Take(book, u"address-book-members"_q);
    const auto inBox = [this, &book](const QString& box, const QString& button, MsgBoxAnswer answer) {
        desk_.Await(box, answer);
        ClickOn(On<QWidget>(book, button));
        desk_.ExpectNoneLeft();
    };
    inBox(u"box-empty-chosen"_q, u"BtnFuncAdd(1)"_q, AnswerYes);
    inBox(u"box-nobody-chosen"_q, u"BtnFunc(0)"_q, AnswerOK);
    desk_.Await(u"box-delete-member"_q, AnswerNo);
    ClickCell(browse, 7, 2);
    const auto edit = [&] { ClickCell(browse, 6, 2); };
    InBookDialog(u"dlgSMSGroupSub"_q, edit, u"member-edit"_q);
}

void PictureBook::GroupView(QWidget& book)
{
    ClickOn(On<QWidget>(book, u"OptType(1)"_q));
    auto& browse = On<fpSpread>(book, u"fpSpreadMst"_q);
    for (const int row : {1, 2, browse.Cells().MaxRows()})
        ClickCell(browse, 2, row);
    ClickOn(On<QWidget>(book, u"BtnFuncAdd(0)"_q));
    ClickCell(On<fpSpread>(book, u"fpSpread"_q), 5, 4);
    Take(book, u"address-book-groups"_q);
    for (const auto& [box, column] :
         {std::pair(u"box-edit-other-group"_q, 4), std::pair(u"box-delete-other-group"_q, 5)}) {
        desk_.Await(box);
        ClickCell(browse, column, browse.Cells().MaxRows());
        desk_.ExpectNoneLeft();
    }
    const auto edit = [&] { ClickCell(browse, 4, 1); };
    InBookDialog(u"dlgSMSGroupMst"_q, edit, u"group-edit"_q);
    InBookDialog(
        u"dlgSMSGroupMst"_q, [&] { ClickOn(On<QWidget>(book, u"BtnAdd(1)"_q)); }, u"group-add"_q,
        [this](QWidget& dialog) {
            desk_.Await(u"box-no-group-name"_q);
            PressKey(dialog, Qt::Key_F12);
            TypeText(On<QWidget>(dialog, u"txtGroupNm"_q), u"운영 위원"_q);
            desk_.Await(u"box-group-name-taken"_q);
            PressKey(dialog, Qt::Key_F12);
        });
    InBookDialog(
        u"dlgSMSGroupSub"_q, [&] { ClickOn(On<QWidget>(book, u"BtnAdd(0)"_q)); }, u"member-add"_q,
        [this](QWidget& dialog) {
            desk_.Await(u"box-no-member-name"_q);
            PressKey(dialog, Qt::Key_F12);
            TypeText(On<QWidget>(dialog, u"txtGroupSub(0)"_q), u"김민준"_q);
            TypeText(On<QWidget>(dialog, u"txtGroupSub(1)"_q), u"02-0000-0001"_q);
            desk_.Await(u"box-no-mobile-number"_q);
            PressKey(dialog, Qt::Key_F12);
            On<TextField>(dialog, u"txtGroupSub(1)"_q).SetText(u"010-0000-0001"_q);
            desk_.Await(u"box-member-name-taken"_q);
            PressKey(dialog, Qt::Key_F12);
        });
}

void PictureBook::EmptyBook(QWidget& book)
{
    Take(book, u"address-book-empty"_q);
    ClickOn(On<QWidget>(book, u"OptType(1)"_q));
    Take(book, u"address-book-no-groups"_q);
}

/// Opens one of the address book's dialogs, takes its picture, acts in it, and leaves it by Esc.
void PictureBook::InBookDialog(const QString& form, const std::function<void()>& open, const QString& name,
                               const std::function<void(QWidget&)>& act)
{
    WhenShown(form, [this, name, act](QWidget& dialog) {
        Take(dialog, name);
        if (act)
            act(dialog);
        desk_.ExpectNoneLeft();
        PressKey(dialog, Qt::Key_Escape);
    });
    open();
}

void PictureBook::Import()
{
    std::vector<std::vector<QString>> rows;
    for (const QStringList& recipient : Recipients)
        rows.push_back({recipient[0], recipient[1], u"봄 모임"_q});
    desk_.fileToPick = QDir::cleanPath(home_.filePath(u"../회원 명단.xls"_q));
    QFile file(desk_.fileToPick);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(WorkbookOf(rows));
    file.close();
    WhenShown(u"MakeSMSExcel"_q, [this](QWidget& dialog) {
        Take(dialog, u"import"_q);
        desk_.Await(u"box-imported"_q, AnswerOK, [this, &dialog] { take_(dialog, u"import-done"_q); });
        ClickOn(On<QWidget>(dialog, u"cmdSearch"_q));
    });
    Click(u"BtnFuncMain(1)"_q);
    desk_.ExpectNoneLeft();
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    Take(*form_, u"compose-imported"_q);
}

void PictureBook::PreflightBoxes()
{
    EmptyComposePage();
    Refuse(u"box-no-message"_q);
    Write(Message);
    Refuse(u"box-no-recipients"_q);
    List(Recipients);
    SetSenderNumber(QString());
    Refuse(u"box-no-sender-number"_q);
    desk_.Await(u"box-no-sender-number-on-enter"_q);
    EXPECT_TRUE(QTest::qWaitForWindowActive(form_.get()));
    PressKey(The<QWidget>(u"txtSendNo"_q), Qt::Key_Return);
    desk_.ExpectNoneLeft();
    SetSenderNumber(u"1234"_q);
    Refuse(u"box-sender-number-too-short"_q);
}

void PictureBook::AccountBoxes()
{
    FillComposePage();
    SetAccount(u"SMSPWD=NULL"_q);
    Refuse(u"box-sign-up"_q);
    SetAccount(u"SMSPWD='demo', SMSRemainCnt=0"_q);
    desk_.Await(u"box-charge"_q);
    desk_.Await(u"box-shortage"_q);
    Click(u"BtnSend(0)"_q);
    desk_.ExpectNoneLeft();
    SetAccount(u"SMSRemainCnt=340"_q);
}

void PictureBook::RefuseReservation(QWidget& dialog, const QString& box)
{
    desk_.Await(box);
    ClickOn(On<QWidget>(dialog, u"BtnSendS(0)"_q));
    desk_.ExpectNoneLeft();
}

void PictureBook::Dispatch()
{
    FillComposePage();
    int logRows = 0;
    Send([&](QWidget& dialog) {
        Take(dialog, u"dispatch"_q);
        ClickOn(On<QWidget>(dialog, u"ChkTime"_q));
        Take(dialog, u"dispatch-reservation"_q);
        auto& day = On<DatePicker>(dialog, u"DTPicker1"_q);
        day.SetValue(clock_.Date().addDays(-1));
        RefuseReservation(dialog, u"box-reservation-on-a-past-day"_q);
        day.SetValue(clock_.Date());
        On<ComboBox>(dialog, u"CbTime"_q).SetListIndex(9);
        RefuseReservation(dialog, u"box-reservation-at-a-past-time"_q);
        ClickOn(On<QWidget>(dialog, u"ChkTime"_q));
        connections_.BeforeStatement([&](const QString& sql) {
            // Nothing paints itself by events during a run; a grab shows what its refreshed labels hold.
            if (sql.startsWith(u"Insert"_q) && ++logRows == 4)
                take_(dialog, u"dispatch-running"_q);
        });
        desk_.Await(u"box-sent"_q);
    });
    connections_.BeforeStatement({});
    EXPECT_EQ(logRows, MobileRecipients);

    List({{u"한별"_q, u"02-000-0006"_q}});
    Send([&](QWidget&) { desk_.Await(u"box-nothing-sent"_q); });
}

/// One failure box after the other; only the first has a code, and only the last is looked behind.
void PictureBook::AwaitFailures(int count)
{
    desk_.Await(u"box-send-failed"_q);
    for (int i = 2; i < count; ++i)
        desk_.Await(i == 2 ? u"box-send-failed-without-a-code"_q : QString());
    desk_.Await(QString(), AnswerOK,
                [this] { Take(*Form::Find(u"MakeSMSTransport"_q), u"dispatch-after-failures"_q); });
}

void PictureBook::DispatchFailures()
{
    FillComposePage();
    gateway_.Fail(FaultKind::Refuse, gateway_.CallCount() + 2);
    Send([&](QWidget&) {
        AwaitFailures(MobileRecipients - 1);
        desk_.Await(QString());
    });

    gateway_.Fail(FaultKind::WsdlMissing);
    List({Recipients[0]});
    Send([&](QWidget&) {
        desk_.Await(u"box-gateway-not-reached"_q);
        desk_.Await(QString());
        desk_.Await(QString());
        desk_.Await(QString());
    });
    gateway_.BehaveAgain();
}

void PictureBook::DatabaseBoxes()
{
    List({{u"김'하늘"_q, u"010-0000-0001"_q}});
    Send([&](QWidget&) {
        desk_.Await(u"box-statement-refused"_q);
        desk_.Await(QString());
    });

    EmptyComposePage();
    const auto fail = [this](long number, const QString& words, const QString& box) {
        connections_.FailStatement(1, number, words);
        desk_.Await(box);
        desk_.Await(QString()); // the message is missing, too
        Click(u"BtnSend(0)"_q);
        desk_.ExpectNoneLeft();
    };
    fail(UserNotice, u"오늘 밤 11시부터 데이터베이스를 점검합니다."_q, u"box-notice"_q);
    fail(IntegrityViolation,
         u"Cannot insert the value NULL into column 'SMSRemainCnt', table 'SMS.dbo.SMSSetup'; "
         u"column does not allow nulls. UPDATE fails."_q,
         u"box-constraint"_q);

    connections_.RefuseOpens(2);
    desk_.Await(u"box-server-down"_q);
    desk_.Await(QString());
    desk_.Await(QString());
    Click(u"BtnSend(0)"_q);
    desk_.ExpectNoneLeft();
}

void PictureBook::WindowBoxes()
{
    desk_.Await(u"box-maximise"_q);
    Click(u"BtnWindows(1)"_q);
    desk_.Await(u"box-closing-question"_q, AnswerNo);
    Click(u"BtnWindows(2)"_q);
    End();
}

void PictureBook::TurnAllPages()
{
    FailedStarts();
    Pages();
    History();
    Cancellation();
    Details();
    SettingsWork();
    ChargeWork();
    AddressBook();
    Import();
    PreflightBoxes();
    AccountBoxes();
    Dispatch();
    DispatchFailures();
    DatabaseBoxes();
    WindowBoxes();
}

} // namespace tsms::test
