#include "account/AccountBoxes.h"
#include "runtime/RuntimeError.h"
#include "store/engine/DatabaseError.h"
#include "support/database/SqlServerWords.h"
#include "support/program/Program.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/TextBox.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QApplication>

using namespace tsms;
using namespace tsms::test;

namespace {

const QString DefaultDomain = QStringLiteral(TSMS_GATEWAY_DOMAIN);
const QString SettingsQuery =
    u"SELECT SMSID,SMSPWD,SMSDNS,SMSOrgNm,SMSTelNo,SMSAuto1,SMSAuto2 FROM SMSSetup"_q;

Box SettingsSavedBox()
{
    return {u"환경설정"_q, u"정상적으로 문자메시지 환경설정을 완료하였습니다."_q, MsgBoxInformation};
}

class SettingsDialog : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(program.Start());
        before_ = program.connections.Statements().size();
    }

    /// Opens the dialog and acts in it. What `act` leaves open is left by Esc.
    void Open(std::function<void()> act)
    {
        WhenShown(u"dlgSMSSetup"_q, [this, act](QWidget& dialog) {
            dialog_ = &dialog;
            act();
            if (IsOpen())
                PressKey(dialog, Qt::Key_Escape);
        });
        QWidget& idle = program.Control(u"BtnToolbarDis(4)"_q);
        ClickOn(idle.isVisible() ? idle : program.Control(u"BtnToolbarEn(4)"_q));
        EXPECT_FALSE(IsOpen());
    }
    static bool IsOpen() { return Form::Find(u"dlgSMSSetup"_q) != nullptr; }
    template <class W> W& The(const QString& name) { return program.On<W>(*dialog_, name); }
    TextBox& Field(int index) { return The<TextBox>(u"txtUpdate(%1)"_q.arg(index)); }
    CheckBox& Option(int index) { return The<CheckBox>(u"ChkOption(%1)"_q.arg(index)); }
    QStringList Texts()
    {
        QStringList texts;
        for (int i = 0; i <= 4; ++i)
            texts += Field(i).Text();
        return texts;
    }
    /// Types a text in the place of what stands there.
    void Write(int index, const QString& text)
    {
        Field(index).setFocus();
        Field(index).SelectAll();
        PressKey(Field(index), Qt::Key_Delete);
        TypeText(Field(index), text);
    }
    void Save() { PressKey(*dialog_, Qt::Key_F12); }
    QStringList Statements() { return program.connections.Statements().mid(before_); }
    QStringList Stored()
    {
        const auto rows = program.database.Rows(
            u"SELECT SMSID,SMSPWD,SMSDNS,SMSTelNo,SMSOrgNm,SMSAuto1,SMSAuto2 FROM SMSSetup"_q);
        return rows.size() == 1 ? rows.first() : QStringList{u"%1 rows"_q.arg(rows.size())};
    }
    void ExpectAtRest()
    {
        EXPECT_FALSE(program.session.Busy);
        EXPECT_EQ(program.connections.OpenNow(), 0);
    }

    Program program;
    QWidget* dialog_ = nullptr;

private:
    qsizetype before_ = 0;
};

using SettingsDialogInSqlServerWords = InSqlServerWords<SettingsDialog>;

const QStringList OpenAccount{u"demo"_q, u"demo"_q, u"sms.example.kr"_q, u"02-1234-5678"_q, u"한빛교회"_q};

TEST_F(SettingsDialog, ReadsAsItShould)
{
    Open([this] {
        EXPECT_EQ(dialog_->windowTitle(), u"문자메시지 환경설정"_q);
        EXPECT_EQ(The<Label>(u"lblTitle1(1)"_q).Caption(), u"문자메시지 환경설정"_q);
        EXPECT_EQ(The<Label>(u"lblTitle1(0)"_q).Caption(),
                  u"문자메시지 사이트에 가입한 정보를 입력하십시오."_q);
        const QStringList captions{u"아 이 디 :"_q, u"비밀번호 :"_q, u"도 메 인 :"_q, u"회신번호 :"_q,
                                   u"회신명칭 :"_q};
        for (int i = 0; i < captions.size(); ++i)
            EXPECT_EQ(The<Label>(u"lblTitle(%1)"_q.arg(i)).Caption(), captions[i]);
        const QStringList notes{u"※ 문자메시지 사이트 가입 ID 및 비밀번호 입력"_q,
                                u"※ 가입시 도메인주소를 입력하여 주십시오."_q,
                                u"※ 회신번호 및 명칭은 메시지 발송시 전송됩니다."_q};
        for (int i = 0; i < notes.size(); ++i)
            EXPECT_EQ(The<Label>(u"Label1(%1)"_q.arg(i)).Caption(), notes[i]);
        EXPECT_EQ(Option(0).Caption(), u"서비스 접수시 문자메시지 자동  발송"_q);
        EXPECT_EQ(Option(1).Caption(), u"서비스 완료시 문자메시지 자동  발송"_q);
        EXPECT_EQ(The<PushButton>(u"BtnFunc(0)"_q).Caption(), u"저장(F12)"_q);
        EXPECT_EQ(The<PushButton>(u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
    });
}

TEST_F(SettingsDialog, ShowsTheStoredAccount)
{
    program.database.Execute(
        u"UPDATE SMSSetup SET SMSID=' hanbit ', SMSPWD='secret', SMSAuto1='1', SMSAuto2='0'"_q);
    Open([this] {
        EXPECT_EQ(Texts(), (QStringList{u"hanbit"_q, u"secret"_q, u"sms.example.kr"_q, u"02-1234-5678"_q,
                                        u"한빛교회"_q}));
        EXPECT_TRUE(Option(0).Value());
        EXPECT_FALSE(Option(1).Value());
    });
    EXPECT_EQ(Statements(), QStringList{SettingsQuery});
    ExpectAtRest();
}

TEST_F(SettingsDialog, TheSecondOptionIsReadOfItsOwnColumn)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSAuto1='0', SMSAuto2='1'"_q);
    Open([this] {
        EXPECT_FALSE(Option(0).Value());
        EXPECT_TRUE(Option(1).Value());
    });
}

TEST_F(SettingsDialog, AStoredRowReplacesTheDefaultDomainAlsoByNothing)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSID=NULL, SMSPWD=NULL, SMSDNS=NULL, SMSTelNo=NULL, "
                             u"SMSOrgNm=NULL, SMSAuto1=NULL, SMSAuto2=NULL"_q);
    Open([this] {
        EXPECT_EQ(Texts(), (QStringList{u""_q, u""_q, u""_q, u""_q, u""_q}));
        EXPECT_FALSE(Option(0).Value());
        EXPECT_FALSE(Option(1).Value());
    });
}

TEST_F(SettingsDialog, AnEmptyTableLeavesTheDefaultDomain)
{
    program.database.Execute(u"DELETE FROM SMSSetup"_q);
    ASSERT_FALSE(DefaultDomain.isEmpty());
    Open([this] { EXPECT_EQ(Texts(), (QStringList{u""_q, u""_q, DefaultDomain, u""_q, u""_q})); });
    ExpectAtRest();
}

TEST_F(SettingsDialog, AFailedLoadLeavesTheDefaultDomain)
{
    program.connections.FailStatement(1, StatementFailure, u"Select refused."_q);
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    Open([this] { EXPECT_EQ(Texts(), (QStringList{u""_q, u""_q, DefaultDomain, u""_q, u""_q})); });
    ExpectAtRest();
}

TEST_F(SettingsDialog, AServerThatIsDownLeavesTheDefaultDomain)
{
    program.connections.RefuseOpens(-1);
    for (int attempt = 0; attempt < 3; ++attempt)
        program.desktop.Expect(ServerDownBox());
    Open([this] { EXPECT_EQ(Texts(), (QStringList{u""_q, u""_q, DefaultDomain, u""_q, u""_q})); });
}

TEST_F(SettingsDialog, AnOptionThatIsNeitherIsToldBehindTheBoxes)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSAuto1='x'"_q);
    program.desktop.Expect(ErrorBox(RuntimeError(TypeMismatch).Description));
    Open([this] { EXPECT_EQ(Texts(), OpenAccount); });
    ExpectAtRest();
}

TEST_F(SettingsDialog, WhatWasTypedSurvivesALookAtAnotherWindow)
{
    Open([this] {
        Write(4, u"다른 이름"_q);
        const int opens = program.connections.Opens();
        QWidget other;
        other.setWindowModality(Qt::ApplicationModal); // or it could not be looked at
        other.show();
        other.activateWindow();
        Settle();
        EXPECT_FALSE(dialog_->isActiveWindow());
        other.close();
        dialog_->activateWindow();
        Settle();
        EXPECT_TRUE(dialog_->isActiveWindow());
        EXPECT_EQ(Field(4).Text(), u"다른 이름"_q);
        EXPECT_EQ(program.connections.Opens(), opens);
    });
}

TEST_F(SettingsDialog, EachShowingReadsAnew)
{
    Open([this] { Write(4, u"다른 이름"_q); });
    program.database.Execute(u"UPDATE SMSSetup SET SMSOrgNm='새 이름'"_q);
    Open([this] { EXPECT_EQ(Field(4).Text(), u"새 이름"_q); });
}

TEST_F(SettingsDialog, ASaveWritesTheRowAndTheSessionFollows)
{
    program.database.Execute(u"UPDATE SMSSetup SET SMSRemainCnt=7"_q);
    program.desktop.Expect(SettingsSavedBox(), AnswerOK, [this] {
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(program.session.SMSID, u"demo"_q);
        ExpectAtRest();
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    });
    Open([this] {
        const QStringList texts{u"hanbit"_q, u"se cret"_q, u"a.example.kr"_q, u"031-000-0000"_q,
                                u" 한빛 학교 "_q};
        for (int i = 0; i <= 4; ++i)
            Write(i, texts[i]);
        ClickOn(Option(1));
        Save();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(Stored(), (QStringList{u"hanbit"_q, u"se cret"_q, u"a.example.kr"_q, u"031-000-0000"_q,
                                     u"한빛 학교"_q, u"0"_q, u"1"_q}));
    EXPECT_EQ(program.session.SMSID, u"hanbit"_q);
    EXPECT_EQ(program.session.SMSPWD, u"se cret"_q);
    EXPECT_EQ(program.session.SMSDNS, u"a.example.kr"_q);
    EXPECT_EQ(program.session.SMSTelNo, u"031-000-0000"_q);
    EXPECT_EQ(program.session.SMSOrgNm, u"한빛 학교"_q);
    EXPECT_EQ(program.Caption(u"lblSMSCnt"_q), u"7건 남았습니다."_q);
    ExpectAtRest();
}

TEST_F(SettingsDialog, ASaveIsOneStatementAndAReading)
{
    program.desktop.Expect(SettingsSavedBox());
    Open([this] {
        ClickOn(Option(0));
        ClickOn(The<QWidget>(u"BtnFunc(0)"_q));
    });
    EXPECT_EQ(
        Statements(),
        (QStringList{
            SettingsQuery,
            u"UPDATE SMSSetup SET  SMSID ='demo', SMSPWD ='demo', SMSDNS ='sms.example.kr', SMSTelNo ='02-1234-5678', SMSOrgNm ='한빛교회', SMSAuto1 ='1', SMSAuto2 ='0'"_q,
            u"SELECT * FROM SMSSetup"_q}));
}

TEST_F(SettingsDialog, TheAccountIsReadAgainWhenTheDialogIsGone)
{
    program.desktop.Expect(SettingsSavedBox());
    Open([this] {
        program.connections.BeforeStatement(
            [](const QString& sql) { EXPECT_EQ(IsOpen(), sql.startsWith(u"UPDATE"_q)); });
        Save();
    });
    EXPECT_EQ(Statements().last(), u"SELECT * FROM SMSSetup"_q);
}

TEST_F(SettingsDialog, ASaveNeitherMovesTheBalanceNorThePages)
{
    program.desktop.Expect(SettingsSavedBox());
    Open([this] { Save(); });
    EXPECT_EQ(
        program.database.Rows(u"SELECT SMSRemainCnt, SMSWeb1, SMSWeb2 FROM SMSSetup"_q),
        (QList<QStringList>{{u"100"_q, u"http://127.0.0.1:8790/join"_q, u"http://127.0.0.1:8790/charge"_q}}));
}

TEST_F(SettingsDialog, IsBusyUnderTheHourglassWhileItSaves)
{
    QList<bool> busy;
    program.desktop.Expect(SettingsSavedBox());
    Open([&] {
        program.connections.BeforeStatement([&](const QString&) {
            busy += program.session.Busy;
            EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Hourglass);
            program.connections.BeforeStatement({});
        });
        Save();
    });
    EXPECT_EQ(busy, QList<bool>{true});
}

TEST_F(SettingsDialog, ARowThatIsMissingIsStillReportedAsSaved)
{
    program.database.Execute(u"DELETE FROM SMSSetup"_q);
    program.desktop.Expect(SettingsSavedBox());
    Open([this] {
        for (int i : {0, 1, 3, 4})
            Write(i, u"1"_q);
        Save();
    });
    EXPECT_EQ(program.database.Count(u"SMSSetup"_q), 0);
    EXPECT_EQ(program.session.SMSID, u"demo"_q);
}

TEST_F(SettingsDialog, TheFirstEmptyBoxIsNamedAndGetsTheFocus)
{
    program.database.Execute(
        u"UPDATE SMSSetup SET SMSID='', SMSPWD=' ', SMSDNS='', SMSTelNo='', SMSOrgNm=''"_q);
    const QStringList names{u"아이디:"_q, u"비밀번호:"_q, u"도메인:"_q, u"회신번호:"_q, u"회신명칭:"_q};
    for (const QString& name : names)
        program.desktop.Expect(RequiredBox(name));
    program.desktop.Expect(SettingsSavedBox());
    Open([this] {
        for (int empty = 0; empty <= 4; ++empty) {
            Save();
            EXPECT_TRUE(Field(empty).hasFocus()) << empty;
            EXPECT_EQ(Statements(), QStringList{SettingsQuery});
            TypeText(Field(empty), u"1"_q);
        }
        Save();
    });
    EXPECT_EQ(Stored().first(5), (QStringList{u"1"_q, u"1"_q, u"1"_q, u"1"_q, u"1"_q}));
}

TEST_F(SettingsDialog, ABoxOfBlanksIsEmpty)
{
    program.desktop.Expect(RequiredBox(u"회신명칭:"_q));
    Open([this] {
        Write(4, u"   "_q);
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(Statements(), QStringList{SettingsQuery});
}

TEST_F(SettingsDialogInSqlServerWords, AnApostropheInThePasswordBreaksTheStatement)
{
    program.desktop.Expect(ErrorBox(u"Unclosed quotation mark after the character string ''."_q));
    Open([this] {
        Write(1, u"O'Brien"_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Field(1).Text(), u"O'Brien"_q);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        ExpectAtRest();
    });
    EXPECT_EQ(Stored().first(5), OpenAccount);
    EXPECT_EQ(program.session.SMSPWD, u"demo"_q);
}

TEST_F(SettingsDialog, TwoApostrophesBreakItAsWell)
{
    program.desktop.Expect(ErrorBox(u"Incorrect syntax near 'b'."_q));
    Open([this] {
        Write(1, u"a'b'c"_q);
        Save();
        EXPECT_TRUE(IsOpen());
    });
    EXPECT_EQ(Stored().first(5), OpenAccount);
}

TEST_F(SettingsDialog, AFailedSaveKeepsTheDialogTheRowAndTheSession)
{
    program.desktop.Expect(ErrorBox(u"Update refused."_q));
    program.desktop.Expect(SettingsSavedBox());
    Open([this] {
        Write(4, u"새 이름"_q);
        program.connections.FailStatement(1, StatementFailure, u"Update refused."_q);
        Save();
        EXPECT_TRUE(IsOpen());
        EXPECT_EQ(Field(4).Text(), u"새 이름"_q);
        EXPECT_EQ(Stored().first(5), OpenAccount);
        EXPECT_EQ(program.session.SMSOrgNm, u"한빛교회"_q);
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
        ExpectAtRest();
        Save();
    });
    EXPECT_EQ(Stored()[4], u"새 이름"_q);
}

TEST_F(SettingsDialog, AServerThatIsDownAtASaveIsToldForEachAttempt)
{
    program.desktop.Expect(ServerDownBox());
    program.desktop.Expect(ServerDownBox());
    Open([this] {
        Write(4, u"새 이름"_q);
        program.connections.RefuseOpens(2);
        Save();
        EXPECT_TRUE(IsOpen());
        ExpectAtRest();
    });
    EXPECT_EQ(Stored().first(5), OpenAccount);
}

TEST_F(SettingsDialog, AReadingThatFailsBehindASaveLeavesTheSessionAsItWas)
{
    program.desktop.Expect(SettingsSavedBox());
    program.desktop.Expect(ErrorBox(u"Select refused."_q));
    Open([this] {
        Write(4, u"새 이름"_q);
        program.connections.FailStatement(2, StatementFailure, u"Select refused."_q);
        Save();
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(Stored()[4], u"새 이름"_q);
    EXPECT_EQ(program.session.SMSOrgNm, u"한빛교회"_q);
}

TEST_F(SettingsDialog, CancelEscAndTheClosingSignStoreNothing)
{
    for (const QString& name : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
        Open([&] {
            Write(0, u"other"_q);
            ClickOn(The<QWidget>(name));
            EXPECT_FALSE(IsOpen()) << name.toStdString();
        });
    Open([&] {
        Write(0, u"other"_q);
        PressKey(Field(0), Qt::Key_Escape);
        EXPECT_FALSE(IsOpen());
    });
    EXPECT_EQ(Stored().first(5), OpenAccount);
    EXPECT_EQ(program.session.SMSID, u"demo"_q);
}

TEST_F(SettingsDialog, WhileBusyKeysAndButtonsAreDead)
{
    Open([this] {
        program.session.Busy = true;
        for (const Qt::Key key : {Qt::Key_F12, Qt::Key_Escape})
            PressKey(*dialog_, key);
        for (const QString& name : {u"BtnFunc(0)"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            ClickOn(The<QWidget>(name));
        EXPECT_TRUE(IsOpen());
        program.session.Busy = false;
    });
    EXPECT_EQ(Statements(), QStringList{SettingsQuery});
}

TEST_F(SettingsDialog, ThePasswordIsNotShown)
{
    theme::ApplyTheme(*qobject_cast<QApplication*>(QCoreApplication::instance()));
    Open([this] {
        EXPECT_EQ(Field(1).displayText(), u"****"_q);
        EXPECT_FALSE(Field(1).testAttribute(Qt::WA_InputMethodEnabled));
        EXPECT_EQ(Field(0).displayText(), u"demo"_q);
    });
}

TEST_F(SettingsDialog, TheBoxesAskForTheirInputMethod)
{
    Open([this] {
        EXPECT_TRUE(Field(0).inputMethodHints().testFlag(Qt::ImhPreferLatin));
        EXPECT_TRUE(Field(2).inputMethodHints().testFlag(Qt::ImhPreferLatin));
        EXPECT_FALSE(Field(4).inputMethodHints().testFlag(Qt::ImhPreferLatin));
        EXPECT_TRUE(Field(4).testAttribute(Qt::WA_InputMethodEnabled));
    });
}

struct LimitRow
{
    int box;
    QString put;
    QString text;

    friend void PrintTo(const LimitRow& row, std::ostream* out)
    {
        *out << "box " << row.box << ": " << row.put.toStdString();
    }
};

class SettingsLimits : public SettingsDialog, public ::testing::WithParamInterface<LimitRow>
{
};

TEST_P(SettingsLimits, HoldForWhatIsPasted)
{
    Open([this] {
        Field(GetParam().box).SetText(QString());
        PasteText(Field(GetParam().box), GetParam().put);
        EXPECT_EQ(Field(GetParam().box).Text(), GetParam().text);
    });
}

INSTANTIATE_TEST_SUITE_P(Boxes, SettingsLimits,
                         ::testing::Values(LimitRow{0, QString(60, u'a'), QString(50, u'a')},
                                           LimitRow{0, QString(40, u'가'), QString(25, u'가')},
                                           LimitRow{1, QString(60, u'a'), QString(50, u'a')},
                                           LimitRow{2, QString(120, u'a'), QString(100, u'a')},
                                           LimitRow{2, QString(60, u'가'), QString(50, u'가')},
                                           LimitRow{3, QString(20, u'1'), QString(15, u'1')},
                                           LimitRow{3, u"tel02.1234/567"_q, u"02.1234/567"_q},
                                           LimitRow{4, QString(40, u'가'), QString(25, u'가')},
                                           LimitRow{4, QString(60, u'a'), QString(50, u'a')}));

TEST_F(SettingsDialog, TheReplyNumberTakesDigitsAndThreeSigns)
{
    Open([this] {
        Write(3, u"a0 2-1.2/3가+,4"_q);
        EXPECT_EQ(Field(3).Text(), u"02-1.2/34"_q);
        PressKey(Field(3), Qt::Key_Backspace);
        EXPECT_EQ(Field(3).Text(), u"02-1.2/3"_q);
        Field(3).SelectAll();
        TypeText(Field(3), u"a"_q); // never reaches the selection
        EXPECT_EQ(Field(3).Text(), u"02-1.2/3"_q);
        Write(0, u"a0 가"_q);
        EXPECT_EQ(Field(0).Text(), u"a0 가"_q);
    });
}

TEST_F(SettingsDialog, EnterWalksThroughTheBoxesToTheFirstOption)
{
    Open([this] {
        Field(0).setFocus();
        for (int next = 1; next <= 4; ++next) {
            PressKey(Field(next - 1), Qt::Key_Return);
            EXPECT_TRUE(Field(next).hasFocus()) << next;
            EXPECT_EQ(Field(next).SelLength(), Field(next).Text().size());
        }
        PressKey(Field(4), Qt::Key_Enter);
        EXPECT_TRUE(Option(0).hasFocus());
        EXPECT_EQ(Texts(), OpenAccount);
        EXPECT_TRUE(IsOpen());
    });
}

TEST_F(SettingsDialog, ArrowsWalkOutOfABoxAtItsEnds)
{
    Open([this] {
        Field(0).setFocus();
        Field(0).SetSelStart(4);
        PressKey(Field(0), Qt::Key_Right);
        EXPECT_TRUE(Field(1).hasFocus());
        Field(1).SetSelStart(0);
        PressKey(Field(1), Qt::Key_Up);
        EXPECT_TRUE(Field(0).hasFocus());
    });
}

TEST_F(SettingsDialog, TheBoxWithTheFocusAndItsBackingAreColoured)
{
    Open([this] {
        for (int i = 0; i <= 4; ++i) {
            Field(i).setFocus();
            EXPECT_EQ(Field(i).BackColor(), theme::Focus);
            EXPECT_EQ(The<Panel>(u"PLtxtBack(%1)"_q.arg(i)).BackColor(), theme::Focus);
            Option(0).setFocus();
            EXPECT_EQ(Field(i).BackColor(), theme::White);
            EXPECT_EQ(The<Panel>(u"PLtxtBack(%1)"_q.arg(i)).BackColor(), theme::White);
        }
    });
}

TEST_F(SettingsDialog, TheFirstBoxHasTheFocus)
{
    Open([this] { EXPECT_TRUE(Field(0).hasFocus()); });
}

} // namespace
