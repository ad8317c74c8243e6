#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/AddressBook.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Form.h"

using namespace tsms;
using namespace tsms::test;

namespace {

Box BadNumberBox()
{
    return {u"하위 발송대상"_q, u"잘못된 전화번호 형식 : 올바른 휴대전화 번호를 입력하여 주십시오."_q,
            MsgBoxCritical};
}

Box MemberTakenBox()
{
    return {u"기 등록된 성명"_q, u"이미 등록된 성명입니다. 확인하여 주십시오.!"_q, MsgBoxCritical};
}

Box MemberAddedBox()
{
    return {u"발송대상"_q, u"정상적으로 하위 발송대상을 등록 하였습니다."_q, MsgBoxInformation};
}

Box ChangedBox()
{
    return {u"발송대상"_q, u"정상적으로 하위 발송대상을 수정 하였습니다."_q, MsgBoxInformation};
}

Box MissingBox(const QString& field)
{
    return {field, u"'"_q + field + u"' 항목을 입력하여 주십시오."_q, MsgBoxExclamation};
}

class MemberEditor : public AddressBookTest
{
protected:
    /// Opens the address book, in it the dialog for a new member, and runs `act` there. What is still open
    /// then is left by Esc.
    void Add(const std::function<void()>& act)
    {
        InBook([this, act] {
            InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q,
                     [this, act](QWidget& dialog) { Work(dialog, act); });
        });
    }

    void Edit(const QString& member, const std::function<void()>& act)
    {
        InBook([this, member, act] {
            InDialog(u"dlgSMSGroupSub"_q, MemberEdit, MemberRow(member),
                     [this, act](QWidget& dialog) { Work(dialog, act); });
        });
    }

    QWidget& Dialog() { return *dialog_; }
    bool IsOpen() const { return Form::Find(u"dlgSMSGroupSub"_q) != nullptr; }
    ComboBox& Group() { return program.On<ComboBox>(Dialog(), u"CbGroup"_q); }
    TextField& Box(int index) { return program.On<TextField>(Dialog(), u"txtGroupSub(%1)"_q.arg(index)); }
    bool HasFocus(int index) { return Box(index).Widget().hasFocus(); }

    void TypeInto(int index, const QString& text)
    {
        Box(index).SetFocus();
        Box(index).SelectAll();
        PressKey(Box(index).Widget(), Qt::Key_Delete);
        TypeText(Box(index).Widget(), text);
    }
    void Type(const QString& name, const QString& phone)
    {
        TypeInto(0, name);
        TypeInto(1, phone);
    }
    void Save() { ClickOn(program.On<QWidget>(Dialog(), u"BtnFunc(0)"_q)); }

    QStringList GroupNames()
    {
        QStringList names;
        for (int i = 0; i < Group().ListCount(); ++i)
            names += Group().List(i);
        return names;
    }

    QList<QStringList> MembersInDatabase()
    {
        return Stored(u"SMSGroupSub"_q, u"GSubCd, GroupCd, GSubNm, GSPhone"_q);
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

using MemberEditorInSqlServerWords = InSqlServerWords<MemberEditor>;

TEST_F(MemberEditor, TheDialogsWordsAreItsOwn)
{
    Add([this] {
        EXPECT_EQ(Dialog().windowTitle(), u"구성원 등록"_q);
        const QList<std::pair<QString, QString>> labels{
            {u"lblTitle1(1)"_q, u"구성원 등록"_q},
            {u"lblTitle1(0)"_q, u"그룹에 소속된 발송대상을 설정합니다."_q},
            {u"Label2"_q, u"그룹명칭 :"_q},
            {u"lblTitle(0)"_q, u"성    명 :"_q},
            {u"lblTitle(1)"_q, u"휴대번호 :"_q}};
        for (const auto& [label, words] : labels)
            EXPECT_EQ(program.On<Label>(Dialog(), label).Caption(), words);
        EXPECT_EQ(program.On<PushButton>(Dialog(), u"BtnFunc(0)"_q).Caption(), u"저장(F12)"_q);
        EXPECT_EQ(program.On<PushButton>(Dialog(), u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
    });
}

// --- the groups

TEST_F(MemberEditor, ANewMemberStartsInTheFirstGroupByName)
{
    Add([this] {
        EXPECT_EQ(GroupNames(), QStringList({u"성가대"_q, u"청년부"_q, u"기타"_q}));
        EXPECT_EQ(Group().ListIndex(), 0);
        const int codes[] = {2, 1, 0};
        for (int i = 0; i < 3; ++i)
            EXPECT_EQ(Group().ItemData(i), codes[i]);
    });
}

TEST_F(MemberEditor, WithoutGroupsANewMemberStartsWithTheOthers)
{
    program.database.Execute(u"DELETE FROM SMSGroupMst"_q);
    Add([this] {
        EXPECT_EQ(GroupNames(), QStringList({u"기타"_q}));
        EXPECT_EQ(Group().ListIndex(), 0);
    });
}

TEST_F(MemberEditor, GroupsThatCannotBeReadLeaveTheOthersAlone)
{
    InBook([this] {
        program.connections.FailStatement(1, StatementFailure, u"locked"_q);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, [this](QWidget& dialog) {
            auto& groups = program.On<ComboBox>(dialog, u"CbGroup"_q);
            EXPECT_EQ(groups.ListCount(), 1);
            EXPECT_EQ(groups.Text(), u"기타"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(MemberEditor, TheGroupsAreReadWithASecondTryToConnect)
{
    InBook([this] {
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, [this](QWidget& dialog) {
            EXPECT_EQ(program.On<ComboBox>(dialog, u"CbGroup"_q).ListCount(), 3);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(MemberEditor, AnEditShowsTheMembersGroupFirstThenTheOthersByName)
{
    program.database.Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('교사회')"_q);
    Edit(u"김하늘"_q, [this] {
        EXPECT_EQ(GroupNames(), QStringList({u"청년부"_q, u"교사회"_q, u"성가대"_q, u"기타"_q}));
        EXPECT_EQ(Group().ListIndex(), 0);
        const int codes[] = {1, 3, 2, 0};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(Group().ItemData(i), codes[i]);
    });
}

TEST_F(MemberEditor, AnEditOfAMemberWithoutAGroupOpensOnTheOthers)
{
    Edit(u"최구름"_q, [this] {
        EXPECT_EQ(GroupNames(), QStringList({u"성가대"_q, u"청년부"_q, u"기타"_q}));
        EXPECT_EQ(Group().Text(), u"기타"_q);
    });
}

TEST_F(MemberEditor, AMemberWhoseGroupWasDeletedOpensOnTheOthers)
{
    InBook([this] {
        ShowGroups();
        program.desktop.Expect(
            {u"그룹 삭제"_q, u"삭제확인 : 청년부을(를) 삭제하시겠습니까.?"_q, MsgBoxQuestion}, AnswerYes);
        program.desktop.Expect(
            {u"삭제완료"_q, u"삭제완료 : 정상적으로 삭제 되었습니다."_q, MsgBoxInformation});
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
        ShowMembers();
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, MemberRow(u"김하늘"_q), [this](QWidget& dialog) {
            EXPECT_EQ(program.On<ComboBox>(dialog, u"CbGroup"_q).Text(), u"기타"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(MemberEditor, AGroupThatIsInNoTableOpensOnTheFirst)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GroupCd = 99 WHERE GSubCd = 1"_q);
    Edit(u"김하늘"_q, [this] { EXPECT_EQ(Group().Text(), u"성가대"_q); });
}

// --- loading a member

TEST_F(MemberEditor, AnEditShowsNameNumberAndKeyTrimmed)
{
    program.database.Execute(
        u"UPDATE SMSGroupSub SET GSubNm = ' 김하늘  ', GSPhone = ' 010-0000-0001 ' WHERE GSubCd = 1"_q);
    Edit(u" 김하늘  "_q, [this] {
        EXPECT_EQ(Box(0).Text(), u"김하늘"_q);
        EXPECT_EQ(Box(0).Tag, u"1"_q);
        EXPECT_EQ(Box(1).Text(), u"010-0000-0001"_q);
    });
}

TEST_F(MemberEditor, TheFieldsRulesHoldForWhatIsLoadedToo)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GSPhone = '010(0000)0001234567' WHERE GSubCd = 1"_q);
    Edit(u"김하늘"_q, [this] { EXPECT_EQ(Box(1).Text(), u"010000000012345"_q); });
}

TEST_F(MemberEditor, AnEditReadsTheGroupsThenTheMemberThenTheGroups)
{
    InBook([this] {
        const qsizetype before = program.connections.Statements().size();
        const QString groups = u"SELECT GroupCd,GroupNm FROM SMSGroupMst ORDER BY GroupNm"_q;
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, 3,
                 [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
        EXPECT_EQ(
            program.connections.Statements().mid(before),
            QStringList({groups, u"SELECT GSubCd,GroupCd, GSubNm,GSPhone FROM SMSGroupSub WHERE GSubCd=3"_q,
                         groups}));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
}

TEST_F(MemberEditor, AMemberWhoIsGoneByThenIsReportedAndTheDialogOpensEmpty)
{
    InBook([this] {
        program.database.Execute(u"DELETE FROM SMSGroupSub WHERE GSubCd = 1"_q);
        program.desktop.Expect(RefusedBox(u"BOF나 EOF가 참이거나 현재 레코드가 없습니다."_q));
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, 1, [this](QWidget& dialog) {
            EXPECT_EQ(program.On<TextField>(dialog, u"txtGroupSub(0)"_q).Text(), QString());
            EXPECT_EQ(program.connections.OpenNow(), 0);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(MemberEditor, AMemberWhoCannotBeReadIsReportedOnce)
{
    InBook([this] {
        program.connections.FailStatement(2, CommandTimedOut, u"Timeout expired"_q);
        program.desktop.Expect(RefusedBox(u"Timeout expired"_q));
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, 1, [this](QWidget& dialog) {
            EXPECT_EQ(program.On<TextField>(dialog, u"txtGroupSub(0)"_q).Text(), QString());
            EXPECT_EQ(program.On<ComboBox>(dialog, u"CbGroup"_q).ListIndex(), 0);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(MemberEditor, AMemberIsReadWithASecondTryToConnect)
{
    InBook([this] {
        bool groupsRead = false;
        program.connections.BeforeStatement([this, &groupsRead](const QString&) {
            if (!groupsRead)
                program.connections.RefuseOpens(1);
            groupsRead = true;
        });
        program.desktop.Expect(ServerDownBox());
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, MemberRow(u"김하늘"_q), [this](QWidget& dialog) {
            EXPECT_EQ(program.On<TextField>(dialog, u"txtGroupSub(0)"_q).Text(), u"김하늘"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
        program.connections.BeforeStatement({});
    });
}

// --- saving

TEST_F(MemberEditor, ANewMemberIsStoredAndTheDialogCloses)
{
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0005"_q);
        program.desktop.Expect(MemberAddedBox(), AnswerOK, [this] {
            EXPECT_TRUE(IsOpen());
            EXPECT_FALSE(program.session.IsBusy());
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
            EXPECT_EQ(program.connections.OpenNow(), 0);
        });
        Save();
        EXPECT_FALSE(IsOpen());
        EXPECT_EQ(Members().last(), QStringList({u"성가대"_q, u"정노을"_q, u"010-0000-0005"_q}));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(MembersInDatabase().last(), QStringList({u"5"_q, u"2"_q, u"정노을"_q, u"010-0000-0005"_q}));
}

TEST_F(MemberEditor, TheStatementsOfAnAddComeInTheirOrder)
{
    Add([this] {
        const qsizetype before = program.connections.Statements().size();
        Type(u" 정노을 "_q, u"0100000005"_q);
        program.desktop.Expect(MemberAddedBox());
        Save();
        const QStringList statements = program.connections.Statements().mid(before);
        ASSERT_EQ(statements.size(), 3);
        EXPECT_EQ(statements[0], u"SELECT GSubNm FROM SMSGroupSub   WHERE GSubNm ='정노을'"_q);
        EXPECT_EQ(
            statements[1],
            u"Insert INTO SMSGroupSub  (GroupCd, GSubNm, GSPhone )  VALUES (2,'정노을','0100000005')"_q);
        EXPECT_TRUE(statements[2].startsWith(u" SELECT GSubCd"_q));
    });
}

TEST_F(MemberEditor, TheOthersAreStoredAsNoGroupAndOpenAsTheOthersAgain)
{
    Add([this] {
        Group().SetListIndex(2);
        Type(u"정노을"_q, u"0100000005"_q);
        program.desktop.Expect(MemberAddedBox());
        Save();
        EXPECT_EQ(Members().last()[0], u"기타"_q);
    });
    EXPECT_EQ(MembersInDatabase().last()[1], u"(null)"_q);
    Edit(u"정노을"_q, [this] { EXPECT_EQ(Group().Text(), u"기타"_q); });
}

TEST_F(MemberEditor, AnEditIsStoredInItsRow)
{
    Edit(u"이바다"_q, [this] {
        const qsizetype before = program.connections.Statements().size();
        Group().SetListIndex(2);
        Type(u"이강산"_q, u"017.0000.0002"_q);
        program.desktop.Expect(ChangedBox());
        Save();
        EXPECT_EQ(program.connections.Statements()[before],
                  u"UPDATE SMSGroupSub SET  GroupCd =Null, GSubNm ='이강산', GSPhone ='017.0000.0002' WHERE "
                  u"GSubCd=2"_q);
        EXPECT_EQ(Members()[1], QStringList({u"기타"_q, u"이강산"_q, u"017.0000.0002"_q}));
    });
    EXPECT_EQ(MembersInDatabase()[1], QStringList({u"2"_q, u"(null)"_q, u"이강산"_q, u"017.0000.0002"_q}));
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, ASecondPersonOfTheSameNameIsRefusedWhateverTheGroups)
{
    Add([this] {
        Type(u" 최구름 "_q, u"0100000005"_q);
        program.desktop.Expect(MemberTakenBox(), AnswerOK, [this] {
            EXPECT_TRUE(program.session.IsBusy());
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Hourglass);
        });
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_TRUE(HasFocus(0));
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, AnEditMayMakeTwoPersonsOfOneName)
{
    Edit(u"이바다"_q, [this] {
        TypeInto(0, u"김하늘"_q);
        program.desktop.Expect(ChangedBox());
        Save();
    });
    EXPECT_EQ(MembersInDatabase()[1][2], u"김하늘"_q);
}

TEST_F(MemberEditor, TheSameNumberMayBeStoredForAnyone)
{
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0001"_q);
        program.desktop.Expect(MemberAddedBox());
        Save();
    });
    EXPECT_EQ(MembersInDatabase().size(), 5);
}

TEST_F(MemberEditor, NameAndNumberAreRequiredInTheirOrderBeforeTheDatabaseIsAsked)
{
    Add([this] {
        const int opens = program.connections.Opens();
        Type(u"  "_q, u""_q);
        program.desktop.Expect(MissingBox(u"성명:"_q));
        Save();
        EXPECT_TRUE(HasFocus(0));
        TypeInto(0, u"정노을"_q);
        program.desktop.Expect(MissingBox(u"휴대번호:"_q));
        Save();
        EXPECT_TRUE(HasFocus(1));
        EXPECT_EQ(program.connections.Opens(), opens);
    });
}

TEST_F(MemberEditor, AnEditIsHeldToTheSameFields)
{
    Edit(u"김하늘"_q, [this] {
        TypeInto(1, u""_q);
        program.desktop.Expect(MissingBox(u"휴대번호:"_q));
        Save();
        TypeInto(1, u"010000005"_q);
        program.desktop.Expect(BadNumberBox());
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(MembersInDatabase()[0][3], u"010-0000-0001"_q);
}

TEST_F(MemberEditor, ANumberOfTheWrongFormIsRefused)
{
    Add([this] {
        const int opens = program.connections.Opens();
        for (const QString& bad : {u"02-0000-0005"_q, u"010000005"_q, u"012-0000-0005"_q, u"."_q}) {
            Type(u"정노을"_q, bad);
            program.On<QWidget>(Dialog(), u"BtnFunc(0)"_q).setFocus();
            program.desktop.Expect(BadNumberBox());
            Save();
            EXPECT_TRUE(HasFocus(1));
        }
        EXPECT_EQ(program.connections.Opens(), opens);
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, NumbersAreStoredAsTypedWithTheirSigns)
{
    const QStringList numbers{u"010-1234-5678"_q, u"01612345.."_q, u"019/123.4567"_q};
    int person = 0;
    for (const QString& number : numbers)
        Add([this, number, &person] {
            Type(u"새사람%1"_q.arg(++person), number);
            program.desktop.Expect(MemberAddedBox());
            Save();
        });
    for (int i = 0; i < 3; ++i)
        EXPECT_EQ(MembersInDatabase()[4 + i][3], numbers[i]);
}

TEST_F(MemberEditorInSqlServerWords, AnApostropheMakesAnAddFailOnceAndStoresNothing)
{
    Add([this] {
        Type(u"오'하라"_q, u"0100000005"_q);
        program.desktop.Expect(RefusedBox(u"Unclosed quotation mark after the character string ''."_q));
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(program.session.IsBusy());
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, TwoApostrophesDoNotChangeWhatAnEditDoes)
{
    Edit(u"김하늘"_q, [this] {
        TypeInto(0, u"x', GSubNm='y"_q);
        program.desktop.Expect(RefusedBox(u"Incorrect syntax near ','."_q));
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(MembersInDatabase()[0][2], u"김하늘"_q);
}

TEST_F(MemberEditor, WithoutAConnectionForTheTestAnInsertGoesThroughUntested)
{
    Add([this] {
        Type(u"김하늘"_q, u"0100000005"_q);
        program.connections.RefuseOpens(2);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(MemberAddedBox());
        Save();
    });
    EXPECT_EQ(MembersInDatabase().size(), 5);
}

TEST_F(MemberEditor, ASaveTriesTwiceToConnect)
{
    Add([this] {
        Type(u"김하늘"_q, u"0100000005"_q);
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(MemberTakenBox()); // looked at on the second connection
        Save();
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, TheReloadBehindASaveTriesTwiceToConnect)
{
    Edit(u"김하늘"_q, [this] {
        TypeInto(0, u"김바람"_q);
        program.desktop.Expect(ChangedBox(), AnswerOK, [this] { program.connections.RefuseOpens(1); });
        program.desktop.Expect(ServerDownBox(), AnswerOK, [this] { EXPECT_FALSE(IsOpen()); });
        Save();
        EXPECT_EQ(Members()[0][1], u"김바람"_q);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
}

TEST_F(MemberEditor, WhenTheNamesCannotBeReadTheInsertIsTriedAndLost)
{
    Add([this] {
        Type(u"정노을"_q, u"0100000005"_q);
        program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired"_q);
        program.desktop.Expect(RefusedBox(u"Timeout expired"_q));
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, AnUpdateThatFailsLeavesTheDialogOpen)
{
    Edit(u"김하늘"_q, [this] {
        TypeInto(0, u"김바람"_q);
        program.connections.FailStatement(1, StatementFailure, u"locked"_q);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(MembersInDatabase()[0][2], u"김하늘"_q);
}

TEST_F(MemberEditor, ASaveReloadsTheMembersOfTheFilter)
{
    InBook([this] {
        ChooseFilter(1);
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, [this](QWidget& dialog) {
            TypeText(program.On<QWidget>(dialog, u"txtGroupSub(0)"_q), u"정노을"_q);
            TypeText(program.On<QWidget>(dialog, u"txtGroupSub(1)"_q), u"0100000005"_q);
            program.desktop.Expect(MemberAddedBox());
            PressKey(dialog, Qt::Key_F12);
        });
        EXPECT_EQ(Filter().Text(), u"성가대"_q);
        EXPECT_EQ(Members().size(), 2);
    });
}

// --- fields

TEST_F(MemberEditor, ANameTakesFortyBytesAndANumberFifteenSigns)
{
    Add([this] {
        Type(QString(u"가"_q).repeated(21), u"0123456789012345"_q);
        EXPECT_EQ(Box(0).Text(), QString(u"가"_q).repeated(20));
        EXPECT_EQ(Box(1).Text(), u"012345678901234"_q);
    });
}

TEST_F(MemberEditor, ANumberTakesDigitsHyphensDotsAndSlashesAlone)
{
    Add([this] {
        TypeInto(1, u"0a1 0-(1)2/3.4가+"_q);
        EXPECT_EQ(Box(1).Text(), u"010-12/3.4"_q);
        PasteText(Box(1).Widget(), u" tel:99"_q);
        EXPECT_EQ(Box(1).Text(), u"010-12/3.499"_q);
        PressKey(Box(1).Widget(), Qt::Key_Backspace);
        EXPECT_EQ(Box(1).Text(), u"010-12/3.49"_q);
    });
}

TEST_F(MemberEditor, EnterWalksFromTheGroupOverTheNameToTheNumberAndSaves)
{
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0005"_q);
        Group().setFocus();
        PressKey(Group(), Qt::Key_Return);
        EXPECT_TRUE(HasFocus(0));
        PressKey(Box(0).Widget(), Qt::Key_Return);
        EXPECT_TRUE(HasFocus(1));
        EXPECT_EQ(Box(1).SelText(), u"010-0000-0005"_q);
        program.desktop.Expect(MemberAddedBox());
        PressKey(Box(1).Widget(), Qt::Key_Return);
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(MembersInDatabase().size(), 5);
}

TEST_F(MemberEditor, F12SavesFromAnyField)
{
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0005"_q);
        Group().setFocus();
        program.desktop.Expect(MemberAddedBox());
        PressKey(Group(), Qt::Key_F12);
        EXPECT_FALSE(IsOpen());
    });
}

TEST_F(MemberEditor, ArrowKeysLeaveABoxAtItsEnds)
{
    Add([this] {
        Type(u"정노을"_q, u"010"_q);
        Box(0).SetFocus();
        Box(0).SetSelStart(3);
        PressKey(Box(0).Widget(), Qt::Key_Right);
        EXPECT_TRUE(HasFocus(1));
        Box(1).SetSelStart(0);
        PressKey(Box(1).Widget(), Qt::Key_Up);
        EXPECT_TRUE(HasFocus(0));
        Box(0).SetSelStart(1);
        PressKey(Box(0).Widget(), Qt::Key_Right);
        EXPECT_TRUE(HasFocus(0));
        Box(0).SelectAll();
        PressKey(Box(0).Widget(), Qt::Key_Down);
        EXPECT_TRUE(HasFocus(1));
        Box(0).SetFocus();
        Box(0).SetSelStart(0);
        PressKey(Box(0).Widget(), Qt::Key_Left);
        EXPECT_TRUE(Group().hasFocus());
    });
}

TEST_F(MemberEditor, TheBoxWithTheFocusAndItsBackingAreColoured)
{
    Add([this] {
        for (const int index : {0, 1}) {
            Box(index).SetFocus();
            for (const int each : {0, 1}) {
                const QColor color = each == index ? theme::Focus : theme::White;
                EXPECT_EQ(Box(each).BackColor(), color);
                EXPECT_EQ(program.On<Panel>(Dialog(), u"PLtxtBack(%1)"_q.arg(each)).BackColor(), color);
            }
        }
    });
}

TEST_F(MemberEditor, CancelEscAndTheTitleBarStoreNothing)
{
    for (const QString& button : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
        Add([this, button] {
            Type(u"정노을"_q, u"010-0000-0005"_q);
            ClickOn(program.On<QWidget>(Dialog(), button));
            EXPECT_FALSE(IsOpen());
        });
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0005"_q);
        ClickOn(program.On<QWidget>(Dialog(), u"BtnTopFunc(0)"_q));
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(MemberEditor, WhileBusyButtonsAndKeysAreDeadAndTheFieldsAreNotHeldToTheirLimits)
{
    Add([this] {
        Type(u"정노을"_q, u"010-0000-0005"_q);
        program.session.Busy = true;
        Box(1).SetText(u"(010) 0000 0000 0005"_q);
        EXPECT_EQ(Box(1).Text(), u"(010) 0000 0000 0005"_q);
        PressKey(Box(1).Widget(), Qt::Key_Return);
        PressKey(Dialog(), Qt::Key_F12);
        PressKey(Dialog(), Qt::Key_Escape);
        for (const QString& button : {u"BtnFunc(0)"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            ClickOn(program.On<QWidget>(Dialog(), button));
        EXPECT_TRUE(IsOpen());
        program.session.Busy = false;
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

} // namespace
