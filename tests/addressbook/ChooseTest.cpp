#include "store/engine/DatabaseError.h"
#include "support/program/AddressBook.h"

using namespace tsms;
using namespace tsms::test;

namespace {

Box NobodyChosenBox()
{
    return {u"발송대상 선택"_q, u"문자메시지 발송대상 : 선택된 발송대상이 없습니다."_q, MsgBoxCritical};
}

Box EmptyQuestion()
{
    return {u"전체삭제"_q, u"전체삭제 확인 : 발송대상에 포함된 리스트를 전부 삭제 하시겠습니까?"_q,
            MsgBoxQuestion};
}

class Choose : public AddressBookTest
{
protected:
    void Remove(int row) { ClickCell(Chosen(), ChosenDelete, row); }
    void Include() { Press(u"BtnFunc(0)"_q); }
    QString Recipient(int row) { return program.Recipients().Cells().Text(2, row); }
    QString Number(int row) { return program.Recipients().Cells().Text(3, row); }

    const QStringList haneul{u"김하늘"_q, u"010-0000-0001"_q};
    const QStringList bada{u"이바다"_q, u"01000000002"_q};
    const QStringList namu{u"박나무"_q, u"011-000-0003"_q};
    const QStringList gureum{u"최구름"_q, u"016-000-0004"_q};
};

// --- members

TEST_F(Choose, TickedMembersAreAddedTickedWithTheirKeys)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"박나무"_q});
        EXPECT_EQ(People(), QList<QStringList>({haneul, namu}));
        EXPECT_EQ(RowsOf(Chosen(), {ChosenCode}), QList<QStringList>({{u"1"_q}, {u"3"_q}}));
        EXPECT_EQ(Chosen().Cells().CellPicture(ChosenTick, 2), 1);
        EXPECT_FALSE(program.session.IsBusy());
    });
}

TEST_F(Choose, NothingTickedAddsNothing)
{
    InBook([this] {
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
    });
}

TEST_F(Choose, TheTicksOfTheBrowseListStayBehindAnAdd)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        EXPECT_EQ(Browse().Cells().CellPicture(MemberTick, 1), 1);
    });
}

TEST_F(Choose, AMemberWhoseNumberIsChosenIsPassedOverAndTheOthersAreAdded)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GSPhone = ' 010.0000/0001' WHERE GSubCd = 2"_q);
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q, u"박나무"_q});
        EXPECT_EQ(People(), QList<QStringList>({haneul, namu}));
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(People(), QList<QStringList>({haneul, namu}));
    });
}

TEST_F(Choose, NamesAndNumbersGoInTrimmedAndOtherwiseAsStored)
{
    program.database.Execute(
        u"UPDATE SMSGroupSub SET GSubNm = '  김 하늘 ', GSPhone = ' 010.0000-0001 ' WHERE GSubCd = 1"_q);
    InBook([this] {
        AddMembers({u"  김 하늘 "_q});
        EXPECT_EQ(People(), QList<QStringList>({{u"김 하늘"_q, u"010.0000-0001"_q}}));
    });
}

TEST_F(Choose, MembersAreAddedWithoutTheDatabase)
{
    InBook([this] {
        const int opens = program.connections.Opens();
        AddMembers({u"김하늘"_q});
        EXPECT_EQ(program.connections.Opens(), opens);
    });
}

TEST_F(Choose, TheViewChangesAndWhatIsChosenStays)
{
    InBook([this] {
        AddMembers({u"최구름"_q});
        ShowGroups();
        AddGroups({u"성가대"_q});
        EXPECT_EQ(People(), QList<QStringList>({gureum, namu}));
    });
}

// --- groups

TEST_F(Choose, ATickedGroupAddsItsMembers)
{
    InBook([this] {
        ShowGroups();
        AddGroups({u"청년부"_q});
        EXPECT_EQ(People(), QList<QStringList>({haneul, bada}));
        EXPECT_EQ(RowsOf(Chosen(), {ChosenCode}), QList<QStringList>({{u"1"_q}, {u"2"_q}}));
        EXPECT_EQ(program.connections.OpenNow(), 0);
    });
}

TEST_F(Choose, TheOthersAddTheMembersWithoutAGroup)
{
    InBook([this] {
        ShowGroups();
        AddGroups({u"기타"_q});
        EXPECT_EQ(People(), QList<QStringList>({gureum}));
        EXPECT_EQ(program.connections.Statements().last(),
                  u"SELECT * FROM SMSGroupSub WHERE GroupCd IS NULL"_q);
    });
}

TEST_F(Choose, WithoutGroupsTheOthersCanBeAdded)
{
    program.database.Execute(u"DELETE FROM SMSGroupMst"_q);
    program.database.Execute(u"UPDATE SMSGroupSub SET GroupCd = NULL"_q);
    InBook([this] {
        ShowGroups();
        AddGroups({u"기타"_q});
        EXPECT_EQ(People().size(), 4);
    });
}

TEST_F(Choose, AnEmptyGroupAddsNobody)
{
    program.database.Execute(u"DELETE FROM SMSGroupSub WHERE GroupCd = 2"_q);
    InBook([this] {
        ShowGroups();
        AddGroups({u"성가대"_q});
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
    });
}

TEST_F(Choose, TheFirstMemberWhoIsChosenKeepsAllLaterOnesOfTheGroupOut)
{
    program.database.Execute(u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES "
                             "(1, '정노을', '010-5'), (1, '한별', '010-6')"_q);
    InBook([this] {
        AddMembers({u"이바다"_q});
        ShowGroups();
        AddGroups({u"청년부"_q});
        EXPECT_EQ(People(), QList<QStringList>({bada, haneul}));
    });
}

TEST_F(Choose, AGroupInWhichTwoShareANumberEndsAtTheSecond)
{
    program.database.Execute(u"UPDATE SMSGroupSub SET GSPhone = '010/0000/0001' WHERE GSubCd = 2"_q);
    program.database.Execute(
        u"INSERT INTO SMSGroupSub (GroupCd, GSubNm, GSPhone) VALUES (1, '정노을', '010-5')"_q);
    InBook([this] {
        ShowGroups();
        AddGroups({u"청년부"_q});
        EXPECT_EQ(People(), QList<QStringList>({haneul}));
    });
}

TEST_F(Choose, EachGroupBeginsWithoutTheMark)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        ShowGroups();
        AddGroups({u"청년부"_q, u"성가대"_q, u"기타"_q});
        EXPECT_EQ(People().size(), 3);
        EXPECT_TRUE(People().contains(namu));
        EXPECT_TRUE(People().contains(gureum));
        EXPECT_FALSE(People().contains(bada));
    });
}

TEST_F(Choose, AGroupThatCannotBeReadEndsTheAddAndKeepsWhatWasAdded)
{
    InBook([this] {
        ShowGroups();
        program.connections.FailStatement(2, StatementFailure, u"locked"_q);
        program.desktop.Expect(RefusedBox(u"locked"_q));
        const QString first = Browse().Cells().Text(GroupName, 1);
        AddGroups({u"청년부"_q, u"성가대"_q, u"기타"_q});
        EXPECT_EQ(People(),
                  first == u"청년부"_q ? QList<QStringList>({haneul, bada}) : QList<QStringList>({namu}));
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
        Press(u"BtnFuncAdd(0)"_q); // and the next one works again
        EXPECT_EQ(People().size(), 4);
    });
}

TEST_F(Choose, AnAddInTheGroupViewConnectsAlsoWithoutATick)
{
    InBook([this] {
        ShowGroups();
        const int opens = program.connections.Opens();
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(program.connections.Opens(), opens + 1);
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
    });
}

TEST_F(Choose, AGroupIsReadWithASecondTryToConnect)
{
    InBook([this] {
        ShowGroups();
        program.connections.RefuseOpens(1);
        program.desktop.Expect(ServerDownBox());
        AddGroups({u"성가대"_q});
        EXPECT_EQ(People(), QList<QStringList>({namu}));
    });
}

TEST_F(Choose, AServerThatIsDownIsTriedTwiceForAGroup)
{
    InBook([this] {
        ShowGroups();
        program.connections.RefuseOpens(2);
        program.desktop.Expect(ServerDownBox());
        program.desktop.Expect(ServerDownBox());
        AddGroups({u"성가대"_q}); // its statement is lost while the connection comes back
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
        EXPECT_FALSE(program.session.IsBusy());
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(People(), QList<QStringList>({namu}));
    });
}

TEST_F(Choose, AnAddIsBusyWhileItReads)
{
    QList<bool> busy;
    InBook([this, &busy] {
        ShowGroups();
        program.connections.BeforeStatement(
            [this, &busy](const QString&) { busy += program.session.IsBusy(); });
        AddGroups({u"성가대"_q});
    });
    EXPECT_EQ(busy, QList<bool>({true}));
}

TEST_F(Choose, ThousandsOfAGroupAreAddedAndNoneTwice)
{
    Fill(2, 3000);
    InBook([this] {
        ShowGroups();
        AddGroups({u"그룹1"_q, u"그룹2"_q});
        EXPECT_EQ(Chosen().Cells().MaxRows(), 6000);
        EXPECT_EQ(Chosen().Cells().Text(ChosenPhone, 6000), u"010-00006000"_q);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 6000);
        ShowMembers();
        for (const int row : {1, 6000})
            ClickCell(Browse(), MemberTick, row);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 6000);
    });
}

// --- the chosen list

TEST_F(Choose, AClickOnAChosenRowTurnsItsTick)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        for (const int column : {ChosenTick, ChosenName, ChosenPhone}) {
            ClickCell(Chosen(), column, 1);
            EXPECT_EQ(Chosen().Cells().CellPicture(ChosenTick, 1), 0);
            ClickCell(Chosen(), column, 1);
            EXPECT_EQ(Chosen().Cells().CellPicture(ChosenTick, 1), 1);
        }
    });
}

TEST_F(Choose, ARemovedRowIsHiddenAndStaysInTheList)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Remove(1);
        EXPECT_TRUE(Chosen().RowHidden(1));
        EXPECT_EQ(Chosen().Cells().MaxRows(), 2);
        EXPECT_EQ(Chosen().Cells().Text(ChosenName, 1), u"김하늘"_q);
        EXPECT_EQ(Chosen().Cells().CellPicture(ChosenTick, 1), 1);
        EXPECT_EQ(People(), QList<QStringList>({bada}));
    });
}

TEST_F(Choose, TheActiveRowIsRemovedWhateverRowTheClickReports)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Chosen().SetActiveCell(ChosenDelete, 1);
        Q_EMIT Chosen().Click(ChosenDelete, 2);
        EXPECT_EQ(People(), QList<QStringList>({bada}));
    });
}

TEST_F(Choose, ARemovedNumberCanBeAddedAgain)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        Remove(1);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 2);
        EXPECT_EQ(People(), QList<QStringList>({haneul}));
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 2);
        Remove(2);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 3);
    });
}

TEST_F(Choose, ARowThatIsRemovedTwiceDoesNotSetItsNumberFreeInAnotherRow)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        Remove(1);
        Press(u"BtnFuncAdd(0)"_q);
        Chosen().SetActiveCell(ChosenDelete, 2);
        Chosen().setCurrentIndex(Chosen().model()->index(0, ChosenDelete - 1)); // the hidden row
        ASSERT_EQ(Chosen().ActiveRow(), 1);
        Q_EMIT Chosen().Click(ChosenDelete, 1);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(People(), QList<QStringList>({haneul}));
    });
}

TEST_F(Choose, ARemovedMemberNoLongerKeepsItsGroupOut)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        ShowGroups();
        AddGroups({u"청년부"_q});
        EXPECT_EQ(People(), QList<QStringList>({haneul}));
        Remove(1);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(People(), QList<QStringList>({haneul, bada}));
    });
}

TEST_F(Choose, EmptyingAsksAlsoWhereThereIsNothing)
{
    InBook([this] {
        program.desktop.Expect(EmptyQuestion(), AnswerNo, [this] { EXPECT_TRUE(program.session.IsBusy()); });
        Press(u"BtnFuncAdd(1)"_q);
        program.desktop.Expect(EmptyQuestion(), AnswerYes);
        Press(u"BtnFuncAdd(1)"_q);
        EXPECT_FALSE(program.session.IsBusy());
    });
}

TEST_F(Choose, NoKeepsTheListAndYesEmptiesItWithItsNumbers)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Remove(1);
        program.desktop.Expect(EmptyQuestion(), AnswerNo);
        Press(u"BtnFuncAdd(1)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 2);
        program.desktop.Expect(EmptyQuestion(), AnswerYes);
        Press(u"BtnFuncAdd(1)"_q);
        EXPECT_EQ(Chosen().Cells().MaxRows(), 0);
        Press(u"BtnFuncAdd(0)"_q);
        EXPECT_EQ(People(), QList<QStringList>({haneul, bada}));
        EXPECT_FALSE(Chosen().RowHidden(1));
    });
}

// --- handing over

TEST_F(Choose, TheChosenGoIntoTheFirstFreeRowsAndTheDialogCloses)
{
    program.List({{u"먼저"_q, u"010-9999-9999"_q}});
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Include();
        EXPECT_FALSE(BookIsOpen());
    });
    EXPECT_EQ(Recipient(1), u"먼저"_q);
    EXPECT_EQ(Recipient(2), u"김하늘"_q);
    EXPECT_EQ(Number(2), u"010-0000-0001"_q);
    EXPECT_EQ(Recipient(3), u"이바다"_q);
    EXPECT_EQ(Number(3), u"01000000002"_q);
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 22);
    EXPECT_EQ(program.Recipients().Cells().Text(1, 3), u"03"_q);
    EXPECT_EQ(program.Recipients().Cells().Text(1, 21), QString());
    EXPECT_TRUE(program.Recipients().ReDraw());
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(Choose, AnEmptyChosenListIsRefusedAndTheDialogStays)
{
    InBook([this] {
        program.desktop.Expect(NobodyChosenBox());
        Include();
        EXPECT_TRUE(BookIsOpen());
    });
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 20);
}

TEST_F(Choose, AListWithoutATickIsRefused)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        ClickCell(Chosen(), ChosenTick, 1);
        program.desktop.Expect(NobodyChosenBox());
        Include();
    });
    EXPECT_EQ(Number(1), QString());
}

TEST_F(Choose, AHiddenTickedRowLetsTheListGrowAndLeavesABlankRow)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q, u"박나무"_q});
        Remove(2);
        Include();
    });
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 23);
    EXPECT_EQ(Recipient(1), u"김하늘"_q);
    EXPECT_EQ(Recipient(2), QString());
    EXPECT_EQ(Number(2), QString());
    EXPECT_EQ(Recipient(3), u"박나무"_q);
}

TEST_F(Choose, AHiddenTickedRowAloneIsHandedOverAsNobody)
{
    InBook([this] {
        AddMembers({u"김하늘"_q});
        Remove(1);
        Include();
        EXPECT_FALSE(BookIsOpen());
    });
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 21);
    EXPECT_EQ(Number(1), QString());
}

TEST_F(Choose, AnUntickedRowLowersTheRiseAndIsWritten)
{
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        ClickCell(Chosen(), ChosenTick, 2);
        Include();
    });
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 21);
    EXPECT_EQ(Recipient(2), u"이바다"_q);
}

TEST_F(Choose, WithoutAFreeRowTheFirstOneLandsInTheHeading)
{
    fpSpread& recipients = program.Recipients();
    for (int row = 1; row <= 20; ++row)
        recipients.Cells().SetText(3, row, u"010-%1"_q.arg(row));
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Include();
    });
    EXPECT_EQ(Recipient(0), u"김하늘"_q);
    EXPECT_EQ(Number(0), u"010-0000-0001"_q);
    EXPECT_EQ(Recipient(1), u"이바다"_q);
    EXPECT_EQ(Number(1), u"01000000002"_q);
    EXPECT_EQ(Number(2), u"010-2"_q);
    EXPECT_EQ(recipients.Cells().MaxRows(), 22);
}

TEST_F(Choose, ARemovedRecipientRowWithoutANumberTakesTheFirstAndHidesIt)
{
    ClickCell(program.Recipients(), 4, 1);
    InBook([this] {
        AddMembers({u"김하늘"_q, u"이바다"_q});
        Include();
    });
    EXPECT_TRUE(program.Recipients().RowHidden(1));
    EXPECT_EQ(Recipient(1), u"김하늘"_q);
    EXPECT_FALSE(program.Recipients().RowHidden(2));
    EXPECT_EQ(Recipient(2), u"이바다"_q);
}

TEST_F(Choose, ANumberThatIsARecipientAlreadyIsHandedOverAgain)
{
    program.List({{u"김하늘"_q, u"010-0000-0001"_q}});
    InBook([this] {
        AddMembers({u"김하늘"_q});
        Include();
    });
    EXPECT_EQ(Number(2), u"010-0000-0001"_q);
}

TEST_F(Choose, ACellThatIsTypedIntoKeepsItsTextWhenTheBookOpens)
{
    ClickCell(program.Recipients(), 3, 1);
    TypeText(program.Recipients(), u"010-7"_q);
    InBook([this] {
        AddMembers({u"김하늘"_q});
        Include();
    });
    EXPECT_EQ(Number(1), u"010-7"_q);
    EXPECT_EQ(Number(2), u"010-0000-0001"_q);
}

TEST_F(Choose, WithoutIncludingTheChosenAreForgotten)
{
    InBook([this] { AddMembers({u"김하늘"_q}); });
    EXPECT_EQ(Number(1), QString());
    EXPECT_EQ(program.Recipients().Cells().MaxRows(), 20);
    InBook([this] { EXPECT_EQ(Chosen().Cells().MaxRows(), 0); });
}

} // namespace
