#include "support/program/HistoryProgram.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTextDocumentFragment>

#ifdef Q_OS_WIN
#include <qt_windows.h>
#else
#include "support/workbooks/FreeXlReader.h"
#endif

namespace tsms::test {

namespace {

const QString FileName = u"문자메시지 발송내역20120530.xls"_q;

class Export : public HistoryProgram
{
protected:
    void SetUp() override
    {
        HistoryProgram::SetUp();
        ASSERT_TRUE(folder.isValid());
        program.desktop.folderToPick = folder.path();
        Log({u"2012-05-31-10-00"_q, u"1"_q, u"김하늘"_q, u"010-0000-0001"_q, u"첫 줄\r\n둘째 줄"_q});
        Log({u"2012-05-30 10-00"_q, u"2"_q, u"이바다"_q, u"010-0000-0002"_q, u"안녕하세요"_q, QString(),
             u"E305"_q, u"수신 거부"_q});
        EnterAndListAll();
    }
    QString File() const { return folder.filePath(FileName); }
    QStringList FolderContent() const { return QDir(folder.path()).entryList(QDir::Files | QDir::Hidden); }
    void Click() { program.Click(u"BtnSendListFun(2)"_q); }
    QString Tip()
    {
        return QTextDocumentFragment::fromHtml(program.Control(u"BtnSendListFun(2)"_q).toolTip())
            .toPlainText();
    }
    void PutFile(const QByteArray& bytes)
    {
        QFile file(File());
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray Content() const
    {
        QFile file(File());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    static Box StandsBox()
    {
        return {u"문자메시지 발송내역"_q,
                u"문자메시지 발송내역20120530을 엑셀파일이 이미 존재합니다. 삭제하신후 계속 "
                u"진행하시겠습니까?."_q,
                MsgBoxCriticalYesNo};
    }

    QTemporaryDir folder;
};

TEST_F(Export, WritesTheListUnderItsTitleAndTheDayAndOpensIt)
{
    Click();
    EXPECT_EQ(program.desktop.folderPrompts, QStringList{u"엑셀파일을 저장하실 폴더를 선택하여 주십시오."_q});
    EXPECT_EQ(FolderContent(), QStringList{FileName});
    EXPECT_EQ(program.desktop.documents, QStringList{File()});
}

TEST_F(Export, ClearsBusyAndThePointerAtItsEnd)
{
    PutFile("the former one");
    program.desktop.Expect(StandsBox(), AnswerYes, [this] { program.session.Busy = true; });
    program.desktop.pointers.clear();
    Click();
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(program.desktop.pointers, QList<MousePointer>{MousePointer::Default});
}

#ifndef Q_OS_WIN // where there is no such reader
TEST_F(Export, HoldsTheTitlesAndAllRowsWithTheHiddenKeyAndNoMarks)
{
    Click();
    const ReadBook book = ReadWithFreeXl(File());
    EXPECT_EQ(book.sheets, QStringList{u"Sheet1"_q});
    ASSERT_EQ(book.rows.size(), 3);
    const auto texts = [&book](int row) {
        QStringList cells;
        for (const QVariant& cell : book.rows[row])
            cells += cell.toString();
        return cells;
    };
    EXPECT_EQ(texts(0), (QStringList{u""_q, u"선택"_q, u"번호"_q, u"상태"_q, u"받는사람"_q, u"수신번호"_q,
                                     u"보낸시간"_q, u"보낸메시지"_q, u"실패코드"_q, u"실패사유"_q}));
    EXPECT_EQ(texts(1), (QStringList{u"1"_q, u""_q, u"100001"_q, u"성공"_q, u"김하늘"_q, u"010-0000-0001"_q,
                                     u"2012-05-31 10:00"_q, u"첫 줄\n둘째 줄"_q, u""_q, u""_q}));
    EXPECT_EQ(texts(2), (QStringList{u"2"_q, u""_q, u""_q, u"실패"_q, u"이바다"_q, u"010-0000-0002"_q,
                                     u"2012-05-30 10:00"_q, u"안녕하세요"_q, u"E305"_q, u"수신 거부"_q}));
}
#endif

TEST_F(Export, LeavesTheListAsItWas)
{
    ClickMark(1);
    const QString marks = Marks();
    const QStringList names = Names();
    Click();
    EXPECT_EQ(Marks(), marks);
    EXPECT_EQ(Names(), names);
    EXPECT_EQ(List().Cells().Text(1, 0), QString());
}

TEST_F(Export, ACancelledPickerEndsItAtOnce)
{
    program.desktop.folderToPick.clear();
    Click();
    EXPECT_EQ(FolderContent(), QStringList());
    EXPECT_EQ(program.desktop.documents, QStringList());
}

TEST_F(Export, AsksBeforeAFileOfTheDayIsReplaced)
{
    PutFile("the former one");
    program.desktop.Expect(StandsBox(), AnswerYes);
    Click();
    EXPECT_TRUE(Content().startsWith(QByteArray::fromHex("D0CF11E0A1B11AE1")));
    EXPECT_EQ(FolderContent(), QStringList{FileName});
    EXPECT_EQ(program.desktop.documents.size(), 1);
}

TEST_F(Export, KeepsTheFileOfTheDayWhenTheAnswerIsNo)
{
    PutFile("the former one");
    program.desktop.Expect(StandsBox(), AnswerNo);
    Click();
    EXPECT_EQ(Content(), "the former one");
    EXPECT_EQ(program.desktop.documents, QStringList());
}

TEST_F(Export, AFileThatCannotBeRemovedEndsItWithoutAWord)
{
    PutFile("the former one");
    // While the question stands, a folder takes the place of the file.
    program.desktop.Expect(StandsBox(), AnswerYes, [this] {
        QFile::remove(File());
        QDir().mkpath(File());
    });
    Click();
    EXPECT_EQ(program.desktop.documents, QStringList());
}

TEST_F(Export, AListThatIsTooLongForAFileLeavesTheFormerOne)
{
    PutFile("the former one");
    program.The<fpSpread>(u"fpSpreadSendList"_q).Cells().SetMaxRows(65'536);
    program.desktop.Expect(StandsBox(), AnswerYes);
    Click();
    EXPECT_EQ(Content(), "the former one");
    EXPECT_EQ(FolderContent(), QStringList{FileName});
    EXPECT_EQ(program.desktop.documents, QStringList());
}

TEST_F(Export, TheButtonTellsWhereTheFileWentAndThatItDidNot)
{
    Click();
    EXPECT_EQ(Tip(), u"저장하였습니다 : "_q + QDir::toNativeSeparators(File()));
    program.desktop.folderToPick = folder.filePath(u"gone"_q);
    Click();
    EXPECT_EQ(Tip(),
              u"저장하지 못했습니다 : "_q + QDir::toNativeSeparators(folder.filePath(u"gone/"_q + FileName)));
    program.desktop.folderToPick.clear();
    Click();
    EXPECT_EQ(Tip(), QString());
}

TEST_F(Export, AFolderThatIsNotThereEndsItWithoutAWord)
{
    program.desktop.folderToPick = folder.filePath(u"gone"_q);
    Click();
    EXPECT_EQ(program.desktop.documents, QStringList());
    EXPECT_FALSE(program.session.IsBusy());
    EXPECT_EQ(Names(), (QStringList{u"김하늘"_q, u"이바다"_q}));
}

TEST_F(Export, TheButtonTellsWhyAFileCannotBeReplaced)
{
    ASSERT_TRUE(QDir().mkpath(File()));
    Click();
    EXPECT_EQ(Tip(), u"저장하지 못했습니다 : "_q + QDir::toNativeSeparators(File()) +
                         u" (다른 프로그램이 열고 있거나, 쓸 수 없는 곳입니다.)"_q);
}

#ifdef Q_OS_WIN
/// A file as another program holds it that lets nobody change it meanwhile.
class HeldFile
{
public:
    HeldFile(const QString& path, DWORD others)
        : handle_(::CreateFileW(qUtf16Printable(path), GENERIC_READ | GENERIC_WRITE, others, nullptr,
                                OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE);
    }
    ~HeldFile() { ::CloseHandle(handle_); }

private:
    HANDLE handle_;
};

TEST_F(Export, AWorkbookThatAnotherProgramHoldsStays)
{
    for (const DWORD others : {DWORD(0), DWORD(FILE_SHARE_READ), DWORD(FILE_SHARE_READ | FILE_SHARE_WRITE)}) {
        PutFile("the former one");
        {
            const HeldFile held(File(), others);
            program.desktop.Expect(StandsBox(), AnswerYes);
            Click();
        }
        EXPECT_EQ(Content(), "the former one") << others;
        EXPECT_EQ(FolderContent(), QStringList{FileName}) << others;
        EXPECT_EQ(program.desktop.documents, QStringList()) << others;
        EXPECT_TRUE(Tip().contains(u"다른 프로그램이 열고 있거나"_q)) << others;
    }
    program.desktop.Expect(StandsBox(), AnswerYes);
    Click();
    EXPECT_EQ(program.desktop.documents, QStringList{File()});
}
#endif

TEST_F(Export, AFolderUnderTheNameOfTheFileEndsItWithoutAWord)
{
    ASSERT_TRUE(QDir().mkpath(File()));
    Click();
    EXPECT_EQ(program.desktop.documents, QStringList());
    EXPECT_TRUE(QDir(File()).exists());
}

TEST_F(Export, DoesNothingWhileBusyOrWithoutRows)
{
    program.session.Busy = true;
    Click();
    program.session.Busy = false;
    SetPeriod(u"2012-01-01"_q, u"2012-01-01"_q);
    Search();
    Click();
    EXPECT_EQ(FolderContent(), QStringList());
}

} // namespace

} // namespace tsms::test
