#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/AddressBook.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Form.h"

using namespace tsms;
using namespace tsms::test;

namespace {

Box NameMissingBox()
{
    return {u"그룹등록"_q, u"그룹명칭을 입력하여 주십시오."_q, MsgBoxCritical};
}

Box NameTakenBox()
{
    return {u"기 등록된 그룹"_q, u"이미 등록된 그룹명칭입니다. 확인하여 주십시오.!"_q, MsgBoxCritical};
}

Box AddedBox()
{
    return {u"그룹등록"_q, u"정상적으로 그룹을 등록 하였습니다."_q, MsgBoxInformation};
}

Box RenamedBox()
{
    return {u"그룹수정"_q, u"정상적으로 그룹을 수정 하였습니다."_q, MsgBoxInformation};
}

class GroupEditor : public AddressBookTest
{
protected:
    /// Opens the address book, in it the dialog for a new group, and runs `act` there. What is still open
    /// then is left by Esc.
    void Add(const std::function<void()>& act)
    {
        InBook([this, act] {
            InDialog(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q,
                     [this, act](QWidget& dialog) { Work(dialog, act); });
        });
    }

    void Edit(const QString& group, const std::function<void()>& act)
    {
        InBook([this, group, act] {
            ShowGroups();
            InDialog(u"dlgSMSGroupMst"_q, GroupEdit, GroupRow(group),
                     [this, act](QWidget& dialog) { Work(dialog, act); });
        });
    }

    QWidget& Dialog() { return *dialog_; }
    bool IsOpen() const { return Form::Find(u"dlgSMSGroupMst"_q) != nullptr; }
    TextField& Name() { return program.On<TextField>(Dialog(), u"txtGroupNm"_q); }
    void Type(const QString& text)
    {
        Name().SelectAll();
        PressKey(Name().Widget(), Qt::Key_Delete);
        TypeText(Name().Widget(), text);
    }
    void Save() { ClickOn(program.On<QWidget>(Dialog(), u"BtnFunc(0)"_q)); }

    QStringList Names()
    {
        QStringList names;
        for (const QStringList& row : Stored(u"SMSGroupMst"_q, u"GroupCd, GroupNm"_q))
            names += row[1];
        return names;
    }

private:
    void Work(QWidget& dialog, const std::function<void()>& act)
    {
        dialog_ = &dialog;
        act();
        if (IsOpen())
            PressKey(dialog, Qt::Key_Escape);
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(BookIsOpen());
    }

    QWidget* dialog_ = nullptr;
};

using GroupEditorInSqlServerWords = InSqlServerWords<GroupEditor>;

TEST_F(GroupEditor, TheDialogsWordsAreItsOwn)
{
    Add([this] {
        EXPECT_EQ(Dialog().windowTitle(), u"그룹 등록"_q);
        EXPECT_EQ(program.On<Label>(Dialog(), u"lblTitle(1)"_q).Caption(), u"그룹 등록"_q);
        EXPECT_EQ(program.On<Label>(Dialog(), u"lblTitle(0)"_q).Caption(),
                  u"문자메시지 발송그룹을 설정합니다."_q);
        EXPECT_EQ(program.On<Label>(Dialog(), u"Label2"_q).Caption(), u"그룹 명칭 :"_q);
        EXPECT_EQ(program.On<PushButton>(Dialog(), u"BtnFunc(0)"_q).Caption(), u"저장(F12)"_q);
        EXPECT_EQ(program.On<PushButton>(Dialog(), u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
        EXPECT_EQ(Name().Text(), QString());
        EXPECT_TRUE(Name().Widget().hasFocus());
    });
}

TEST_F(GroupEditor, ANewGroupIsStoredAndTheDialogCloses)
{
    Add([this] {
        Type(u"교사회"_q);
        program.desktop.Expect(AddedBox(), AnswerOK, [this] {
            EXPECT_TRUE(IsOpen());
            EXPECT_FALSE(program.session.IsBusy());
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
            EXPECT_EQ(program.connections.OpenNow(), 0);
        });
        Save();
        EXPECT_FALSE(IsOpen());
        EXPECT_TRUE(Groups().contains(u"교사회"_q));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(Names(), QStringList({u"청년부"_q, u"성가대"_q, u"교사회"_q}));
}

TEST_F(GroupEditor, ANewGroupComesIntoTheFilterWithItsNextFilling)
{
    InBook([this] {
        InDialog(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, [this](QWidget& dialog) {
            TypeText(program.On<QWidget>(dialog, u"txtGroupNm"_q), u"교사회"_q);
            program.desktop.Expect(AddedBox());
            PressKey(dialog, Qt::Key_F12);
        });
        EXPECT_EQ(Filter().ListCount(), 4);
        ShowMembers();
        EXPECT_EQ(Filter().ListCount(), 5);
    });
}

TEST_F(GroupEditor, EnterF12AndTheButtonTakeTheSamePath)
{
    const QList<std::function<void()>> ways{
        [this] { PressKey(Name().Widget(), Qt::Key_Return); },
        [this] { PressKey(Dialog(), Qt::Key_F12); },
        [this] { Save(); },
        [this] { program.On<PushButton>(Dialog(), u"BtnFunc(0)"_q).Click(); },
    };
    int number = 0;
    for (const auto& way : ways) {
        Add([this, way, &number] {
            Type(u"모임%1"_q.arg(++number));
            program.desktop.Expect(AddedBox());
            way();
            EXPECT_FALSE(IsOpen());
        });
    }
    EXPECT_EQ(Names().size(), 6);
}

TEST_F(GroupEditor, TheStatementsOfAnAddComeInTheirOrder)
{
    Add([this] {
        const qsizetype before = program.connections.Statements().size();
        Type(u" 교사회 "_q);
        program.desktop.Expect(AddedBox());
        Save();
        EXPECT_EQ(program.connections.Statements().mid(before),
                  QStringList({u"SELECT GroupNm FROM SMSGroupMst WHERE GroupNm ='교사회'"_q,
                               u"Insert into SMSGroupMst (GroupNm) values ('교사회')"_q,
                               u" SELECT  GroupCd , GroupNm FROM SMSGroupMst  "_q}));
    });
    EXPECT_EQ(Names().last(), u"교사회"_q);
}

TEST_F(GroupEditor, ARenameStoresTheNameAsTyped)
{
    Edit(u"청년부"_q, [this] {
        const qsizetype before = program.connections.Statements().size();
        Type(u" 청년회  "_q);
        program.desktop.Expect(RenamedBox());
        Save();
        EXPECT_EQ(program.connections.Statements()[before],
                  u"UPDATE SMSGroupMst set GroupNm=' 청년회  ' WHERE GroupCd=1"_q);
        EXPECT_TRUE(Groups().contains(u" 청년회  "_q));
    });
    EXPECT_EQ(Names(), QStringList({u" 청년회  "_q, u"성가대"_q}));
}

TEST_F(GroupEditor, ARenameMayGiveTwoGroupsOneName)
{
    Edit(u"청년부"_q, [this] {
        Type(u"성가대"_q);
        program.desktop.Expect(RenamedBox());
        Save();
    });
    EXPECT_EQ(Names(), QStringList({u"성가대"_q, u"성가대"_q}));
}

TEST_F(GroupEditor, ABlankNameIsRefusedBeforeTheDatabaseIsAsked)
{
    const auto refuse = [this] {
        for (const QString& blank : {u""_q, u"   "_q}) {
            const int opens = program.connections.Opens();
            Type(blank);
            program.On<QWidget>(Dialog(), u"BtnFunc(1)"_q).setFocus();
            program.desktop.Expect(NameMissingBox()); // in both modes
            Save();
            EXPECT_TRUE(IsOpen());
            EXPECT_TRUE(Name().Widget().hasFocus());
            EXPECT_EQ(program.connections.Opens(), opens);
        }
    };
    Add(refuse);
    Edit(u"청년부"_q, refuse);
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, ANameThatIsThereIsRefusedUnderTheHourglass)
{
    Add([this] {
        Type(u" 성가대 "_q);
        program.desktop.Expect(NameTakenBox(), AnswerOK, [this] {
            EXPECT_TRUE(program.session.IsBusy());
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Hourglass);
            EXPECT_EQ(program.connections.OpenNow(), 1);
        });
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_TRUE(Name().Widget().hasFocus());
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, TheDatabaseDecidesWhichNamesAreTheSame)
{
    program.database.Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('VIP')"_q);
    Add([this] {
        Type(u"vip"_q);
        program.desktop.Expect(NameTakenBox());
        Save();
    });
}

TEST_F(GroupEditorInSqlServerWords, AnApostropheMakesAnAddFailOnceAndStoresNothing)
{
    Add([this] {
        Type(u"김's 모임"_q);
        program.desktop.Expect(RefusedBox(u"Unclosed quotation mark after the character string ''."_q));
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditorInSqlServerWords, AnApostropheMakesARenameFail)
{
    Edit(u"청년부"_q, [this] {
        Type(u"김's 모임"_q);
        program.desktop.Expect(
            RefusedBox(u"Unclosed quotation mark after the character string ' WHERE GroupCd=1'."_q));
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(Names(), QStringList({u"청년부"_q, u"성가대"_q}));
}

TEST_F(GroupEditor, WhenTheNamesCannotBeReadTheInsertIsTriedAndLost)
{
    Add([this] {
        Type(u"교사회"_q);
        program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired"_q);
        program.desktop.Expect(RefusedBox(u"Timeout expired"_q));
        Save(); // the failure closed the connection; the insert only brings it back
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, WithoutAConnectionForTheTestAnInsertGoesThroughUntested)
{
    Add([this] {
        Type(u"성가대"_q);
        program.connections.RefuseOpens(2);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(AddedBox());
        Save();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(Names(), QStringList({u"청년부"_q, u"성가대"_q, u"성가대"_q}));
}

TEST_F(GroupEditor, ASaveTriesTwiceToConnect)
{
    Add([this] {
        Type(u"성가대"_q);
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(NameTakenBox()); // looked at on the second connection
        Save();
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, TheReloadBehindASaveTriesTwiceToConnect)
{
    Add([this] {
        Type(u"교사회"_q);
        program.desktop.Expect(AddedBox(), AnswerOK, [this] { program.connections.RefuseOpens(1); });
        program.desktop.Expect(ServerDownBox(), AnswerOK, [this] { EXPECT_FALSE(IsOpen()); });
        Save();
        EXPECT_TRUE(Groups().contains(u"교사회"_q));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
}

TEST_F(GroupEditor, AnInsertThatFailsLeavesTheDialogOpenAndReadsNothing)
{
    Add([this] {
        Type(u"교사회"_q);
        program.connections.FailStatement(2, IntegrityViolation, u"no room"_q);
        program.desktop.Expect({u" - 오류!!!"_q,
                                u"☞ : no room\r\n\r\n데이터베이스 저장 프로시저 내부시스템 오류"_q,
                                MsgBoxCritical});
        const int opens = program.connections.Opens();
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        EXPECT_EQ(program.connections.Opens(), opens + 1);
        program.desktop.Expect(AddedBox());
        Save();
    });
    EXPECT_EQ(Names().size(), 3);
}

TEST_F(GroupEditor, AListThatCannotBeReadBehindASaveIsLeftAsItWas)
{
    Add([this] {
        Type(u"교사회"_q);
        program.connections.FailStatement(3, StatementFailure, u"locked"_q);
        program.desktop.Expect(AddedBox());
        program.desktop.Expect(RefusedBox(u"locked"_q));
        Save();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Groups().size(), 3);
    });
    EXPECT_EQ(Names().size(), 3);
}

TEST_F(GroupEditor, ANameTakesFortyBytes)
{
    Add([this] {
        Type(QString(u"가"_q).repeated(19) + u"abc"_q);
        EXPECT_EQ(Name().Text(), QString(u"가"_q).repeated(19) + u"ab"_q);
        PasteText(Name().Widget(), u"나다"_q);
        EXPECT_EQ(Name().Text().size(), 21);
    });
}

TEST_F(GroupEditor, TheNameTakesTheFocusColour)
{
    Add([this] {
        EXPECT_EQ(Name().BackColor(), theme::Focus);
        program.On<QWidget>(Dialog(), u"BtnFunc(1)"_q).setFocus();
        EXPECT_EQ(Name().BackColor(), theme::White);
    });
}

TEST_F(GroupEditor, ArrowKeysDoNotLeaveTheField)
{
    Add([this] {
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Down}) {
            PressKey(Name().Widget(), key);
            EXPECT_TRUE(Name().Widget().hasFocus());
        }
    });
}

TEST_F(GroupEditor, CancelEscAndTheTitleBarStoreNothing)
{
    for (const QString& button : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
        Add([this, button] {
            Type(u"교사회"_q);
            ClickOn(program.On<QWidget>(Dialog(), button));
            EXPECT_FALSE(IsOpen());
        });
    Add([this] {
        Type(u"교사회"_q);
        ClickOn(program.On<QWidget>(Dialog(), u"BtnTopFunc(0)"_q));
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, WhileBusyButtonsAndKeysAreDeadAndTheLimitHolds)
{
    Add([this] {
        program.session.Busy = true;
        Type(QString(u"가"_q).repeated(21));
        EXPECT_EQ(Name().Text().size(), 20);
        PressKey(Name().Widget(), Qt::Key_Return);
        PressKey(Dialog(), Qt::Key_F12);
        PressKey(Dialog(), Qt::Key_Escape);
        for (const QString& button : {u"BtnFunc(0)"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            ClickOn(program.On<QWidget>(Dialog(), button));
        EXPECT_TRUE(IsOpen());
        program.session.Busy = false;
    });
    EXPECT_EQ(Names().size(), 2);
}

TEST_F(GroupEditor, EachOpeningBeginsEmpty)
{
    Add([this] { Type(u"교사회"_q); });
    Add([this] { EXPECT_EQ(Name().Text(), QString()); });
}

} // namespace
