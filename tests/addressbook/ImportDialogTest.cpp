#include "support/program/Program.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/spreadsheet/WorkbookEncryptor.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "toolkit/fields/ComboBox.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/look/Theme.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QHeaderView>

#include <set>

using namespace tsms;
using namespace tsms::test;

namespace {

using Rows = std::vector<std::vector<QString>>;

constexpr int MostCounted = 32767;

Box DoneBox()
{
    return {u"엑셀데이터 완료!!!"_q, u"엑셀 추출완료 : 엑셀데이터 정상적으로 가져왔습니다."_q,
            MsgBoxInformation};
}

/// A number of a mobile phone for each row.
QString Phone(int row)
{
    return u"010-%1-%2"_q.arg(row / 10000, 4, 10, QChar(u'0')).arg(row % 10000, 4, 10, QChar(u'0'));
}

Rows GoodRows(int count)
{
    Rows rows;
    for (int row = 1; row <= count; ++row)
        rows.push_back({u"이름"_q, Phone(row)});
    return rows;
}

Rows LostRows(int count)
{
    return Rows(static_cast<std::size_t>(count), {u"이름"_q, u"02"_q});
}

class Import : public ::testing::Test
{
protected:
    void SetUp() override
    {
        ASSERT_TRUE(program.Start());
        program.desktop.pointers.clear();
    }

    fpSpread& List() { return program.Recipients(); }
    QStringList Row(int row)
    {
        QStringList texts;
        for (const int col : {1, 2, 3, 5})
            texts += List().Cells().Text(col, row);
        return texts;
    }

    /// Opens the dialog, acts in it and leaves it by Esc unless it is gone by then.
    void InDialog(std::function<void(QWidget& dialog)> act)
    {
        WhenShown(u"MakeSMSExcel"_q, [this, act](QWidget& dialog) {
            dialog_ = &dialog;
            act(dialog);
            closedByItself = !dialog.isVisible();
            if (!closedByItself)
                PressKey(dialog, Qt::Key_Escape);
        });
        program.Click(u"BtnFuncMain(1)"_q);
        EXPECT_EQ(Form::Find(u"MakeSMSExcel"_q), nullptr);
    }
    template <class W> W& The(const QString& name) { return program.On<W>(*dialog_, name); }
    QString Caption(const QString& name) { return The<Label>(name).Caption(); }
    void Choose(const QByteArray& content)
    {
        program.WriteFile(u"../book.xls"_q, content);
        program.desktop.fileToPick = program.Path(u"../book.xls"_q);
        ClickOn(The<QWidget>(u"cmdSearch"_q));
    }

    /// What the dialog shows when the box at its end stands before it.
    struct Shown
    {
        QString good;
        QString lost;
        QString progress;
        int barMaximum = 0;
        int bar = 0;
        QStringList sheets;
        int selectedSheet = -1;
        int sheetRows = 0;
        bool busy = true;
    };

    void ImportFile(const QByteArray& content)
    {
        program.desktop.Expect(DoneBox(), AnswerOK, [this] {
            shown = {Caption(u"LblTotalCnt"_q),
                     Caption(u"LblLoseCnt"_q),
                     Caption(u"lblCountNm"_q),
                     The<ProgressBar>(u"PB"_q).Max(),
                     The<ProgressBar>(u"PB"_q).Value(),
                     {},
                     The<ComboBox>(u"CbExcelSheet"_q).ListIndex(),
                     The<fpSpread>(u"TEMPfpSpread"_q).Cells().MaxRows(),
                     program.session.Busy};
            auto& sheets = The<ComboBox>(u"CbExcelSheet"_q);
            for (int i = 0; i < sheets.ListCount(); ++i)
                shown.sheets += sheets.List(i);
        });
        InDialog([&](QWidget&) { Choose(content); });
        EXPECT_TRUE(closedByItself);
        EXPECT_FALSE(program.session.Busy);
    }
    void ImportRows(const Rows& rows) { ImportFile(WorkbookOf(rows)); }

    /// The run ends without a word, and the dialog stays.
    void ExpectSilence(const QByteArray& content, std::function<void()> lookAtDialog = {})
    {
        InDialog([&](QWidget&) {
            Choose(content);
            if (lookAtDialog)
                lookAtDialog();
        });
        EXPECT_FALSE(closedByItself);
        EXPECT_TRUE(program.desktop.boxes.isEmpty());
        EXPECT_FALSE(program.session.Busy);
        ASSERT_FALSE(program.desktop.pointers.isEmpty());
        EXPECT_EQ(program.desktop.pointers.last(), MousePointer::Default);
    }
    void ExpectListKept()
    {
        EXPECT_EQ(Row(1), (QStringList{u"01"_q, u"먼저"_q, u"010-9999"_q, {}}));
        EXPECT_EQ(List().Cells().MaxRows(), 20);
    }
    void FillList() { program.List({{u"먼저"_q, u"010-9999"_q}}); }

    QStringList LogLines(const QString& name)
    {
        QFile file(program.Path(name));
        if (!file.open(QIODevice::ReadOnly))
            return {};
        return QString::fromUtf8(file.readAll()).split(u"\r\n"_q, Qt::SkipEmptyParts);
    }

    Program program;
    Shown shown;
    bool closedByItself = false;

private:
    QWidget* dialog_ = nullptr;
};

TEST_F(Import, TheDialogReadsAsItShould)
{
    InDialog([this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"문자메시지 엑셀 가져오기"_q);
        QStringList words;
        for (const Label* label : dialog.findChildren<Label*>())
            words += label->Caption();
        for (const QString& line :
             {u"문자메시지 엑셀 가져오기"_q, u"엑셀파일(*.xls)에 있는 데이터를 전송대상에 포함합니다."_q,
              u"엑셀파일 가져오기"_q, u"엑셀파일"_q, u"▒  엑셀파일(*.xls) 불러오기 양식 설정입니다."_q,
              u"▒  A셀 : 이름, B셀 :  전화번호순으로 지정하셔야 합니다."_q,
              u"▒  첫번째 행부터 가지고 옵니다. (제목 필요없음!)"_q,
              u"▒  여러개의 Sheet일 경우 첫번째 Sheet를 가지고 옵니다."_q,
              u"▒  최대 6만 6천건까지 엑셀파일 불러오기를 제공합니다."_q, u"처리결과"_q,
              u"정상 발송이 가능한 건수"_q, u"휴대번호 오류로 인한 누락건수"_q, u"진행상태"_q})
            EXPECT_EQ(words.count(line), 1) << line.toStdString();
        EXPECT_EQ(Caption(u"lblCountNm"_q), u"진행상태"_q);
        EXPECT_EQ(The<PushButton>(u"cmdSearch"_q).Caption(), u"찾기"_q);
        EXPECT_EQ(The<PushButton>(u"BtnFunc(1)"_q).Caption(), u"취소(ESC)"_q);
        EXPECT_EQ(dialog.findChild<QWidget*>(u"BtnFunc(0)"_q), nullptr);
        EXPECT_EQ(Caption(u"PlExcelPath"_q), QString());
        EXPECT_EQ(The<ComboBox>(u"CbExcelSheet"_q).ListCount(), 0);
    });
}

TEST_F(Import, TheBarStandsFullAndTheSheetHasItsThreeColumnsAtFirst)
{
    InDialog([this](QWidget&) {
        EXPECT_EQ(The<ProgressBar>(u"PB"_q).Max(), 100);
        EXPECT_EQ(The<ProgressBar>(u"PB"_q).Value(), 100);
        auto& sheet = The<fpSpread>(u"TEMPfpSpread"_q);
        ASSERT_EQ(sheet.Cells().MaxCols(), 3);
        const std::pair<QString, double> columns[] = {
            {u"수신자명"_q, 15}, {u"수신 휴대번호"_q, 15}, {u"휴대번호 점검결과"_q, 34.5}};
        for (int col = 1; col <= 3; ++col) {
            EXPECT_EQ(sheet.Cells().Text(col, 0), columns[col - 1].first);
            EXPECT_EQ(sheet.ColWidth(col), columns[col - 1].second);
        }
        EXPECT_EQ(sheet.horizontalHeader()->height(), 20);           // 15 points
        EXPECT_EQ(sheet.verticalHeader()->defaultSectionSize(), 19); // 14 points
    });
}

TEST_F(Import, ItAsksForAWorkbook)
{
    InDialog([this](QWidget&) { ClickOn(The<QWidget>(u"cmdSearch"_q)); });
    EXPECT_EQ(program.desktop.filePicks,
              QStringList{u"문자메세지 대상 엑셀(EXCEL)파일 선택 | 엑셀파일 (*.xls)|*.xls"_q});
}

TEST_F(Import, NothingHappensWhenNoFileIsChosen)
{
    FillList();
    for (const QString& none : {QString(), u"   "_q}) {
        program.desktop.fileToPick = none;
        InDialog([this, none](QWidget&) {
            ClickOn(The<QWidget>(u"cmdSearch"_q));
            EXPECT_EQ(Caption(u"PlExcelPath"_q), none);
        });
        EXPECT_FALSE(closedByItself);
    }
    EXPECT_TRUE(program.desktop.pointers.isEmpty());
    ExpectListKept();
}

TEST_F(Import, TheRowsOfTheFirstSheetReplaceTheList)
{
    FillList();
    ImportRows({{u"  김하늘 "_q, u" 010-1111-1111 "_q, u" 셋째 값 "_q}, {u"이바다"_q, u"01122222222"_q}});
    EXPECT_EQ(List().Cells().MaxRows(), 2);
    EXPECT_EQ(Row(1), (QStringList{u"01"_q, u"김하늘"_q, u"010-1111-1111"_q, u"셋째 값"_q}));
    EXPECT_EQ(Row(2), (QStringList{u"02"_q, u"이바다"_q, u"01122222222"_q, {}}));
    EXPECT_TRUE(List().ReDraw());
}

TEST_F(Import, RowsWithoutAGoodNumberAreCountedAndLeaveNoGap)
{
    ImportRows({{u"가"_q, u"02-111-1111"_q},
                {u"나"_q, u"010-1111-1111"_q},
                {u"다"_q},
                {u"라"_q, u"010-12345"_q},
                {u"마"_q, u"019.123.45."_q},
                {u"바"_q, u"0101234567890123456789"_q}});
    ASSERT_EQ(List().Cells().MaxRows(), 3);
    EXPECT_EQ(Row(1), (QStringList{u"01"_q, u"나"_q, u"010-1111-1111"_q, {}}));
    EXPECT_EQ(Row(2), (QStringList{u"02"_q, u"마"_q, u"019.123.45."_q, {}}));
    EXPECT_EQ(Row(3), (QStringList{u"03"_q, u"바"_q, u"0101234567890123456789"_q, {}}));
    EXPECT_EQ(shown.good, u"3건"_q);
    EXPECT_EQ(shown.lost, u"3건"_q);
    EXPECT_EQ(shown.progress, u"■ 엑셀데이터에 있는 휴대번호를 검증합니다....      총 : 6, 현 : 6"_q);
    EXPECT_EQ(shown.barMaximum, 6);
    EXPECT_EQ(shown.bar, 6);
    EXPECT_EQ(shown.sheetRows, 3);
}

TEST_F(Import, TheSheetsAreListedAndTheFirstIsSelected)
{
    ImportRows({{u"가"_q, u"010-1111-1111"_q}});
    EXPECT_EQ(shown.sheets, (QStringList{u"회원"_q, u"Sheet2"_q, u"Sheet3"_q}));
    EXPECT_EQ(shown.selectedSheet, 0);
}

TEST_F(Import, BusyIsClearAndThePointerNormalBeforeTheBoxAtTheEnd)
{
    ImportRows({{u"가"_q, u"010-1111-1111"_q}});
    EXPECT_FALSE(shown.busy);
    EXPECT_EQ(program.desktop.pointers,
              (QList<MousePointer>{MousePointer::Hourglass, MousePointer::Default}));
}

/// Which of a dialog's buttons can be pressed when the dialog is drawn while Busy is set.
class AliveWhileBusy final : public QObject
{
public:
    AliveWhileBusy(QWidget& dialog, const Session& session) : dialog_(dialog), session_(session)
    {
        dialog.installEventFilter(this);
    }

    bool eventFilter(QObject*, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && session_.IsBusy())
            seen.insert(Now());
        return false;
    }

    QStringList Now() const
    {
        QStringList alive;
        for (const QString& name : {u"cmdSearch"_q, u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q})
            if (dialog_.findChild<QWidget*>(name)->isEnabled())
                alive += name;
        return alive;
    }

    std::set<QStringList> seen;

private:
    QWidget& dialog_;
    const Session& session_;
};

TEST_F(Import, WhatIsDeadDuringTheRunLooksSoAndIsAliveAgainBehindIt)
{
    program.desktop.Expect(DoneBox());
    InDialog([&](QWidget& dialog) {
        const AliveWhileBusy watch(dialog, program.session);
        const QStringList before = watch.Now();
        EXPECT_EQ(before.size(), 3);
        Choose(WorkbookOf(GoodRows(3)));
        EXPECT_EQ(watch.seen, std::set<QStringList>{QStringList()});
        EXPECT_EQ(watch.Now(), before);
    });
}

TEST_F(Import, TheFirstEmptyNameEndsTheData)
{
    ImportRows({{u"가"_q, u"010-1111-1111"_q}, {u"   "_q, u"010-2222-2222"_q}, {u"다"_q, u"x"_q}});
    EXPECT_EQ(List().Cells().MaxRows(), 1);
    EXPECT_EQ(shown.good, u"1건"_q);
    EXPECT_EQ(shown.lost, u"0건"_q);
    EXPECT_EQ(shown.barMaximum, 1);
}

TEST_F(Import, AnEmptyFirstNameLeavesTheListAndIsGoodNewsAllTheSame)
{
    FillList();
    ImportRows({{{}, u"010-1111-1111"_q}, {u"나"_q, u"010-2222-2222"_q}});
    ExpectListKept();
    EXPECT_EQ(shown.barMaximum, 100);
    EXPECT_EQ(shown.progress, u"진행상태"_q);
}

TEST_F(Import, SoDoesAnEmptySheet)
{
    FillList();
    ImportRows({});
    ExpectListKept();
}

TEST_F(Import, AListOfLostRowsAloneEndsEmpty)
{
    FillList();
    ImportRows(LostRows(3));
    EXPECT_EQ(List().Cells().MaxRows(), 0);
    EXPECT_EQ(shown.lost, u"3건"_q);
}

TEST_F(Import, TheSameNumberIsTakenAsOftenAsItStandsThere)
{
    ImportRows({{u"가"_q, u"010-1111-1111"_q}, {u"나"_q, u"01011111111"_q}, {u"가"_q, u"010-1111-1111"_q}});
    EXPECT_EQ(List().Cells().MaxRows(), 3);
}

TEST_F(Import, FromTheHundredthRowOnTheNumbersRepeat)
{
    ImportRows(GoodRows(101));
    EXPECT_EQ(Row(9)[0], u"09"_q);
    EXPECT_EQ(Row(99)[0], u"99"_q);
    EXPECT_EQ(Row(100)[0], u"00"_q);
    EXPECT_EQ(Row(101)[0], u"01"_q);
}

TEST_F(Import, NumberCellsComeAsTheyAreSeen)
{
    WorkbookMaker book;
    const int hyphens = book.AddFormat(u"000-0000-0000"_q);
    const int zeros = book.AddFormat(u"00000000000"_q);
    book.AddSheet(u"회원"_q)
        .Text(1, 1, u"가"_q)
        .Number(2, 1, 1011111111, hyphens)
        .Text(1, 2, u"나"_q)
        .Number(2, 2, 1022222222, zeros)
        .Text(1, 3, u"다"_q)
        .Number(2, 3, 1033333333) // seen without its zero, it is no mobile number
        .Number(1, 4, 12)
        .NumberFormula(2, 4, 1044444444, hyphens);
    book.AddSheet(u"둘"_q);
    book.AddSheet(u"셋"_q);
    ImportFile(book.File());
    ASSERT_EQ(List().Cells().MaxRows(), 3);
    EXPECT_EQ(Row(1)[2], u"010-1111-1111"_q);
    EXPECT_EQ(Row(2)[2], u"01022222222"_q);
    EXPECT_EQ(Row(3), (QStringList{u"03"_q, u"12"_q, u"010-4444-4444"_q, {}}));
    EXPECT_EQ(shown.lost, u"1건"_q);
}

TEST_F(Import, AHiddenFirstSheetIsTheFirstSheet)
{
    WorkbookMaker book(WorkbookMaker::Version::Biff5);
    book.codePage = 949;
    book.AddSheet(u"숨은"_q, WorkbookMaker::Visibility::Hidden)
        .Text(1, 1, u"김하늘"_q)
        .Text(2, 1, u"010-1111-1111"_q);
    book.AddSheet(u"둘"_q).Text(1, 1, u"이바다"_q).Text(2, 1, u"010-2222-2222"_q);
    book.AddSheet(u"셋"_q);
    ImportFile(book.File());
    EXPECT_EQ(Row(1)[1], u"김하늘"_q);
    EXPECT_EQ(List().Cells().MaxRows(), 1);
}

TEST_F(Import, AWorkbookOfOneOrTwoSheetsIsNotTakenAndNothingSaysSo)
{
    FillList();
    for (const int sheets : {1, 2}) {
        WorkbookMaker book;
        for (int i = 1; i <= sheets; ++i)
            book.AddSheet(u"Sheet%1"_q.arg(i)).Text(1, 1, u"가"_q).Text(2, 1, u"010-1111-1111"_q);
        ExpectSilence(book.File());
    }
    ExpectListKept();
}

TEST_F(Import, AFileThatIsNoWorkbookIsNotTakenAndNothingSaysSo)
{
    FillList();
    const QByteArray good = WorkbookOf({{u"가"_q, u"010-1111-1111"_q}});
    WorkbookMaker encrypted;
    encrypted.filePass = WorkbookEncryptor(WorkbookEncryptor::Method::Rc4, "secret").FilePass(true);
    for (int i = 0; i < 3; ++i)
        encrypted.AddSheet(u"s"_q);
    CompoundMaker document;
    document.streams = {{u"WordDocument"_q, QByteArray(5000, 'x')}};
    for (const QByteArray& content :
         {QByteArray(), QByteArray("가,010-1111-1111"), QByteArray("PK\x03\x04") + QByteArray(5000, 'x'),
          good.first(good.size() / 2), good.first(good.size() - 1), encrypted.File(), document.Make()})
        ExpectSilence(content);
    ExpectListKept();
}

TEST_F(Import, AFileThatIsGoneIsNotTakenAndNothingSaysSo)
{
    program.desktop.fileToPick = program.Path(u"../gone.xls"_q);
    InDialog([this](QWidget&) { ClickOn(The<QWidget>(u"cmdSearch"_q)); });
    EXPECT_FALSE(closedByItself);
    EXPECT_TRUE(program.desktop.boxes.isEmpty());
}

TEST_F(Import, AfterAFileThatWasNotTakenAnotherOneMayBeChosen)
{
    program.desktop.Expect(DoneBox());
    InDialog([this](QWidget&) {
        Choose("no workbook");
        EXPECT_EQ(Caption(u"PlExcelPath"_q), program.Path(u"../book.xls"_q));
        Choose(WorkbookOf({{u"가"_q, u"010-1111-1111"_q}}));
    });
    EXPECT_TRUE(closedByItself);
    EXPECT_EQ(List().Cells().MaxRows(), 1);
}

TEST_F(Import, AfterARunThatAFaultEndedAnotherFileMayBeChosen)
{
    program.desktop.Expect(DoneBox());
    InDialog([this](QWidget&) {
        Choose(WorkbookOf(GoodRows(MostCounted + 1)));
        Choose(WorkbookOf({{u"가"_q, u"010-1111-1111"_q}, {u"나"_q, u"02"_q}}));
    });
    EXPECT_TRUE(closedByItself);
    EXPECT_EQ(List().Cells().MaxRows(), 1);
    EXPECT_EQ(Row(1), (QStringList{u"01"_q, u"가"_q, u"010-1111-1111"_q, {}}));
}

TEST_F(Import, AsManyGoodRowsAsTheCountHoldsAreTaken)
{
    ImportRows(GoodRows(MostCounted));
    EXPECT_EQ(List().Cells().MaxRows(), MostCounted);
    EXPECT_EQ(Row(MostCounted)[2], Phone(MostCounted));
    EXPECT_EQ(shown.good, u"32767건"_q);
}

TEST_F(Import, OneGoodRowMoreEndsTheRunInSilenceWithTheListAsFarAsItGot)
{
    ExpectSilence(WorkbookOf(GoodRows(MostCounted + 1)), [this] {
        EXPECT_EQ(Caption(u"LblTotalCnt"_q), u"32767건"_q);
        EXPECT_EQ(Caption(u"LblLoseCnt"_q), u"0건"_q);
        EXPECT_TRUE(Caption(u"lblCountNm"_q).endsWith(u"총 : 32768, 현 : 32767"_q));
        EXPECT_EQ(The<ProgressBar>(u"PB"_q).Value(), MostCounted);
        EXPECT_TRUE(List().ReDraw());
    });
    EXPECT_EQ(List().Cells().MaxRows(), MostCounted + 1);
    EXPECT_EQ(Row(MostCounted)[2], Phone(MostCounted));
    EXPECT_EQ(Row(MostCounted + 1), (QStringList{{}, {}, {}, {}}));
}

TEST_F(Import, OneLostRowMoreDoesSoToo)
{
    FillList();
    Rows rows = LostRows(MostCounted + 1);
    rows.insert(rows.begin(), {u"가"_q, u"010-1111-1111"_q});
    ExpectSilence(WorkbookOf(rows));
    EXPECT_EQ(List().Cells().MaxRows(), MostCounted + 2);
    EXPECT_EQ(Row(1)[2], u"010-1111-1111"_q);
    EXPECT_EQ(Row(2)[2], QString());
}

TEST_F(Import, MoreRowsThanEitherCountHoldsAreTakenWhenBothShareThem)
{
    Rows rows = GoodRows(MostCounted);
    const Rows lost = LostRows(MostCounted);
    rows.insert(rows.end(), lost.begin(), lost.end());
    ImportRows(rows);
    EXPECT_EQ(List().Cells().MaxRows(), MostCounted);
    EXPECT_EQ(shown.lost, u"32767건"_q);
    EXPECT_EQ(shown.progress, u"■ 엑셀데이터에 있는 휴대번호를 검증합니다....      총 : 65534, 현 : 65534"_q);
}

TEST_F(Import, TheLogsStandBesideTheProgramsFolderAndInIt)
{
    ImportRows({{u"가"_q, u"010-1111-1111"_q}});
    EXPECT_EQ(LogLines(u"../tsmslog.txt"_q).size(), 1);
    EXPECT_EQ(LogLines(u"log.txt"_q).size(), 1);
    ImportRows({{u"나"_q, u"010-1111-1111"_q}});
    EXPECT_EQ(LogLines(u"../tsmslog.txt"_q).size(), 1); // each time anew
    EXPECT_EQ(LogLines(u"log.txt"_q).size(), 2);        // and this one goes on
}

TEST_F(Import, TooFewSheetsLeaveTheLogInTheFolderUnwritten)
{
    WorkbookMaker book;
    book.AddSheet(u"하나"_q);
    ExpectSilence(book.File());
    EXPECT_EQ(LogLines(u"../tsmslog.txt"_q).size(), 1);
    EXPECT_TRUE(LogLines(u"log.txt"_q).isEmpty());
}

TEST_F(Import, ALogThatCannotBeWrittenHoldsNothingUp)
{
    QDir(program.services.applicationPath).mkdir(u"../tsmslog.txt"_q);
    QDir(program.services.applicationPath).mkdir(u"log.txt"_q);
    ImportRows({{u"가"_q, u"010-1111-1111"_q}});
    EXPECT_EQ(List().Cells().MaxRows(), 1);
}

TEST_F(Import, WhileBusyTheDialogIsDead)
{
    InDialog([this](QWidget& dialog) {
        program.session.Busy = true;
        ClickOn(The<QWidget>(u"cmdSearch"_q));
        ClickOn(The<QWidget>(u"BtnFunc(1)"_q));
        ClickOn(The<QWidget>(u"BtnTopFunc(1)"_q));
        PressKey(dialog, Qt::Key_Escape);
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_TRUE(program.desktop.filePicks.isEmpty());
        EXPECT_TRUE(program.session.Busy);
        program.session.Busy = false;
    });
}

TEST_F(Import, EachOfItsWaysOutClosesItAndF12DoesNot)
{
    for (const QString& button : {u"BtnFunc(1)"_q, u"BtnTopFunc(1)"_q}) {
        InDialog([this, button](QWidget& dialog) {
            PressKey(dialog, Qt::Key_F12);
            ClickOn(The<QWidget>(u"BtnTopFunc(0)"_q));
            EXPECT_TRUE(dialog.isVisible());
            ClickOn(The<QWidget>(button));
        });
        EXPECT_TRUE(closedByItself);
    }
    EXPECT_TRUE(program.desktop.filePicks.isEmpty());
}

TEST_F(Import, ItsRecipientsGetTheMessage)
{
    ImportRows(
        {{u"김하늘"_q, u"010-1111-1111"_q}, {u"이바다"_q, u"02-1"_q}, {u"박나무"_q, u"011-222-3333"_q}});
    program.Write(u"안녕 [받는사람]"_q);
    program.desktop.Expect(SentBox());
    program.Send();
    ASSERT_EQ(program.gateway.Messages().size(), 2);
    EXPECT_EQ(program.gateway.Messages().last().Content, u"안녕 박나무"_q);
}

} // namespace
