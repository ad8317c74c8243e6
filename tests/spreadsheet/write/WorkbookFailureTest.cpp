#include "spreadsheet/write/WriteWorkbook.h"

#include "runtime/RuntimeError.h"
#include "spreadsheet/write/CompoundFile.h"
#include "spreadsheet/write/TableSheet.h"
#include "support/FileSizeLimit.h"
#include "support/Words.h"
#include "support/workbooks/FreeXlReader.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <unistd.h>

using namespace tsms;
using namespace tsms::test;

namespace {

/// A folder in which nobody may make files while this lives, not even an administrator.
class ReadOnlyFolder
{
public:
    explicit ReadOnlyFolder(const QString& path) : path_(path), user_(geteuid())
    {
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        if (user_ == 0) {
            EXPECT_EQ(seteuid(65534), 0);
        }
    }
    ~ReadOnlyFolder()
    {
        if (user_ == 0) {
            EXPECT_EQ(seteuid(0), 0);
        }
        QFile::setPermissions(path_, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    }

private:
    QString path_;
    uid_t user_;
};

/// Writes over a file that stands already, and looks at what is left in the folder.
class FailingWorkbook : public ::testing::Test
{
protected:
    void SetUp() override
    {
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("the former one");
    }

    /// The number of the error, 0 without one.
    static long Write(const QString& to, const Sheet& sheet)
    {
        try {
            WriteWorkbook(to, sheet);
        } catch (const RuntimeError& error) {
            EXPECT_FALSE(error.Description.isEmpty());
            return error.Number;
        }
        return 0;
    }

    QStringList Content() const
    {
        return QDir(folder.path()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot);
    }

    void ExpectThatNothingChanged() const
    {
        EXPECT_EQ(Content(), QStringList{u"내역.xls"_q});
        QFile file(path);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), "the former one");
    }

    QTemporaryDir folder;
    QString path = folder.filePath(u"내역.xls"_q);
    Sheet sheet = TableSheet({{u"이름"_q}, {u"가"_q}});
};

TEST_F(FailingWorkbook, AWholeOneTakesThePlaceOfTheFormer)
{
    EXPECT_EQ(Write(path, sheet), 0);
    EXPECT_EQ(Content(), QStringList{u"내역.xls"_q});
    EXPECT_EQ(ReadWithFreeXl(path).rows.size(), 2);
}

TEST_F(FailingWorkbook, AFolderThatIsNotThereIsPathNotFound)
{
    EXPECT_EQ(Write(folder.filePath(u"없다/내역.xls"_q), sheet), PathNotFound);
    EXPECT_EQ(Write(path + u"/내역.xls"_q, sheet), PathNotFound); // below a file
    ExpectThatNothingChanged();
}

TEST_F(FailingWorkbook, AFolderUnderTheNameIsAnAccessError)
{
    const QString name = folder.filePath(u"폴더.xls"_q);
    ASSERT_TRUE(QDir().mkpath(name + u"/안"_q));
    EXPECT_EQ(Write(name, sheet), PathFileAccess);
    EXPECT_TRUE(QDir(name).exists(u"안"_q));
    EXPECT_EQ(Content(), (QStringList{u"내역.xls"_q, u"폴더.xls"_q}));
}

TEST_F(FailingWorkbook, AFolderThatTakesNoFilesIsAnAccessError)
{
    {
        const ReadOnlyFolder readOnly(folder.path());
        EXPECT_EQ(Write(path, sheet), PathFileAccess);
        EXPECT_EQ(Write(folder.filePath(u"새것.xls"_q), sheet), PathFileAccess);
    }
    ExpectThatNothingChanged();
}

TEST_F(FailingWorkbook, AnEmptyOrTooLongNameIsAnAccessError)
{
    EXPECT_EQ(Write(QString(), sheet), PathFileAccess);
    EXPECT_EQ(Write(folder.filePath(QString(300, u'x')), sheet), PathFileAccess);
    ExpectThatNothingChanged();
}

/// The disk fills up at every stage of the file: at its head, in the texts, in the cells, in its tables.
TEST_F(FailingWorkbook, AFullDiskIsToldWhereverItFillsUp)
{
    QStringList texts;
    for (int i = 0; i < 20000; ++i)
        texts += u"%1번 글"_q.arg(i);
    const Sheet large = ColumnSheet(texts);
    const QString measured = folder.filePath(u"large.xls"_q);
    WriteWorkbook(measured, large);
    const qint64 size = QFile(measured).size();
    ASSERT_TRUE(QFile::remove(measured));
    ASSERT_GT(size, 500000);

    for (const qint64 limit : {qint64(0), qint64(100), qint64(512), size / 8, size / 4, size / 2,
                               size - 20000, size - 600, size - 1}) {
        {
            const FileSizeLimit full(limit);
            EXPECT_EQ(Write(path, large), DiskFull) << limit;
        }
        ExpectThatNothingChanged();
    }
    const FileSizeLimit enough(size);
    EXPECT_EQ(Write(path, large), 0);
}

TEST_F(FailingWorkbook, WhatTheFormatCannotHoldIsRefusedBeforeACellIsRead)
{
    bool asked = false;
    Sheet tall;
    tall.columns.resize(1);
    tall.rows = 65537;
    tall.text = [&](int, int) -> QStringView {
        asked = true;
        return u"x";
    };
    EXPECT_EQ(Write(path, tall), InvalidProcedureCall);
    Sheet wide = tall;
    wide.rows = 1;
    wide.columns.resize(257);
    EXPECT_EQ(Write(path, wide), InvalidProcedureCall);
    EXPECT_FALSE(asked);
    ExpectThatNothingChanged();
}

TEST_F(FailingWorkbook, ANameThatNoSheetCanHaveIsRefused)
{
    for (const QString& name :
         {u""_q, QString(32, u'x'), u"a[b"_q, u"a]b"_q, u"a:b"_q, u"a*b"_q, u"a?b"_q, u"a/b"_q, u"a\\b"_q}) {
        sheet.name = name;
        EXPECT_EQ(Write(path, sheet), InvalidProcedureCall) << name.toStdString();
    }
    ExpectThatNothingChanged();
    sheet.name = QString(31, u'x');
    EXPECT_EQ(Write(path, sheet), 0);
}

TEST_F(FailingWorkbook, AnErrorOfACellGoesToTheCaller)
{
    sheet.text = [](int, int) -> QStringView { throw RuntimeError(TypeMismatch); };
    EXPECT_EQ(Write(path, sheet), TypeMismatch);
    ExpectThatNothingChanged();
}

TEST_F(FailingWorkbook, AStreamBeyondTwoGigabytesIsRefused)
{
    constexpr unsigned char anyone[16] = {};
    {
        CompoundFile file(path, "Workbook", anyone);
        file.Write("x", 1);
        try {
            file.Write(nullptr, CompoundFile::MaxStream);
            ADD_FAILURE() << "it was taken";
        } catch (const RuntimeError& error) {
            EXPECT_EQ(error.Number, Overflow);
        }
    }
    ExpectThatNothingChanged();
}

TEST_F(FailingWorkbook, AFileThatIsGivenUpLeavesNothing)
{
    constexpr unsigned char anyone[16] = {};
    {
        CompoundFile file(path, "Workbook", anyone);
        const QByteArray bytes(100000, 'x');
        file.Write(bytes.constData(), bytes.size());
    }
    ExpectThatNothingChanged();
}

} // namespace
