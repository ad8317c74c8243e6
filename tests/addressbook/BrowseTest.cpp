#include "store/engine/DatabaseError.h"
#include "support/program/AddressBook.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/windows/Form.h"

#include <QtTest/QTest>

using namespace tsms;
using namespace tsms::test;

namespace {

Box DeleteQuestion(const QString& name, const QString& title)
{
    return {title, u"삭제확인 : "_q + name + u"을(를) 삭제하시겠습니까.?"_q, MsgBoxQuestion};
}

Box DeletedBox()
{
    return {u"삭제완료"_q, u"삭제완료 : 정상적으로 삭제 되었습니다."_q, MsgBoxInformation};
}

class BrowseView : public AddressBookTest
{
protected:
    QStringList FilterNames()
    {
        QStringList names;
        for (int i = 0; i < Filter().ListCount(); ++i)
            names += Filter().List(i);
        return names;
    }

    /// The rows of the browse list that are ticked.
    QList<int> Ticked()
    {
        QList<int> rows;
        for (int row = 1; row <= Browse().Cells().MaxRows(); ++row)
            if (Browse().Cells().CellPicture(2, row) == 1)
                rows += row;
        return rows;
    }

    QList<QStringList> MembersInDatabase() { return Stored(u"SMSGroupSub"_q, u"GSubCd, GroupCd, GSubNm"_q); }
    QList<QStringList> GroupsInDatabase() { return Stored(u"SMSGroupMst"_q, u"GroupCd, GroupNm"_q); }

    const QList<QStringList> everyone{{u"청년부"_q, u"김하늘"_q, u"010-0000-0001"_q},
                                      {u"청년부"_q, u"이바다"_q, u"01000000002"_q},
                                      {u"성가대"_q, u"박나무"_q, u"011-000-0003"_q},
                                      {u"기타"_q, u"최구름"_q, u"016-000-0004"_q}};
};

// --- opening and closing

TEST_F(BrowseView, TheAddressBookOpensWithAllMembersNoneOfThemTicked)
{
    InBook([this] {
        EXPECT_TRUE(program.On<RadioButton>(Book(), u"OptType(0)"_q).Value());
        EXPECT_EQ(Members(), everyone);
        EXPECT_EQ(Ticked(), QList<int>());
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
}

TEST_F(BrowseView, TheKeysOfTheMembersAreThereAndNotOnView)
{
    InBook([this] {
        EXPECT_EQ(RowsOf(Browse(), {MemberCode}),
                  QList<QStringList>({{u"1"_q}, {u"2"_q}, {u"3"_q}, {u"4"_q}}));
        EXPECT_TRUE(Browse().ColHidden(MemberCode));
    });
}

TEST_F(BrowseView, WithoutMembersTheListIsEmpty)
{
    program.database.Execute(u"DELETE FROM SMSGroupSub"_q);
    InBook([this] { EXPECT_EQ(Browse().Cells().MaxRows(), 0); });
}

TEST_F(BrowseView, EscTheCancelButtonAndTheTitleBarCloseIt)
{
    for (const QString& button : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
        InBook([this, button] { Press(button); });
    InBook([] {});
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(BrowseView, F12AndTheProgramsSignDoNothing)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        PressKey(Book(), Qt::Key_F12);
        Press(u"BtnTopFunc(0)"_q);
        EXPECT_TRUE(BookIsOpen());
    });
    EXPECT_EQ(program.Recipients().Cells().Text(3, 1), QString());
}

TEST_F(BrowseView, ASecondActivationReadsNothing)
{
    InBook([this] {
        const qsizetype statements = program.connections.Statements().size();
        program.database.Execute(u"DELETE FROM SMSGroupSub"_q);
        QWidget other;
        other.show();
        other.activateWindow();
        Settle();
        Book().activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&Book()));
        EXPECT_EQ(Members(), everyone);
        EXPECT_EQ(program.connections.Statements().size(), statements);
    });
}

TEST_F(BrowseView, EachShowingBeginsAnew)
{
    InBook([this] {
        ShowGroups();
        ClickCell(Browse(), GroupTick, 1);
    });
    InBook([this] {
        EXPECT_EQ(Members(), everyone);
        EXPECT_EQ(Ticked(), QList<int>());
    });
}

TEST_F(BrowseView, AServerThatIsDownIsTriedOnceAndLeavesFilterAndListEmpty)
{
    program.connections.RefuseOpens(1);
    program.desktop.Expect(ServerDownBox());
    const int opens = program.connections.Opens();
    InBook([this, opens] {
        EXPECT_EQ(program.connections.Opens(), opens + 1);
        EXPECT_EQ(Filter().ListCount(), 0);
        EXPECT_EQ(Browse().Cells().MaxRows(), 0);
        EXPECT_FALSE(program.session.IsBusy());
    });
}

TEST_F(BrowseView, WhenTheGroupsCannotBeReadAtTheStartTheListStaysEmptyToo)
{
    // The failure closes the connection; the next query finds none and brings it back without a word.
    program.connections.FailStatement(1, StatementFailure, u"dead"_q);
    program.desktop.Expect(RefusedBox(u"dead"_q));
    InBook([this] {
        EXPECT_EQ(FilterNames(), QStringList({u"전체"_q, u"기타"_q}));
        EXPECT_EQ(Browse().Cells().MaxRows(), 0);
    });
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(BrowseView, WhenTheGroupsCannotBeReadAChangeOfViewShowsAnEmptyListOfItsOwnLayout)
{
    InBook([this] {
        program.connections.FailStatement(1, StatementFailure, u"dead"_q);
        program.desktop.Expect(RefusedBox(u"dead"_q));
        ShowGroups();
        EXPECT_EQ(Browse().Cells().MaxCols(), 5);
        EXPECT_EQ(Browse().Cells().MaxRows(), 0);
        EXPECT_FALSE(Filter().isVisible());
        EXPECT_FALSE(program.session.IsBusy());
        ShowMembers();
        EXPECT_EQ(Members(), everyone);
    });
}

TEST_F(BrowseView, WhenTheMembersCannotBeReadAtTheStartTheFilterIsThere)
{
    program.connections.FailStatement(2, NoSuchTable, u"Invalid object name 'SMSGroupSub'."_q);
    program.desktop.Expect(RefusedBox(u"Invalid object name 'SMSGroupSub'."_q));
    InBook([this] {
        EXPECT_EQ(Filter().ListCount(), 4);
        EXPECT_EQ(Browse().Cells().MaxRows(), 0);
        EXPECT_FALSE(program.session.IsBusy());
    });
}

// --- filter and views

TEST_F(BrowseView, TheFilterHoldsAllGroupsByNameBetweenEveryoneAndTheOthers)
{
    InBook([this] {
        EXPECT_EQ(FilterNames(), QStringList({u"전체"_q, u"성가대"_q, u"청년부"_q, u"기타"_q}));
        EXPECT_EQ(Filter().ListIndex(), 0);
        const int codes[] = {0, 2, 1, 0};
        for (int i = 0; i < 4; ++i)
            EXPECT_EQ(Filter().ItemData(i), codes[i]);
    });
}

TEST_F(BrowseView, AChoiceInTheFilterShowsThatGroup)
{
    InBook([this] {
        ChooseFilter(1);
        EXPECT_EQ(Members(), QList<QStringList>({everyone[2]}));
        ChooseFilter(2);
        EXPECT_EQ(Members(), QList<QStringList>({everyone[0], everyone[1]}));
        ChooseFilter(3);
        EXPECT_EQ(Members(), QList<QStringList>({everyone[3]}));
        ChooseFilter(0);
        EXPECT_EQ(Members(), everyone);
    });
}

TEST_F(BrowseView, AChoiceInTheFilterKeepsItAndReadsTheMembersAlone)
{
    InBook([this] {
        const qsizetype statements = program.connections.Statements().size();
        ChooseFilter(1);
        EXPECT_EQ(Filter().ListIndex(), 1);
        EXPECT_EQ(program.connections.Statements().size(), statements + 1);
    });
}

TEST_F(BrowseView, AMemberWhoseGroupIsGoneFromItsTableHasAnEmptyGroup)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GroupCd = 99 WHERE GSubCd = 1"_q);
    InBook([this] { EXPECT_EQ(Members()[0], QStringList({QString(), u"김하늘"_q, u"010-0000-0001"_q})); });
}

TEST_F(BrowseView, TheGroupViewShowsTheGroupsAndTheOthersLast)
{
    InBook([this] {
        ShowGroups();
        QStringList groups = Groups();
        ASSERT_EQ(groups.size(), 3);
        EXPECT_EQ(groups.takeLast(), u"기타"_q);
        groups.sort();
        EXPECT_EQ(groups, QStringList({u"성가대"_q, u"청년부"_q}));
        EXPECT_EQ(Browse().Cells().Text(GroupCode, GroupRow(u"청년부"_q)), u"1"_q);
        EXPECT_EQ(Browse().Cells().Text(GroupCode, 3), QString());
    });
}

TEST_F(BrowseView, WithoutGroupsTheGroupViewHasTheOthersAlone)
{
    program.database.Execute(u"DELETE FROM SMSGroupMst"_q);
    InBook([this] {
        ShowGroups();
        EXPECT_EQ(Groups(), QStringList({u"기타"_q}));
    });
}

TEST_F(BrowseView, TheFilterIsHiddenAndIgnoredInTheGroupView)
{
    InBook([this] {
        ChooseFilter(1);
        ShowGroups();
        EXPECT_FALSE(Filter().isVisible());
        EXPECT_EQ(Groups().size(), 3);
        ShowMembers();
        EXPECT_TRUE(Filter().isVisible());
        EXPECT_EQ(Filter().ListIndex(), 0);
        EXPECT_EQ(Members(), everyone);
    });
}

TEST_F(BrowseView, AChangeOfViewTriesTwiceToConnect)
{
    InBook([this] {
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        ShowGroups();
        EXPECT_EQ(Groups().size(), 3);
    });
}

TEST_F(BrowseView, AChoiceInTheFilterTriesTwiceToConnect)
{
    InBook([this] {
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        ChooseFilter(1);
        EXPECT_EQ(Members(), QList<QStringList>({everyone[2]}));
    });
}

TEST_F(BrowseView, AFilterWhoseMembersCannotBeReadShowsNone)
{
    InBook([this] {
        program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired"_q);
        program.desktop.Expect(RefusedBox(u"Timeout expired"_q));
        ChooseFilter(1);
        EXPECT_EQ(Browse().Cells().MaxRows(), 0); // cleared before
        EXPECT_FALSE(program.session.IsBusy());
    });
}

TEST_F(BrowseView, NamesWithApostrophesAndSignsStandAsStored)
{
    program.database.Execute(u"INSERT INTO SMSGroupMst (GroupNm) VALUES ('김''s & <b>')"_q);
    program.database.Execute(
        u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES (3, '오''하라 & 딸', NULL)"_q);
    InBook([this] {
        EXPECT_EQ(Members().last(), QStringList({u"김's & <b>"_q, u"오'하라 & 딸"_q, QString()}));
        ShowGroups();
        EXPECT_TRUE(Groups().contains(u"김's & <b>"_q));
    });
}

TEST_F(BrowseView, ThirtyThousandMembersAreAllThere)
{
    Fill(3, 10000);
    InBook([this] {
        ASSERT_EQ(Browse().Cells().MaxRows(), 30000);
        EXPECT_EQ(Browse().Cells().Text(MemberPhone, 30000), u"010-00030000"_q);
        EXPECT_EQ(Browse().Cells().Text(MemberGroup, 30000), u"그룹3"_q);
    });
}

// --- ticks

TEST_F(BrowseView, AClickOnAMemberTurnsItsTick)
{
    InBook([this] {
        fpSpread& browse = Browse();
        for (const int column : {MemberTick, MemberGroup, MemberName, MemberPhone}) {
            ClickCell(browse, column, 2);
            EXPECT_EQ(Ticked(), QList<int>({2})) << column;
            ClickCell(browse, column, 2);
            EXPECT_EQ(Ticked(), QList<int>()) << column;
        }
    });
}

TEST_F(BrowseView, AClickOnAGroupTurnsItsTick)
{
    InBook([this] {
        ShowGroups();
        fpSpread& browse = Browse();
        for (const int column : {GroupTick, GroupName}) {
            ClickCell(browse, column, 3);
            EXPECT_EQ(Ticked(), QList<int>({3}));
            ClickCell(browse, column, 3);
            EXPECT_EQ(Ticked(), QList<int>());
        }
    });
}

TEST_F(BrowseView, TheSpaceBarTurnsATickToo)
{
    InBook([this] {
        fpSpread& browse = Browse();
        browse.setFocus();
        browse.SetActiveCell(MemberName, 3);
        PressKey(browse, Qt::Key_Space);
        EXPECT_EQ(Ticked(), QList<int>({3}));
    });
}

TEST_F(BrowseView, TheActiveRowIsTickedWhateverRowTheClickReports)
{
    InBook([this] {
        Browse().SetActiveCell(MemberName, 2);
        Q_EMIT Browse().Click(MemberName, 4);
        EXPECT_EQ(Ticked(), QList<int>({2}));
    });
}

TEST_F(BrowseView, ANewViewAndANewFilterTakeTheTicksAway)
{
    InBook([this] {
        ClickCell(Browse(), MemberTick, 1);
        ChooseFilter(3);
        EXPECT_EQ(Ticked(), QList<int>());
        ClickCell(Browse(), MemberTick, 1);
        ShowGroups();
        EXPECT_EQ(Ticked(), QList<int>());
    });
}

TEST_F(BrowseView, TicksStayOnTheirRowsWhenASaveReloadsTheList)
{
    InBook([this] {
        ShowGroups();
        for (const int row : {1, 3})
            ClickCell(Browse(), GroupTick, row);
        program.desktop.Expect({u"그룹수정"_q, u"정상적으로 그룹을 수정 하였습니다."_q, MsgBoxInformation});
        InDialog(u"dlgSMSGroupMst"_q, GroupEdit, 2, [](QWidget& dialog) { PressKey(dialog, Qt::Key_F12); });
        EXPECT_EQ(Ticked(), QList<int>({1, 3}));
    });
}

TEST_F(BrowseView, TicksStayOnTheirRowsAndNotOnTheirMembers)
{
    InBook([this] {
        ClickCell(Browse(), MemberTick, 2);
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerYes);
        program.desktop.Expect(DeletedBox());
        ClickCell(Browse(), MemberDelete, 1);
        EXPECT_EQ(Ticked(), QList<int>({2}));
        EXPECT_EQ(Browse().Cells().Text(MemberName, 2), u"박나무"_q);
    });
}

// --- edit and delete

TEST_F(BrowseView, EditingAMemberOpensItsDialogWithItsTitles)
{
    InBook([this] {
        InDialog(u"dlgSMSGroupSub"_q, MemberEdit, MemberRow(u"이바다"_q), [this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"구성원 수정"_q);
            EXPECT_EQ(program.On<Label>(dialog, u"lblTitle1(1)"_q).Caption(), u"구성원 수정"_q);
            EXPECT_EQ(program.On<TextField>(dialog, u"txtGroupSub(0)"_q).Text(), u"이바다"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
        EXPECT_TRUE(BookIsOpen());
    });
}

TEST_F(BrowseView, EditingAGroupOpensItsDialogWithItsTitles)
{
    InBook([this] {
        ShowGroups();
        InDialog(u"dlgSMSGroupMst"_q, GroupEdit, GroupRow(u"청년부"_q), [this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"그룹 수정"_q);
            EXPECT_EQ(program.On<Label>(dialog, u"lblTitle(1)"_q).Caption(), u"그룹 수정"_q);
            const auto& name = program.On<TextField>(dialog, u"txtGroupNm"_q);
            EXPECT_EQ(name.Text(), u"청년부"_q);
            EXPECT_EQ(name.Tag, u"1"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(BrowseView, AGroupNameComesToItsDialogTrimmed)
{
    program.database.Execute(u"UPDATE SMSGroupMst SET GroupNm = '  청년부 ' WHERE GroupCd = 1"_q);
    InBook([this] {
        ShowGroups();
        InDialog(u"dlgSMSGroupMst"_q, GroupEdit, GroupRow(u"  청년부 "_q), [this](QWidget& dialog) {
            EXPECT_EQ(program.On<TextField>(dialog, u"txtGroupNm"_q).Text(), u"청년부"_q);
            PressKey(dialog, Qt::Key_Escape);
        });
    });
}

TEST_F(BrowseView, AMemberWithoutACodeIsNeitherEditedNorDeleted)
{
    InBook([this] {
        Browse().Cells().SetText(MemberCode, 1, u"  "_q);
        program.desktop.Expect(
            {u"구성원 수정"_q, u"수정확인 : 수정할 대상을 선택하여 주십시오."_q, MsgBoxExclamation});
        ClickCell(Browse(), MemberEdit, 1);
        program.desktop.Expect(
            {u"구성원 삭제"_q, u"삭제확인 : 삭제하실 대상을 선택하여 주십시오.!!!"_q, MsgBoxCritical});
        ClickCell(Browse(), MemberDelete, 1);
        EXPECT_EQ(Ticked(), QList<int>());
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(BrowseView, TheOthersAreNeitherEditedNorDeleted)
{
    InBook([this] {
        ShowGroups();
        program.desktop.Expect(
            {u"그룹 수정"_q, u"수정확인 : 기타그룹은 수정을 하실수가 없습니다."_q, MsgBoxCritical});
        ClickCell(Browse(), GroupEdit, 3);
        program.desktop.Expect(
            {u"그룹 삭제"_q, u"삭제확인 : 기타그룹은 삭제를 하실수가 없습니다."_q, MsgBoxCritical});
        ClickCell(Browse(), GroupDelete, 3);
    });
    EXPECT_EQ(GroupsInDatabase().size(), 2);
}

TEST_F(BrowseView, TheOthersAreToldByTheirPlaceForAnEditAndByTheirEmptyCodeForADeletion)
{
    InBook([this] {
        ShowGroups();
        Browse().Cells().SetText(GroupCode, 3, u"1"_q);
        program.desktop.Expect(
            {u"그룹 수정"_q, u"수정확인 : 기타그룹은 수정을 하실수가 없습니다."_q, MsgBoxCritical});
        ClickCell(Browse(), GroupEdit, 3);
        Browse().Cells().SetText(GroupCode, 1, QString());
        program.desktop.Expect(
            {u"그룹 삭제"_q, u"삭제확인 : 기타그룹은 삭제를 하실수가 없습니다."_q, MsgBoxCritical});
        ClickCell(Browse(), GroupDelete, 1);
    });
}

TEST_F(BrowseView, AMemberIsDeletedBehindTheQuestion)
{
    InBook([this] {
        program.desktop.Expect(DeleteQuestion(u"이바다"_q, u"구성원 삭제"_q), AnswerYes);
        program.desktop.Expect(DeletedBox(), AnswerOK, [this] {
            EXPECT_EQ(Members().size(), 3);
            EXPECT_EQ(program.connections.OpenNow(), 1);
        });
        ClickCell(Browse(), MemberDelete, MemberRow(u"이바다"_q));
        EXPECT_EQ(Members(), QList<QStringList>({everyone[0], everyone[2], everyone[3]}));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(MembersInDatabase(), QList<QStringList>({{u"1"_q, u"1"_q, u"김하늘"_q},
                                                       {u"3"_q, u"2"_q, u"박나무"_q},
                                                       {u"4"_q, u"(null)"_q, u"최구름"_q}}));
}

TEST_F(BrowseView, NoDeletesNothing)
{
    InBook([this] {
        const int opens = program.connections.Opens();
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerNo);
        ClickCell(Browse(), MemberDelete, 1);
        ShowGroups();
        program.desktop.Expect(DeleteQuestion(u"청년부"_q, u"그룹 삭제"_q), AnswerNo);
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
        EXPECT_EQ(program.connections.Opens(), opens + 1); // for the view
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
    EXPECT_EQ(GroupsInDatabase().size(), 2);
}

TEST_F(BrowseView, TheQuestionNamesTheMemberTrimmed)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GSubNm = '  김하늘 ' WHERE GSubCd = 1"_q);
    InBook([this] {
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerNo);
        ClickCell(Browse(), MemberDelete, 1);
    });
}

TEST_F(BrowseView, ADeletionThatFailsLeavesTheListAsItWas)
{
    InBook([this] {
        program.connections.FailStatement(1, StatementFailure, u"locked"_q);
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerYes);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        ClickCell(Browse(), MemberDelete, 1);
        EXPECT_EQ(Members(), everyone);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(BrowseView, AListThatCannotBeReadBehindADeletionStaysAsItWas)
{
    InBook([this] {
        program.connections.FailStatement(2, CommunicationFailure, u"gone"_q);
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerYes);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(DeletedBox());
        ClickCell(Browse(), MemberDelete, 1);
        EXPECT_EQ(Members(), everyone);
    });
    EXPECT_EQ(MembersInDatabase().size(), 3);
}

TEST_F(BrowseView, ADeletionTriesTwiceToConnect)
{
    InBook([this] {
        program.connections.RefuseOpens(1);
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerYes);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(DeletedBox());
        ClickCell(Browse(), MemberDelete, 1);
        ShowGroups();
        program.connections.RefuseOpens(1);
        program.desktop.Expect(DeleteQuestion(u"청년부"_q, u"그룹 삭제"_q), AnswerYes);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(DeletedBox());
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
    });
    EXPECT_EQ(MembersInDatabase().size(), 3);
    EXPECT_EQ(GroupsInDatabase().size(), 1);
}

TEST_F(BrowseView, AServerThatIsDownForADeletionIsTriedThreeTimes)
{
    InBook([this] {
        program.desktop.Expect(DeleteQuestion(u"김하늘"_q, u"구성원 삭제"_q), AnswerYes);
        program.connections.RefuseOpens(3); // twice at the start, once quietly behind the lost statement
        for (int i = 0; i < 3; ++i)
            program.desktop.Expect(ServerDownBox());
        ClickCell(Browse(), MemberDelete, 1);
        EXPECT_EQ(Members(), everyone);
    });
    EXPECT_EQ(MembersInDatabase().size(), 4);
}

TEST_F(BrowseView, ADeletedGroupLeavesItsMembersToTheOthers)
{
    InBook([this] {
        ShowGroups();
        program.desktop.Expect(DeleteQuestion(u"청년부"_q, u"그룹 삭제"_q), AnswerYes);
        const QStringList left{u"성가대"_q, u"기타"_q};
        program.desktop.Expect(DeletedBox(), AnswerOK, [&] { EXPECT_EQ(Groups(), left); });
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
        EXPECT_EQ(FilterNames(), QStringList({u"전체"_q, u"성가대"_q, u"기타"_q}));
        EXPECT_EQ(program.connections.OpenNow(), 0);
        ShowMembers();
        EXPECT_EQ(Members()[0], QStringList({u"기타"_q, u"김하늘"_q, u"010-0000-0001"_q}));
        EXPECT_EQ(Members()[1], QStringList({u"기타"_q, u"이바다"_q, u"01000000002"_q}));
        EXPECT_EQ(Members()[2][0], u"성가대"_q);
    });
    EXPECT_EQ(GroupsInDatabase(), QList<QStringList>({{u"2"_q, u"성가대"_q}}));
    EXPECT_EQ(MembersInDatabase(), QList<QStringList>({{u"1"_q, u"(null)"_q, u"김하늘"_q},
                                                       {u"2"_q, u"(null)"_q, u"이바다"_q},
                                                       {u"3"_q, u"2"_q, u"박나무"_q},
                                                       {u"4"_q, u"(null)"_q, u"최구름"_q}}));
}

TEST_F(BrowseView, AGroupWhoseDeletionFailsKeepsItsMembers)
{
    InBook([this] {
        ShowGroups();
        program.connections.FailStatement(1, StatementFailure, u"locked"_q);
        program.desktop.Expect(DeleteQuestion(u"청년부"_q, u"그룹 삭제"_q), AnswerYes);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
        EXPECT_EQ(Groups().size(), 3);
    });
    EXPECT_EQ(GroupsInDatabase().size(), 2);
    EXPECT_EQ(MembersInDatabase()[0][1], u"1"_q);
}

TEST_F(BrowseView, AGroupIsGoneEvenWhereItsMembersCouldNotBeReleased)
{
    InBook([this] {
        ShowGroups();
        program.connections.FailStatement(2, StatementFailure, u"locked"_q);
        program.desktop.Expect(DeleteQuestion(u"청년부"_q, u"그룹 삭제"_q), AnswerYes);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        ClickCell(Browse(), GroupDelete, GroupRow(u"청년부"_q));
        EXPECT_EQ(Groups().size(), 3); // not read anew
    });
    EXPECT_EQ(GroupsInDatabase().size(), 1);
    EXPECT_EQ(MembersInDatabase()[0][1], u"1"_q);
}

TEST_F(BrowseView, TheButtonsOfAnEmptyListDoNothing)
{
    program.database.Execute(u"DELETE FROM SMSGroupSub"_q);
    InBook([this] {
        for (int column = 1; column <= 7; ++column)
            Q_EMIT Browse().Click(column, 1);
        Q_EMIT Chosen().Click(ChosenDelete, 1);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
    });
}

// --- new members and groups

TEST_F(BrowseView, ANewMemberIsEnteredInTheMemberView)
{
    InBook([this] {
        ShowGroups();
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q, [this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"구성원 등록"_q);
            EXPECT_EQ(Members(), everyone);
            PressKey(dialog, Qt::Key_Escape);
        });
        EXPECT_TRUE(program.On<RadioButton>(Book(), u"OptType(0)"_q).Value());
    });
}

TEST_F(BrowseView, ANewGroupIsEnteredInTheGroupView)
{
    InBook([this] {
        InDialog(u"dlgSMSGroupMst"_q, u"BtnAdd(1)"_q, [this](QWidget& dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"그룹 등록"_q);
            EXPECT_EQ(Groups().size(), 3);
            PressKey(dialog, Qt::Key_Escape);
        });
        EXPECT_TRUE(program.On<RadioButton>(Book(), u"OptType(1)"_q).Value());
    });
}

TEST_F(BrowseView, AViewThatIsThereAlreadyIsNotReadAnew)
{
    InBook([this] {
        const qsizetype statements = program.connections.Statements().size();
        ClickCell(Browse(), MemberTick, 1);
        InDialog(u"dlgSMSGroupSub"_q, u"BtnAdd(0)"_q,
                 [](QWidget& dialog) { PressKey(dialog, Qt::Key_Escape); });
        EXPECT_EQ(program.connections.Statements().size(), statements + 1); // the groups of the dialog
        EXPECT_EQ(Ticked(), QList<int>({1}));
    });
}

// --- Busy

TEST_F(BrowseView, WhileBusyNothingHappens)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        const qsizetype statements = program.connections.Statements().size();
        program.session.Busy = true;
        for (const QString& button : {u"BtnAdd(0)"_q, u"BtnAdd(1)"_q, u"BtnFuncAdd(0)"_q, u"BtnFuncAdd(1)"_q,
                                      u"BtnFunc(0)"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            Press(button);
        for (int column = MemberTick; column <= MemberDelete; ++column)
            ClickCell(Browse(), column, 2);
        for (int column = ChosenTick; column <= ChosenDelete; ++column)
            ClickCell(Chosen(), column, 1);
        PressKey(Book(), Qt::Key_Escape);
        ChooseFilter(1);
        ShowGroups();
        program.session.Busy = false;
        EXPECT_TRUE(BookIsOpen());
        EXPECT_EQ(program.connections.Statements().size(), statements);
        EXPECT_EQ(Members(), everyone);
        EXPECT_EQ(Ticked(), QList<int>({1}));
        EXPECT_EQ(People().size(), 1);
        EXPECT_EQ(Chosen().Cells().CellPicture(ChosenTick, 1), 1);
    });
}

TEST_F(BrowseView, AReloadIsBusyWhileItReads)
{
    QList<bool> busy;
    program.connections.BeforeStatement([&](const QString&) { busy += program.session.IsBusy(); });
    InBook([this] { ShowGroups(); });
    EXPECT_EQ(busy, QList<bool>({true, true, true, true}));
    EXPECT_FALSE(program.session.IsBusy());
}

} // namespace
