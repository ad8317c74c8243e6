#include "templates/TemplateShelf.h"

#include <QtTest/QTest>

namespace tsms::test {

namespace {

constexpr int Pages = 10;

/// What the pages show of so many rows: page 0 the rows 1 to 8, page p from 1 the rows 9p to 9p + 7.
QStringList ExpectedOn(int page, int rows)
{
    QStringList bodies;
    const int first = page == 0 ? 1 : 9 * page;
    for (int row = first; row < first + 8 && row <= rows; ++row)
        bodies += u"내용 %1"_q.arg(row);
    return bodies;
}

class TemplatePicker : public TemplateShelf
{
protected:
    void SetUp() override
    {
        AddCategory(1, u"많음"_q);
        AddCategory(2, u"적음"_q);
        AddCategory(3, u"없음"_q);
        AddTemplates(1, 20);
        AddTemplate(2, u"하나"_q, u"[받는사람]님 안녕하세요."_q);
    }
    void Start() { ASSERT_TRUE(program.Start()); }
    void ComposePage(int page) { program.Click(u"BtnPageCount(%1)"_q.arg(page)); }
    void EditPage(int page) { program.Click(u"BtnPageCount(%1)"_q.arg(page + 10)); }
    QString PageTag(int side) { return program.The<Panel>(u"PLPageCount(%1)"_q.arg(side)).Tag; }
    QImage Look(const QString& button) { return program.Control(button).grab().toImage(); }
    QString MessageCount() { return program.Caption(u"LblPerSendMsg"_q); }
};

// --- the pages of a category

class TemplateCounts : public TemplatePicker, public ::testing::WithParamInterface<int>
{
};

TEST_P(TemplateCounts, StandOnThePagesByTheRowsOfEachPage)
{
    program.database.Execute(u"DELETE FROM SMSTempLSub"_q);
    AddTemplates(1, GetParam());
    Start();
    EXPECT_EQ(Cache().Cells().MaxRows(), GetParam());
    for (int page = 0; page < Pages; ++page) {
        ComposePage(page);
        EXPECT_EQ(OnCompose(), ExpectedOn(page, GetParam())) << "page " << page;
        EXPECT_EQ(Shown(u"LblTmpSubject(%1)"_q),
                  ExpectedOn(page, GetParam()).replaceInStrings(u"내용"_q, u"제목"_q));
    }
    OpenTemplatePage();
    for (int page = 0; page < Pages; ++page) {
        EditPage(page);
        EXPECT_EQ(OnEdit(), ExpectedOn(page, GetParam())) << "page " << page;
    }
}

INSTANTIATE_TEST_SUITE_P(Counts, TemplateCounts, ::testing::Values(0, 1, 8, 9, 17, 18, 88, 200));

TEST_F(TemplatePicker, NoPageReachesTheRowSeventeen)
{
    Start();
    for (int page = 0; page < Pages; ++page) {
        ComposePage(page);
        EXPECT_FALSE(OnCompose().contains(u"내용 17"_q)) << page;
    }
}

TEST_F(TemplatePicker, PagingNeedsNoDatabase)
{
    Start();
    program.connections.RefuseOpens(-1);
    const int opens = program.connections.Opens();
    ComposePage(2);
    ComposePage(1);
    EXPECT_EQ(OnCompose(), ExpectedOn(1, 20));
    EXPECT_EQ(program.connections.Opens(), opens);
}

TEST_F(TemplatePicker, PageButtonsStayUsableWhateverThereIs)
{
    program.database.Execute(u"DELETE FROM SMSTempLSub"_q);
    Start();
    for (int page = 0; page < Pages; ++page) {
        EXPECT_TRUE(program.Control(u"BtnPageCount(%1)"_q.arg(page)).isEnabled());
        EXPECT_TRUE(program.Control(u"BtnPageCount(%1)"_q.arg(page)).isVisible());
    }
}

TEST_F(TemplatePicker, OnePageButtonOfEachSideIsPressed)
{
    Start();
    const QImage idle = Look(u"BtnPageCount(3)"_q);
    program.Control(u"CbTempCd"_q).setFocus();
    ComposePage(3);
    const QImage first = Look(u"BtnPageCount(0)"_q);
    Message().setFocus();
    QTest::mouseMove(&program.Control(u"Label2(0)"_q));
    EXPECT_NE(Look(u"BtnPageCount(3)"_q), idle);
    ComposePage(4);
    Message().setFocus();
    QTest::mouseMove(&program.Control(u"Label2(0)"_q));
    EXPECT_EQ(Look(u"BtnPageCount(3)"_q), idle);
    EXPECT_EQ(Look(u"BtnPageCount(0)"_q), first);
    EXPECT_EQ(PageTag(0), u"4"_q);
    EXPECT_EQ(PageTag(1), u"0"_q);
}

// --- loading

TEST_F(TemplatePicker, TheFirstActivationShowsTheFirstCategory)
{
    Start();
    EXPECT_EQ(ComposeList().ListCount(), 3);
    EXPECT_EQ(ComposeList().Text(), u"많음"_q);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20));
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.connections.OpenNow(), 0);
    EXPECT_FALSE(FilterList().ListCount()); // the template page is filled when it is entered
}

TEST_F(TemplatePicker, TheStatementsOfAnEntryComeInTheirOrder)
{
    Start();
    const QString categories = u"SELECT TempLCd,TempLNm FROM SMSTempLMst ORDER BY TempLCd"_q;
    const QString templates =
        u"SELECT  TempLSeq, TempLCd, TempLSubNm, TempLContent  FROM SMSTempLSub AS P WHERE  1 = 1  "
        u"AND TempLCd=1 ORDER BY TempLSeq"_q;
    qsizetype before = program.connections.Statements().size();
    int opens = program.connections.Opens();
    OpenTemplatePage();
    EXPECT_EQ(program.connections.Statements().mid(before), QStringList({categories, categories, templates}));
    EXPECT_EQ(program.connections.Opens(), opens + 1);
    before = program.connections.Statements().size();
    opens = program.connections.Opens();
    OpenComposePage();
    EXPECT_EQ(program.connections.Statements().mid(before), QStringList({categories, templates}));
    EXPECT_EQ(program.connections.Opens(), opens + 1);
}

TEST_F(TemplatePicker, ThePagesListTheirCategoriesOnEachEntry)
{
    Start();
    AddCategory(4, u"새로"_q);
    OpenTemplatePage();
    EXPECT_EQ(FilterList().ListCount(), 4);
    EXPECT_EQ(EditorList().ListCount(), 4);
    EXPECT_EQ(FilterList().Text(), u"많음"_q);
    EXPECT_EQ(EditorList().Text(), u"많음"_q);
    OpenComposePage();
    EXPECT_EQ(ComposeList().ListCount(), 4);
}

TEST_F(TemplatePicker, TheHiddenGridHoldsTheRowsOfTheCategory)
{
    Start();
    EXPECT_EQ(Cache().Cells().MaxRows(), 20);
    EXPECT_EQ(Cache().Cells().MaxCols(), 4);
    EXPECT_EQ(Cache().Cells().Text(1, 20), u"20"_q);
    EXPECT_EQ(Cache().Cells().Text(2, 20), u"1"_q);
    EXPECT_EQ(Cache().Cells().Text(3, 20), u"제목 20"_q);
    EXPECT_EQ(Cache().Cells().Text(4, 20), u"내용 20"_q);
    EXPECT_FALSE(Cache().isVisible());
}

TEST_F(TemplatePicker, ACategoryWithoutTemplatesShowsEightEmptyCards)
{
    Start();
    Choose(ComposeList(), 2);
    EXPECT_TRUE(OnCompose().isEmpty());
    EXPECT_EQ(Cache().Cells().MaxRows(), 0);
}

TEST_F(TemplatePicker, ADatabaseWithoutCategoriesShowsEmptyCardsAndNoBox)
{
    program.database.Execute(u"DELETE FROM SMSTempLMst"_q);
    Start();
    EXPECT_TRUE(OnCompose().isEmpty());
    OpenTemplatePage();
    EXPECT_TRUE(OnEdit().isEmpty());
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(TemplatePicker, TitlesAndBodiesAreShownTrimmed)
{
    AddTemplate(3, u"  앞  "_q, u"  가운데  "_q);
    Start();
    Choose(ComposeList(), 2);
    EXPECT_EQ(program.Caption(u"LblTmpSubject(1)"_q), u"앞"_q);
    EXPECT_EQ(ComposeCard(1).Caption(), u"가운데"_q);
}

TEST_F(TemplatePicker, ATemplateWithoutTitleAndBodyTakesAnEmptyCard)
{
    program.database.Execute(u"INSERT INTO SMSTempLSub (TempLCd) VALUES (3)"_q);
    AddTemplate(3, u"둘째"_q, u"내용"_q);
    Start();
    Choose(ComposeList(), 2);
    EXPECT_EQ(OnCompose(), QStringList({QString(), u"내용"_q}));
}

// --- choosing a category

TEST_F(TemplatePicker, AnotherCategoryOpensOnThePageOfTheFormerOne)
{
    AddTemplates(3, 9);
    Start();
    ComposePage(1);
    Choose(ComposeList(), 1);
    EXPECT_TRUE(OnCompose().isEmpty()); // its one template is on page 0
    EXPECT_EQ(PageTag(0), u"1"_q);
    Choose(ComposeList(), 2);
    EXPECT_EQ(OnCompose(), QStringList{u"내용 9"_q});
}

TEST_F(TemplatePicker, TheSameCategoryChosenAgainIsReadAgain)
{
    Start();
    Choose(ComposeList(), 1);
    program.database.Execute(u"UPDATE SMSTempLSub SET TempLContent='바뀜' WHERE TempLCd=2"_q);
    Choose(ComposeList(), 0);
    Choose(ComposeList(), 1);
    EXPECT_EQ(OnCompose(), QStringList{u"바뀜"_q});
}

TEST_F(TemplatePicker, TheCategoryOfTheEditorDoesNotReloadTheCards)
{
    Start();
    OpenTemplatePage();
    const int opens = program.connections.Opens();
    Choose(EditorList(), 1);
    EXPECT_EQ(OnEdit(), ExpectedOn(0, 20));
    EXPECT_EQ(program.connections.Opens(), opens);
    Choose(FilterList(), 1);
    EXPECT_EQ(OnEdit().size(), 1);
}

TEST_F(TemplatePicker, OnlyTheListOfTheComposePageSwallowsLetters)
{
    program.database.Execute(u"UPDATE SMSTempLMst SET TempLNm='zoo' WHERE TempLCd=2"_q);
    Start();
    ComposeList().setFocus();
    TypeText(ComposeList(), u"z"_q);
    EXPECT_EQ(ComposeList().ListIndex(), 0);
    OpenTemplatePage();
    FilterList().setFocus();
    TypeText(FilterList(), u"z"_q);
    EXPECT_EQ(FilterList().ListIndex(), 1);
}

// --- coming back to a page

TEST_F(TemplatePicker, AReturnShowsTheFirstPageWhileButtonAndTagStillNameTheOther)
{
    AddTemplates(3, 18);
    Start();
    Choose(ComposeList(), 1);
    ComposePage(2);
    Message().setFocus();
    const QImage pressed = Look(u"BtnPageCount(2)"_q);
    OpenTemplatePage();
    OpenComposePage();
    EXPECT_EQ(ComposeList().ListIndex(), 0);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20));
    EXPECT_EQ(PageTag(0), u"2"_q);
    EXPECT_EQ(Look(u"BtnPageCount(2)"_q), pressed);
    Choose(ComposeList(), 2); // by way of the one between
    EXPECT_EQ(OnCompose(), QStringList{u"내용 18"_q});
}

TEST_F(TemplatePicker, TheComposePagePagesThroughWhatTheTemplatePageHasLoaded)
{
    AddTemplates(3, 9);
    Start();
    OpenTemplatePage();
    Choose(FilterList(), 2);
    EXPECT_EQ(Cache().Cells().MaxRows(), 9);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20)); // the cards hold copies
    // Out of sight, as a page button of the page that is not on view can be reached by nobody.
    program.The<PushButton>(u"BtnPageCount(1)"_q).Click();
    EXPECT_EQ(OnCompose(), QStringList{u"내용 9"_q});
    OpenComposePage();
    EXPECT_EQ(Cache().Cells().MaxRows(), 20);
}

TEST_F(TemplatePicker, ASaveReloadsTheCurrentPage)
{
    Start();
    OpenTemplatePage();
    EditPage(2);
    EXPECT_EQ(OnEdit(), ExpectedOn(2, 20));
    ClickOn(EditCard(1));
    TypeText(Body(), u"새 "_q);
    program.desktop.Expect(
        {u"문자서식 수정"_q, u"문자서식 수정확인 : 입력한 문자서식을 수정하시겠습니까?"_q, MsgBoxQuestion},
        AnswerYes);
    program.desktop.Expect({u"문자서식 수정"_q,
                            u"수정성공알림 : 문자서식을 정상적으로 수정완료 되었습니다."_q,
                            MsgBoxInformation});
    program.Click(u"BtnFuncDoc(1)"_q);
    EXPECT_EQ(OnEdit(), QStringList({u"새 내용 18"_q, u"내용 19"_q, u"내용 20"_q}));
}

// --- cards into the message

TEST_F(TemplatePicker, ACardReplacesTheMessageAndTheCounterGoesStale)
{
    Start();
    program.Write(u"쓰던 글"_q);
    EXPECT_EQ(MessageCount(), u"7 /"_q);
    Choose(ComposeList(), 1);
    ClickOn(ComposeCard(1));
    EXPECT_EQ(Message().Text(), u"[받는사람]님 안녕하세요."_q);
    EXPECT_EQ(MessageCount(), u"7 /"_q);
    PressKey(Message(), Qt::Key_End);
    EXPECT_EQ(MessageCount(), u"24 /"_q);
}

TEST_F(TemplatePicker, OneUndoBringsTheMessageBackThatACardReplaced)
{
    Start();
    program.Write(u"쓰던 글"_q);
    Choose(ComposeList(), 1);
    ClickOn(ComposeCard(1));
    PressKey(Message(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Message().Text(), u"쓰던 글"_q);
    EXPECT_EQ(MessageCount(), u"7 /"_q);
}

TEST_F(TemplatePicker, AnEmptyCardLeavesTheMessageAlone)
{
    Start();
    Choose(ComposeList(), 1);
    program.Write(u"쓰던 글"_q);
    ClickOn(ComposeCard(2));
    EXPECT_EQ(Message().Text(), u"쓰던 글"_q);
}

TEST_F(TemplatePicker, AClickOnACardLeavesTheFocusWhereItIs)
{
    Start();
    Message().setFocus();
    ClickOn(ComposeCard(1));
    EXPECT_TRUE(Message().hasFocus());
}

TEST_F(TemplatePicker, ABodyOfMoreThanEightyBytesIsCutInTheMessageAndNotOnTheCard)
{
    AddTemplate(3, u"긴 글"_q, u"a"_q + QString(160, u'가'));
    Start();
    Choose(ComposeList(), 2);
    EXPECT_EQ(ComposeCard(1).Caption().size(), 161);
    ClickOn(ComposeCard(1));
    EXPECT_EQ(Message().Text(), u"a"_q + QString(39, u'가'));
}

TEST_F(TemplatePicker, LineBreaksOfABodyReachTheMessage)
{
    AddTemplate(3, u"줄"_q, u"첫째\r\n둘째"_q);
    Start();
    Choose(ComposeList(), 2);
    ClickOn(ComposeCard(1));
    EXPECT_EQ(Message().Text(), u"첫째\r\n둘째"_q);
}

TEST_F(TemplatePicker, ATitleAndABackgroundReactToNothing)
{
    Start();
    program.Click(u"LblTmpSubject(1)"_q);
    QTest::mouseClick(&program.Control(u"PicTmpContent(0)"_q), Qt::LeftButton, Qt::NoModifier, QPoint(3, 80));
    EXPECT_EQ(Message().Text(), QString());
}

TEST_F(TemplatePicker, OnTheTemplatePageTheyReactToNothingEither)
{
    Start();
    OpenTemplatePage();
    const QString body = Body().Text();
    program.Click(u"LblTmpSubjectEdit(1)"_q);
    QTest::mouseClick(&program.Control(u"PicTmpContent(8)"_q), Qt::LeftButton, Qt::NoModifier, QPoint(3, 80));
    EXPECT_EQ(Body().Text(), body);
    EXPECT_EQ(Body().Tag, QString());
    EXPECT_EQ(Subject().Text(), QString());
}

// --- cards into the editor

TEST_F(TemplatePicker, ACardIsLoadedWithItsKeyAndTheCategoryOfTheCards)
{
    Start();
    OpenTemplatePage();
    Choose(FilterList(), 1);
    ClickOn(EditCard(1));
    EXPECT_EQ(Body().Text(), u"[받는사람]님 안녕하세요."_q);
    EXPECT_EQ(Body().Tag, u"21"_q);
    EXPECT_EQ(Subject().Text(), u"하나"_q);
    EXPECT_EQ(Subject().Tag, u"2"_q);
    EXPECT_EQ(EditorList().ListIndex(), 1);
    EXPECT_TRUE(Body().hasFocus());
}

TEST_F(TemplatePicker, TheCardsOfTheTemplatePageBearTheirKeys)
{
    Start();
    OpenTemplatePage();
    EditPage(1);
    EXPECT_EQ(EditCard(8).Tag, u"16"_q);
    EXPECT_EQ(EditTitle(8).Tag, u"1"_q);
    EXPECT_EQ(ComposeCard(8).Tag, QString());
}

TEST_F(TemplatePicker, AnEmptyCardKeepsItsTagsAndEmptiesTheEditor)
{
    Start();
    OpenTemplatePage();
    ClickOn(EditCard(3));
    Choose(FilterList(), 1);
    EXPECT_EQ(EditCard(3).Tag, u"3"_q);
    ClickOn(EditCard(3));
    EXPECT_EQ(Body().Text() + Body().Tag + Subject().Text() + Subject().Tag, QString());
    EXPECT_EQ(EditorList().ListIndex(), 1);
    EXPECT_TRUE(Body().hasFocus());
}

TEST_F(TemplatePicker, TheCounterOfTheEditorGoesStaleToo)
{
    Start();
    OpenTemplatePage();
    TypeText(Body(), u"가나다"_q);
    ClickOn(EditCard(1));
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"6 /"_q);
    PressKey(Body(), Qt::Key_End);
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"6 /"_q); // "내용 1" counts 6 as well
    ClickOn(EditCard(2));
    TypeText(Body(), u"!"_q);
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"7 /"_q);
}

TEST_F(TemplatePicker, ATitleLongerThanItsFieldIsCutInTheField)
{
    AddTemplate(3, QString(30, u'가'), u"내용"_q);
    Start();
    OpenTemplatePage();
    Choose(FilterList(), 2);
    ClickOn(EditCard(1));
    EXPECT_EQ(EditTitle(1).Caption(), QString(30, u'가'));
    EXPECT_EQ(Subject().Text(), QString(20, u'가'));
}

// --- by keyboard

TEST_F(TemplatePicker, EnterAndTheSpaceBarChooseTheCardThatHasTheFocus)
{
    Start();
    ComposeCard(1).setFocus();
    PressKey(ComposeCard(1), Qt::Key_Right);
    PressKey(ComposeCard(2), Qt::Key_Return);
    EXPECT_EQ(Message().Text(), u"내용 2"_q);
    EXPECT_TRUE(ComposeCard(2).hasFocus());
    PressKey(ComposeCard(2), Qt::Key_Down);
    PressKey(ComposeCard(6), Qt::Key_Space);
    EXPECT_EQ(Message().Text(), u"내용 6"_q);
    EXPECT_EQ(MessageCount(), u"0 /"_q);
}

TEST_F(TemplatePicker, EnterOnACardOfTheTemplatePageLeavesNoLineBreakInTheEditor)
{
    Start();
    OpenTemplatePage();
    EditCard(2).setFocus();
    PressKey(EditCard(2), Qt::Key_Return);
    EXPECT_TRUE(Body().hasFocus());
    EXPECT_EQ(Body().Text(), u"내용 2"_q);
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"0 /"_q);
}

// --- failures

TEST_F(TemplatePicker, AFailedQueryLeavesTheGridAndTheCardsAsTheyWere)
{
    Start();
    program.connections.FailStatement(1, StatementFailure, u"Invalid object name 'SMSTempLSub'."_q);
    program.desktop.Expect(Failure(u"Invalid object name 'SMSTempLSub'."_q));
    Choose(ComposeList(), 1);
    EXPECT_EQ(Cache().Cells().MaxRows(), 20);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20));
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

TEST_F(TemplatePicker, AFailedListOfCategoriesEndsInOneBoxAndTheRowsOfBefore)
{
    Start();
    program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired."_q);
    program.desktop.Expect(Failure(u"Timeout expired."_q));
    OpenTemplatePage(); // the second list brings the connection back, and the third query finds it
    EXPECT_EQ(FilterList().ListCount(), 0);
    EXPECT_EQ(program.connections.OpenNow(), 0);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_TRUE(Body().hasFocus());
}

TEST_F(TemplatePicker, WithoutAServerAnEntryToThePageGoesOnToItsEnd)
{
    Start();
    OpenTemplatePage();
    program.connections.RefuseOpens(-1);
    for (int i = 0; i < 4; ++i) // two attempts, and one more behind each of the two queries
        program.desktop.Expect(ServerDownBox());
    program.The<TextBox>(u"txtSendNo"_q).SetText(u"010"_q);
    OpenComposePage();
    EXPECT_TRUE(program.Control(u"PlToolBg(0)"_q).isVisible());
    EXPECT_EQ(program.The<TextBox>(u"txtSendNo"_q).Text(), u"02-1234-5678"_q);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20));
    EXPECT_FALSE(program.session.IsBusy());
}

TEST_F(TemplatePicker, AServerThatComesBackAtTheSecondTryCostsOneBox)
{
    Start();
    program.connections.RefuseOpens(1);
    program.desktop.Expect(ServerDownBox());
    Choose(ComposeList(), 1);
    EXPECT_EQ(OnCompose().size(), 1);
}

// --- Busy

TEST_F(TemplatePicker, WhileBusyListsAndPageButtonsAreDeadAndCardsAreNot)
{
    Start();
    const int opens = program.connections.Opens();
    program.session.Busy = true;
    Choose(ComposeList(), 1);
    ComposePage(1);
    EXPECT_EQ(OnCompose(), ExpectedOn(0, 20));
    EXPECT_EQ(PageTag(0), u"0"_q);
    EXPECT_EQ(program.connections.Opens(), opens);
    ClickOn(ComposeCard(3));
    EXPECT_EQ(Message().Text(), u"내용 3"_q);
    program.session.Busy = false;
    OpenTemplatePage();
    program.session.Busy = true;
    Choose(FilterList(), 1);
    EditPage(1);
    EXPECT_EQ(OnEdit(), ExpectedOn(0, 20));
    ClickOn(EditCard(4));
    EXPECT_EQ(Body().Text(), u"내용 4"_q);
    program.session.Busy = false;
}

TEST_F(TemplatePicker, BusyAndTheHourglassStandWhileTheTemplatesAreRead)
{
    Start();
    bool busy = false;
    MousePointer pointer = MousePointer::Default;
    program.connections.BeforeStatement([&](const QString&) {
        busy = program.session.IsBusy();
        pointer = program.desktop.pointers.last();
    });
    Choose(ComposeList(), 1);
    program.connections.BeforeStatement({});
    EXPECT_TRUE(busy);
    EXPECT_EQ(pointer, MousePointer::Hourglass);
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
}

} // namespace

} // namespace tsms::test
