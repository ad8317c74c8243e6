#include "runtime/CodePage949.h"
#include "support/database/SqlServerWords.h"
#include "templates/ModStep4.h"
#include "templates/TemplateShelf.h"

namespace tsms::test {

namespace {

const Box BodyMissing{u"문자서식"_q, u"문자서식 :'문자메시지 내용'을 입력해 주십시오."_q, MsgBoxExclamation};
const Box SubjectMissing{u"문자서식"_q, u"문자서식 :'문자메시지 제목'을 입력해 주십시오."_q,
                         MsgBoxExclamation};
const Box AskNew{u"문자서식 등록"_q, u"신규 문자서식 등록확인 : 입력한 문자서식을 등록하시겠습니까?"_q,
                 MsgBoxQuestion};
const Box AskChange{u"문자서식 수정"_q, u"문자서식 수정확인 : 입력한 문자서식을 수정하시겠습니까?"_q,
                    MsgBoxQuestion};
const Box NewStored{u"문자서식 등록"_q, u"등록성공알림 : 신규 문자서식 등록이 정상적으로 완료 되었습니다."_q,
                    MsgBoxInformation};
const Box ChangeStored{u"문자서식 수정"_q, u"수정성공알림 : 문자서식을 정상적으로 수정완료 되었습니다."_q,
                       MsgBoxInformation};
const Box Deleted{u"문자서식 삭제"_q, u"삭제성공알림 : 문자서식 정상적으로 삭제완료 되었습니다."_q,
                  MsgBoxInformation};

Box AskDelete(const QString& title)
{
    return {u"문자서식 삭제"_q, u"삭제확인 :["_q + title + u"]의 문자서식을 삭제하시겠습니까?"_q,
            MsgBoxQuestion};
}

class TemplateLibrary : public TemplateShelf
{
protected:
    void SetUp() override
    {
        AddCategory(1, u"인사"_q);
        AddCategory(2, u"안내"_q);
        AddTemplate(1, u"아침"_q, u"좋은 아침입니다."_q);
        AddTemplate(1, u"저녁"_q, u"편안한 저녁 되세요."_q);
        AddTemplate(2, u"휴관"_q, u"내일은 쉽니다."_q);
        ASSERT_TRUE(program.Start());
        OpenTemplatePage();
    }

    void Write(const QString& title, const QString& body)
    {
        Subject().setFocus();
        PasteText(Subject(), title);
        Body().setFocus();
        TypeText(Body(), body);
    }
    void ClickNew() { program.Click(u"BtnFuncDoc(0)"_q); }
    void ClickSave() { program.Click(u"BtnFuncDoc(1)"_q); }
    void ClickDelete() { program.Click(u"BtnFuncDoc(2)"_q); }

    void SaveNew()
    {
        program.desktop.Expect(AskNew, AnswerYes);
        program.desktop.Expect(NewStored);
        ClickSave();
    }
    void ExpectEmptyEditor()
    {
        EXPECT_EQ(Body().Text() + Subject().Text() + Body().Tag + Subject().Tag, QString());
        EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"0 /"_q);
        EXPECT_TRUE(Body().hasFocus());
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.IsBusy());
        EXPECT_EQ(program.connections.OpenNow(), 0);
        EXPECT_EQ(program.desktop.pointers.value(program.desktop.pointers.size() - 1), MousePointer::Default);
    }
};

using TemplateLibraryInSqlServerWords = InSqlServerWords<TemplateLibrary>;

TEST_F(TemplateLibrary, NewEmptiesTheEditorAndKeepsTheCategoryAndTheLabelsTag)
{
    ClickOn(EditCard(2));
    Choose(EditorList(), 1);
    Body().setFocus();
    TypeText(Body(), u"!"_q);
    const QString count = program.The<Label>(u"LblEditLength"_q).Tag;
    EXPECT_NE(count, QString());
    ClickNew();
    ExpectEmptyEditor();
    EXPECT_EQ(program.The<Label>(u"LblEditLength"_q).Tag, count);
    EXPECT_EQ(EditorList().ListIndex(), 1);
}

TEST_F(TemplateLibrary, RewriteDoesTheSameAsNew)
{
    ClickOn(EditCard(1));
    program.Click(u"BtnFuncDocEdit(2)"_q);
    ExpectEmptyEditor();
}

TEST_F(TemplateLibrary, ABodyOfBlanksAloneIsMissing)
{
    Write(u"제목"_q, u"   "_q);
    program.desktop.Expect(BodyMissing);
    ClickSave();
    EXPECT_TRUE(Body().hasFocus());
    EXPECT_EQ(program.connections.OpenNow(), 0);
    EXPECT_EQ(Stored().size(), 3);
}

TEST_F(TemplateLibrary, WithNothingWrittenTheBodyIsMissedFirst)
{
    program.desktop.Expect(BodyMissing);
    ClickSave();
}

TEST_F(TemplateLibrary, ATitleOfBlanksAloneIsMissing)
{
    Write(u"   "_q, u"내용"_q);
    program.desktop.Expect(SubjectMissing);
    ClickSave();
    EXPECT_TRUE(Subject().hasFocus());
    EXPECT_EQ(Stored().size(), 3);
}

TEST_F(TemplateLibrary, ABodyOfALineBreakAloneIsNotMissing)
{
    Write(u"빈 줄"_q, u"\n"_q);
    SaveNew();
    EXPECT_EQ(Stored().last().last(), u"\r\n"_q);
}

TEST_F(TemplateLibrary, NoLeavesEverythingAsItWas)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    const int opens = program.connections.Opens();
    program.desktop.Expect(AskNew, AnswerNo);
    ClickSave();
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
    EXPECT_EQ(Subject().Text(), u"점심"_q);
    EXPECT_EQ(Stored().size(), 3);
}

TEST_F(TemplateLibrary, ANewTemplateIsStoredShownAndGoneFromTheEditor)
{
    Choose(EditorList(), 0);
    Write(u"점심"_q, u"맛있게 드세요."_q);
    bool busy = true;
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect(NewStored, AnswerOK, [&] {
        busy = program.session.IsBusy();
        EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
    });
    ClickSave();
    EXPECT_FALSE(busy);
    EXPECT_EQ(Stored().last(), QStringList({u"4"_q, u"1"_q, u"점심"_q, u"맛있게 드세요."_q}));
    EXPECT_EQ(OnEdit(), QStringList({u"좋은 아침입니다."_q, u"편안한 저녁 되세요."_q, u"맛있게 드세요."_q}));
    ExpectEmptyEditor();
    ExpectAtRest();
}

TEST_F(TemplateLibrary, ANewTemplateGoesIntoTheCategoryOfTheEditorAndNotOfTheCards)
{
    Choose(EditorList(), 1);
    Write(u"주차"_q, u"뒷마당을 쓰세요."_q);
    SaveNew();
    EXPECT_EQ(Stored().last()[1], u"2"_q);
    EXPECT_EQ(OnEdit().size(), 2); // of the other category
    EXPECT_EQ(EditorList().ListIndex(), 1);
}

TEST_F(TemplateLibrary, AChangeIsStoredUnderItsKey)
{
    ClickOn(EditCard(2));
    Body().SetText(QString());
    TypeText(Body(), u"잘 자요."_q);
    program.desktop.Expect(AskChange, AnswerYes);
    program.desktop.Expect(ChangeStored);
    ClickSave();
    EXPECT_EQ(Stored()[1], QStringList({u"2"_q, u"1"_q, u"저녁"_q, u"잘 자요."_q}));
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(OnEdit(), QStringList({u"좋은 아침입니다."_q, u"잘 자요."_q}));
    ExpectEmptyEditor();
}

TEST_F(TemplateLibrary, NoToAChangeLeavesEverythingAsItWas)
{
    ClickOn(EditCard(2));
    TypeText(Body(), u"x"_q);
    const QString written = Body().Text();
    program.desktop.Expect(AskChange, AnswerNo);
    ClickSave();
    EXPECT_EQ(Body().Text(), written);
    EXPECT_EQ(Body().Tag, u"2"_q);
    EXPECT_EQ(Stored()[1][3], u"편안한 저녁 되세요."_q);
}

TEST_F(TemplateLibrary, AChangeMovesATemplateToTheCategoryOfTheEditor)
{
    ClickOn(EditCard(1));
    Choose(EditorList(), 1);
    program.desktop.Expect(AskChange, AnswerYes);
    program.desktop.Expect(ChangeStored);
    ClickSave();
    EXPECT_EQ(Stored()[0], QStringList({u"1"_q, u"2"_q, u"아침"_q, u"좋은 아침입니다."_q}));
    EXPECT_EQ(OnEdit(), QStringList{u"편안한 저녁 되세요."_q});
}

TEST_F(TemplateLibrary, AfterRewriteASaveMakesANewTemplate)
{
    ClickOn(EditCard(1));
    program.Click(u"BtnFuncDocEdit(2)"_q);
    Write(u"밤"_q, u"안녕히 주무세요."_q);
    SaveNew();
    EXPECT_EQ(Stored().size(), 4);
}

TEST_F(TemplateLibrary, WhatACardReplacedComesBackAsTheNewTemplateThatItWas)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    ClickOn(EditCard(1));
    ASSERT_EQ(Body().Tag, u"1"_q);
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    PressKey(Subject(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
    EXPECT_EQ(Subject().Text(), u"점심"_q);
    SaveNew();
    EXPECT_EQ(Stored().size(), 4);
}

TEST_F(TemplateLibrary, ATemplateThatAnotherOneReplacedDoesNotComeBackBesideTheOthersTitle)
{
    ClickOn(EditCard(1));
    ClickOn(EditCard(2));
    const QString body = Body().Text();
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), body);
    EXPECT_EQ(Body().Tag, u"2"_q);
}

TEST_F(TemplateLibrary, WhatRewriteEmptiedCanBeTakenBack)
{
    ClickOn(EditCard(1));
    program.Click(u"BtnFuncDocEdit(2)"_q);
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(Body().Text(), u"좋은 아침입니다."_q);
    EXPECT_EQ(Body().Tag, u"1"_q);
}

TEST_F(TemplateLibrary, ATemplateThatIsDeletedCannotBeTakenBackUnderItsKey)
{
    ClickOn(EditCard(1));
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerYes);
    program.desktop.Expect(Deleted);
    ClickDelete();
    PressKey(Body(), Qt::Key_Z, Qt::ControlModifier);
    PressKey(Subject(), Qt::Key_Z, Qt::ControlModifier);
    ExpectEmptyEditor();
}

TEST_F(TemplateLibrary, BlanksAtTheEndsAreNotStored)
{
    Write(u"  앞뒤 "_q, u"  가운데 빈칸  "_q);
    SaveNew();
    EXPECT_EQ(Stored().last().mid(2), QStringList({u"앞뒤"_q, u"가운데 빈칸"_q}));
}

TEST_F(TemplateLibrary, TheStatementsReachTheDatabaseToTheLetter)
{
    Write(u"점심"_q, u"드세요"_q);
    SaveNew();
    EXPECT_TRUE(program.connections.Statements().contains(
        u"Insert INTO SMSTempLSub  (TempLCd, TempLSubNm, TempLContent) VALUES (1,'점심','드세요')"_q));
    EXPECT_EQ(program.connections.Statements().last(),
              u"SELECT  TempLSeq, TempLCd, TempLSubNm, TempLContent  FROM SMSTempLSub AS P WHERE  1 = 1  "
              u"AND TempLCd=1 ORDER BY TempLSeq"_q);
}

// --- what a body may hold

struct BodyCase
{
    QString name;
    QString body;
    QString count; ///< beside the 80
};

std::ostream& operator<<(std::ostream& out, const BodyCase& body)
{
    return out << body.name.toStdString();
}

class TemplateBodies : public TemplateLibrary, public ::testing::WithParamInterface<BodyCase>
{
};

TEST_P(TemplateBodies, AreStoredShownAndLoadedAsFarAsTheCodePageGoes)
{
    const BodyCase& whole = GetParam();
    Subject().setFocus();
    TypeText(Subject(), u"시험"_q);
    PasteText(Body(), whole.body);
    PressKey(Body(), Qt::Key_Shift); // any key brings the counter up to date
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), whole.count + u" /"_q);
    SaveNew();
    const QString stored = FromCodePage949(ToCodePage949(whole.body)); // the database's code page
    EXPECT_EQ(Stored().last().last(), stored);
    EXPECT_EQ(EditCard(3).Caption(), stored);
    ClickOn(EditCard(3));
    EXPECT_EQ(Body().Text(), stored);
    EXPECT_EQ(Subject().Text(), u"시험"_q);
}

INSTANTIATE_TEST_SUITE_P(
    Bodies, TemplateBodies,
    ::testing::Values(BodyCase{u"line breaks"_q, u"첫째\r\n\r\n셋째"_q, u"10"_q},
                      BodyCase{u"quotes"_q, u"\"겹\" `뒤` “둥근” ‘홑’ 「낫」 ´ ＇"_q, u"38"_q},
                      BodyCase{u"symbols"_q, u"☆☎☏☜＠♪℡※★○"_q, u"20"_q},
                      BodyCase{u"marks of the language of queries"_q,
                               u"a; DELETE x -- [b] /* c */ %_^ \\ ? :p @q"_q, u"40"_q},
                      BodyCase{u"placeholders"_q, u"[받는사람]님 [보내는사람]"_q, u"25"_q},
                      BodyCase{u"outside the code page"_q, u"☃ 😀 ñ 한"_q, u"9"_q},
                      BodyCase{u"hundred and sixty letters"_q, QString(160, u'a'), u"160"_q},
                      BodyCase{u"three hundred and twenty bytes"_q, QString(160, u'가'), u"320"_q}));

TEST_F(TemplateLibrary, ABodyOfAHundredSyllablesIsStoredAsItIs)
{
    Write(u"긴 글"_q, QString(100, u'가'));
    EXPECT_EQ(program.Caption(u"LblEditLength"_q), u"200 /"_q);
    SaveNew();
    EXPECT_EQ(Stored().last().last(), QString(100, u'가'));
}

TEST_F(TemplateLibraryInSqlServerWords, AnApostropheInTheTitleMakesTheStatementFail)
{
    Write(u"it's"_q, u"내용"_q);
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect(Failure(u"Unclosed quotation mark after the character string ')'."_q));
    ClickSave();
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Subject().Text(), u"it's"_q);
    EXPECT_EQ(Body().Text(), u"내용"_q);
    ExpectAtRest();
}

TEST_F(TemplateLibrary, AnApostropheInAChangedBodyMakesTheStatementFail)
{
    ClickOn(EditCard(1));
    Body().SetText(u"좋은 '아침'"_q);
    program.desktop.Expect(AskChange, AnswerYes);
    program.desktop.Expect(Failure(u"Incorrect syntax near '아침'."_q));
    ClickSave();
    EXPECT_EQ(Stored()[0][3], u"좋은 아침입니다."_q);
    EXPECT_EQ(Body().Tag, u"1"_q);
    ExpectAtRest();
}

// --- failures of a save

TEST_F(TemplateLibrary, AFailedInsertIsReportedAndTheFieldsStay)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    program.connections.FailStatement(1, IntegrityViolation, u"Violation of PRIMARY KEY constraint."_q);
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect({u" - 오류!!!"_q,
                            u"☞ : Violation of PRIMARY KEY constraint.\r\n\r\n"
                            u"데이터베이스 저장 프로시저 내부시스템 오류"_q,
                            MsgBoxCritical});
    ClickSave();
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
    EXPECT_EQ(Subject().Text(), u"점심"_q);
    ExpectAtRest();
}

TEST_F(TemplateLibrary, ASaveConnectsTwiceAndTheQuietReconnectionSavesNothing)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    program.connections.RefuseOpens(2);
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    ClickSave(); // the statement finds no connection, which brings one back without a word
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
    ExpectAtRest();
}

TEST_F(TemplateLibrary, AServerThatComesBackAtTheSecondTrySavesAfterOneBox)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    program.connections.RefuseOpens(1);
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(NewStored);
    ClickSave();
    EXPECT_EQ(Stored().size(), 4);
}

TEST_F(TemplateLibrary, BusyAndTheHourglassStandWhileASaveWorks)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    bool busy = false;
    MousePointer pointer = MousePointer::Default;
    program.connections.BeforeStatement([&](const QString& sql) {
        if (!sql.startsWith(u"Insert"_q))
            return;
        busy = program.session.IsBusy();
        pointer = program.desktop.pointers.last();
    });
    SaveNew();
    program.connections.BeforeStatement({});
    EXPECT_TRUE(busy);
    EXPECT_EQ(pointer, MousePointer::Hourglass);
    ExpectAtRest();
}

TEST_F(TemplateLibrary, AnUpdateOfTheKeyZeroChangesNothingWithoutAWord)
{
    EXPECT_FALSE(SaveTemplate(program.services, false, 1, u"x"_q, u"y"_q, 0));
    EXPECT_FALSE(program.connections.Statements().last().startsWith(u"UPDATE"_q));
    ExpectAtRest();
}

TEST_F(TemplateLibrary, WithoutACategoryASaveEndsInAnErrorAndStoresNothing)
{
    program.database.Execute(u"DELETE FROM SMSTempLMst"_q);
    OpenComposePage();
    OpenTemplatePage();
    Write(u"점심"_q, u"맛있게 드세요."_q);
    program.desktop.Expect(AskNew, AnswerYes);
    program.desktop.Expect({u"프로그램 오류"_q,
                            u"오류번호 : 381\r\n오류내용 : 속성 배열 인덱스가 잘못되었습니다."_q,
                            MsgBoxCritical});
    ClickSave();
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
}

// --- deleting

TEST_F(TemplateLibrary, ADeleteWithNothingLoadedSaysNothing)
{
    Write(u"점심"_q, u"맛있게 드세요."_q);
    const int opens = program.connections.Opens();
    ClickDelete();
    EXPECT_EQ(program.connections.Opens(), opens);
    EXPECT_EQ(Body().Text(), u"맛있게 드세요."_q);
}

TEST_F(TemplateLibrary, NoToADeleteLeavesTheTemplate)
{
    ClickOn(EditCard(1));
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerNo);
    ClickDelete();
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Body().Tag, u"1"_q);
}

TEST_F(TemplateLibrary, ADeleteAsksWithTheTitleAsItStandsInTheField)
{
    ClickOn(EditCard(1));
    Subject().SetText(u" 바뀐 제목 "_q);
    program.desktop.Expect(AskDelete(u" 바뀐 제목 "_q), AnswerNo);
    ClickDelete();
}

TEST_F(TemplateLibrary, ADeleteRemovesTheTemplateAndEmptiesTheEditor)
{
    ClickOn(EditCard(1));
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerYes);
    program.desktop.Expect(Deleted);
    ClickDelete();
    EXPECT_TRUE(program.connections.Statements().contains(u"DELETE SMSTempLSub WHERE TempLSeq = 1"_q));
    ASSERT_EQ(Stored().size(), 2);
    EXPECT_EQ(Stored()[0][0], u"2"_q);
    EXPECT_EQ(OnEdit(), QStringList{u"편안한 저녁 되세요."_q});
    ExpectEmptyEditor();
    ExpectAtRest();
}

TEST_F(TemplateLibrary, ATemplateThatIsGoneAlreadyIsDeletedWithTheSameWords)
{
    ClickOn(EditCard(1));
    program.database.Execute(u"DELETE FROM SMSTempLSub WHERE TempLSeq=1"_q);
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerYes);
    program.desktop.Expect(Deleted);
    ClickDelete();
    EXPECT_EQ(Stored().size(), 2);
}

TEST_F(TemplateLibrary, ADeleteTriesTheServerOnce)
{
    ClickOn(EditCard(1));
    program.connections.RefuseOpens(1);
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerYes);
    program.desktop.Expect(ServerDownBox());
    const int opens = program.connections.Opens();
    ClickDelete();
    EXPECT_EQ(program.connections.Opens(), opens + 1);
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Body().Tag, u"1"_q);
}

TEST_F(TemplateLibrary, AFailedDeleteIsReportedAndTheFieldsStay)
{
    ClickOn(EditCard(1));
    program.connections.FailStatement(1, CommandTimedOut, u"Timeout expired."_q);
    program.desktop.Expect(AskDelete(u"아침"_q), AnswerYes);
    program.desktop.Expect(Failure(u"Timeout expired."_q));
    ClickDelete();
    EXPECT_EQ(Stored().size(), 3);
    EXPECT_EQ(Body().Text(), u"좋은 아침입니다."_q);
    EXPECT_EQ(Body().Tag, u"1"_q);
    EXPECT_EQ(program.connections.OpenNow(), 0);
}

// --- Busy

TEST_F(TemplateLibrary, WhileBusyTheCommandsAreDead)
{
    ClickOn(EditCard(1));
    program.session.Busy = true;
    ClickNew();
    ClickSave();
    ClickDelete();
    program.Click(u"BtnFuncDocEdit(2)"_q);
    program.session.Busy = false;
    EXPECT_EQ(Body().Tag, u"1"_q);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

} // namespace

} // namespace tsms::test
