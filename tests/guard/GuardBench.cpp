#include "guard/GuardBench.h"

#include "recipients/GridRecipientList.h"
#include "support/server/TestServer.h"
#include "toolkit/windows/Form.h"

namespace tsms::test {

namespace {

const QString GoodNumber = u"01000000009"_q;

} // namespace

void GuardBench::SetUp()
{
    program.database.Execute(u"INSERT INTO SMSTempLMst VALUES (1, '인사')"_q);
    program.database.Execute(u"INSERT INTO SMSTempLSub (TempLCd, TempLSubNm, TempLContent) VALUES "
                             "(1, '아침', '좋은 아침입니다.')"_q);
    program.startsAsOwner = true; // a right that is missing would hide a hole
    AddressBookTest::SetUp();
}

// What is looked at.

QStringList GuardBench::Told()
{
    TestServer* server = program.database.Server();
    return server ? server->Statements() : program.connections.Statements();
}

void GuardBench::Watch(const std::function<void()>& act)
{
    const qsizetype before = Told().size();
    act();
    seen = Told().mid(before);
}

void GuardBench::Hold(QWidget& field)
{
    held = dynamic_cast<TextField&>(field).Text();
}

TableContents GuardBench::Tables()
{
    TableContents tables;
    for (const QStringList& table :
         program.database.Rows(u"SELECT name, sql FROM sqlite_master WHERE type = 'table'"_q)) {
        tables[table[0]] = program.database.Rows(u"SELECT rowid, * FROM "_q + table[0]);
        tables[table[0]] += table;
    }
    return tables;
}

QStringList GuardBench::ChangedSince(const TableContents& before)
{
    const TableContents now = Tables();
    QStringList changed;
    for (auto table = before.cbegin(); table != before.cend(); ++table)
        if (now.value(table.key()) != table.value())
            changed += table.key();
    for (const QString& table : now.keys())
        if (!before.contains(table))
            changed += table;
    return changed;
}

void GuardBench::ExpectBoxes(const QList<Asked>& boxes)
{
    for (const Asked& asked : boxes)
        program.desktop.Expect(asked.box, asked.answer);
}

void GuardBench::ExpectAtRest()
{
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

// What a person does.

void GuardBench::ShowPage(int page)
{
    QWidget& idle = program.Control(u"BtnToolbarDis(%1)"_q.arg(page));
    ClickOn(idle.isVisible() ? idle : program.Control(u"BtnToolbarEn(%1)"_q.arg(page)));
}

void GuardBench::Put(QWidget& field, const QString& text, Way way)
{
    field.setFocus();
    PressKey(field, Qt::Key_A, Qt::ControlModifier);
    PressKey(field, Qt::Key_Delete);
    if (way == Way::Typed)
        TypeText(field, text);
    else
        PasteText(field, text);
}

void GuardBench::PutCell(int column, const QString& text, Way way)
{
    fpSpread& grid = program.Recipients();
    if (way == Way::Typed) {
        TypeIntoCell(grid, column, 1, text);
    } else if (way == Way::Pasted) {
        ClickCell(grid, column, 1);
        PasteText(grid, text);
    } else {
        grid.Cells().SetText(column, 1, text);
    }
}

void GuardBench::SaveAndLeave(QWidget& dialog)
{
    const QString name = dialog.objectName();
    Watch([&] { PressKey(dialog, Qt::Key_F12); });
    if (Form::Find(name))
        PressKey(dialog, Qt::Key_Escape);
}

void GuardBench::AddGroup(const QString& name, Way way)
{
    InBook([=, this] {
        InDialog(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, [=, this](QWidget& dialog) {
            QWidget& field = program.On<QWidget>(dialog, u"txtGroupNm"_q);
            Put(field, name, way);
            Hold(field);
            SaveAndLeave(dialog);
        });
    });
}

void GuardBench::RenameGroup(const QString& name, Way way)
{
    InBook([=, this] {
        ShowGroups();
        InDialog(u"dlgSMSGroupMst"_q, GroupEdit, 1, [=, this](QWidget& dialog) {
            QWidget& field = program.On<QWidget>(dialog, u"txtGroupNm"_q);
            Put(field, name, way);
            Hold(field);
            SaveAndLeave(dialog);
        });
    });
}

void GuardBench::WorkMember(QWidget& dialog, const QString& name, const QString& number, int watched, Way way)
{
    Put(program.On<QWidget>(dialog, u"txtGroupSub(0)"_q), name, way);
    Put(program.On<QWidget>(dialog, u"txtGroupSub(1)"_q), number, way);
    Hold(program.On<QWidget>(dialog, u"txtGroupSub(%1)"_q.arg(watched)));
    SaveAndLeave(dialog);
}

void GuardBench::AddMember(const QString& name, Way way)
{
    InBook([=, this] {
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q,
                 [=, this](QWidget& dialog) { WorkMember(dialog, name, GoodNumber, 0, way); });
    });
}

void GuardBench::AddMemberWithNumber(const QString& number, Way way)
{
    InBook([=, this] {
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q,
                 [=, this](QWidget& dialog) { WorkMember(dialog, u"정노을"_q, number, 1, way); });
    });
}

void GuardBench::ChangeMember(const QString& name, Way way)
{
    InBook([=, this] {
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, 1,
                 [=, this](QWidget& dialog) { WorkMember(dialog, name, GoodNumber, 0, way); });
    });
}

void GuardBench::SaveTemplate(const QString& title, const QString& body, const QString& watched, Way way)
{
    Put(program.Control(u"txtEditSubject"_q), title, way);
    Put(program.Control(u"txtEditBox"_q), body, way);
    Hold(program.Control(watched));
    Watch([this] { program.Click(u"BtnFuncDoc(1)"_q); });
}

void GuardBench::AddTemplate(const QString& title, const QString& body, const QString& watched, Way way)
{
    ShowPage(3);
    SaveTemplate(title, body, watched, way);
}

void GuardBench::ChangeTemplate(const QString& title, const QString& body, const QString& watched, Way way)
{
    ShowPage(3);
    program.Click(u"LblTmpContentEdit(1)"_q);
    SaveTemplate(title, body, watched, way);
}

void GuardBench::FillBoxes(QWidget& dialog, const QMap<int, QString>& texts, int watched, Way way)
{
    for (auto text = texts.cbegin(); text != texts.cend(); ++text)
        Put(program.On<QWidget>(dialog, u"txtUpdate(%1)"_q.arg(text.key())), text.value(), way);
    Hold(program.On<QWidget>(dialog, u"txtUpdate(%1)"_q.arg(watched)));
}

void GuardBench::Charge(const QMap<int, QString>& texts, int watched, Way way)
{
    QMap<int, QString> all{{1, u"5"_q}, {2, u"100"_q}, {3, u"20"_q}, {4, u"충전"_q}};
    all.insert(texts);
    ShowPage(2);
    WhenShown(u"dlgSMSCharge"_q, [=, this](QWidget& dialog) {
        FillBoxes(dialog, all, watched, way);
        SaveAndLeave(dialog);
    });
    program.Click(u"BtnChargeFunc(0)"_q);
}

void GuardBench::ChangeSettings(const QMap<int, QString>& texts, int watched, Way way)
{
    WhenShown(u"dlgSMSSetup"_q, [=, this](QWidget& dialog) {
        FillBoxes(dialog, texts, watched, way);
        SaveAndLeave(dialog);
    });
    ShowPage(4);
}

void GuardBench::SearchHistory(int field, const QString& words, Way way)
{
    ShowPage(1);
    program.The<ComboBox>(u"CbSerch"_q).SetListIndex(field);
    QWidget& box = program.Control(u"txtSerch"_q);
    Put(box, words, way);
    Hold(box);
    Watch([this] { program.Click(u"BtnSendListSerch"_q); });
}

// Sending.

/// The page with nothing on it but a message, a recipient and the sender's number.
void GuardBench::ClearPage()
{
    program.Click(u"BtnFuncMain(2)"_q);
    Put(program.Control(u"TxtPerSendMsg"_q), u"안녕"_q, Way::Typed);
    PutCell(GridRecipientList::NameColumn, u"가"_q, Way::Typed);
    PutCell(GridRecipientList::PhoneColumn, GoodNumber, Way::Typed);
}

void GuardBench::SendPage()
{
    qsizetype before = 0;
    program.Send([&](QWidget&) { before = Told().size(); });
    seen = Told().mid(before);
}

void GuardBench::SendMessage(const QString& message, Way way)
{
    ClearPage();
    Put(program.Control(u"TxtPerSendMsg"_q), message, way);
    Hold(program.Control(u"TxtPerSendMsg"_q));
    SendPage();
}

void GuardBench::SendToName(const QString& name, Way way)
{
    ClearPage();
    PutCell(GridRecipientList::NameColumn, name, way);
    held = program.Recipients().Cells().Text(GridRecipientList::NameColumn, 1);
    SendPage();
}

void GuardBench::SendToNumber(const QString& number, Way way)
{
    ClearPage();
    PutCell(GridRecipientList::PhoneColumn, number, way);
    held = program.Recipients().Cells().Text(GridRecipientList::PhoneColumn, 1);
    SendPage();
}

void GuardBench::SendAs(const QString& senderNumber, Way way)
{
    ClearPage();
    Put(program.Control(u"txtSendNo"_q), senderNumber, way);
    Hold(program.Control(u"txtSendNo"_q));
    SendPage();
}

void GuardBench::SendToNameWithMessage(const QString& name, const QString& message, Way way)
{
    ClearPage();
    Put(program.Control(u"TxtPerSendMsg"_q), message, way);
    PutCell(GridRecipientList::NameColumn, name, way);
    SendPage();
}

void GuardBench::SendForLaunchText(const QString& text)
{
    program.form.reset();
    ASSERT_TRUE(program.Start(program.LaunchLine().chopped(2) + text));
    held = program.session.UserData2;
    ClearPage();
    SendPage();
}

} // namespace tsms::test
