#include "addressbook/SheetOperations.h"
#include "runtime/RuntimeError.h"
#include "support/FixedClock.h"
#include "support/spreadsheet/WorkbookMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

using namespace tsms;
using namespace tsms::test;

namespace {

class Operations : public ::testing::Test
{
protected:
    QString Path(const QString& name) const { return folder.filePath(name); }
    void WriteFile(const QString& name, const QByteArray& content) const
    {
        QFile file(Path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    QByteArray ReadFile(const QString& name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    Boolean List(const QString& name)
    {
        return operations.GetSheetList(Path(name), names, count, Path(u"log"_q), true);
    }

    QTemporaryDir folder;
    FixedClock clock;
    SheetOperations operations{clock, 3};
    SheetNames names;
    std::int16_t count = 99;
};

TEST_F(Operations, AnArrayWithoutASizeGetsNoNamesAndTheCountIsRight)
{
    WriteFile(u"a.xls"_q, WorkbookOf({}));
    EXPECT_EQ(List(u"a.xls"_q), Boolean::True);
    EXPECT_EQ(count, 3);
    EXPECT_EQ(names.Size(), 0);
    EXPECT_THROW(names.At(0), RuntimeError);
}

TEST_F(Operations, AnArrayGetsAsManyNamesAsItHasRoomFor)
{
    WriteFile(u"a.xls"_q, WorkbookOf({}));
    names.Resize(2);
    List(u"a.xls"_q);
    EXPECT_EQ(names.At(0), u"회원"_q);
    EXPECT_EQ(names.At(1), u"Sheet2"_q);
    try {
        names.At(2);
        FAIL();
    } catch (const RuntimeError& error) {
        EXPECT_EQ(error.Number, SubscriptOutOfRange);
    }
}

TEST_F(Operations, ASheetIsReadByItsName)
{
    WriteFile(u"a.xls"_q, WorkbookOf({{u"홍길동"_q, u"010"_q, u"셋"_q}}));
    List(u"a.xls"_q);
    const auto cells = operations.ImportSheet(u"회원"_q);
    ASSERT_NE(cells, nullptr);
    EXPECT_EQ(cells->Text(3, 1), u"셋"_q);
    EXPECT_EQ(operations.ImportSheet(u"Sheet2"_q), nullptr);
    EXPECT_EQ(operations.ImportSheet(u""_q), nullptr);
}

TEST_F(Operations, WhatIsNoWorkbookListsNothing)
{
    WriteFile(u"text.xls"_q, "홍길동,010");
    WriteFile(u"empty.xls"_q, {});
    QDir(folder.path()).mkdir(u"folder.xls"_q);
    for (const QString& name : {u"text.xls"_q, u"empty.xls"_q, u"folder.xls"_q, u"missing.xls"_q}) {
        EXPECT_EQ(List(name), Boolean::False);
        EXPECT_EQ(count, 0);
        EXPECT_EQ(operations.ImportSheet(QString()), nullptr);
    }
}

TEST_F(Operations, AnotherFileTakesThePlaceOfTheFirst)
{
    WriteFile(u"a.xls"_q, WorkbookOf({{u"하나"_q}}));
    WriteFile(u"b.xls"_q, WorkbookOf({{u"둘"_q}}));
    List(u"a.xls"_q);
    List(u"b.xls"_q);
    EXPECT_EQ(operations.ImportSheet(u"회원"_q)->Text(1, 1), u"둘"_q);
    List(u"missing.xls"_q);
    EXPECT_EQ(operations.ImportSheet(u"회원"_q), nullptr);
}

TEST_F(Operations, TheLogTellsTheTimeTheFileAndTheSheets)
{
    WriteFile(u"a.xls"_q, WorkbookOf({}));
    List(u"a.xls"_q);
    EXPECT_EQ(QString::fromUtf8(ReadFile(u"log"_q)),
              u"2012-05-30 14:07:09 "_q + Path(u"a.xls"_q) + u" (3) 회원, Sheet2, Sheet3\r\n"_q);
    List(u"missing.xls"_q);
    EXPECT_EQ(QString::fromUtf8(ReadFile(u"log"_q)),
              u"2012-05-30 14:07:09 "_q + Path(u"missing.xls"_q) + u" (0) 시트를 읽을 수 없습니다.\r\n"_q);
}

TEST_F(Operations, ALogIsReplacedOrGoesOn)
{
    WriteFile(u"a.xls"_q, WorkbookOf({}));
    for (const bool replace : {true, false, false})
        operations.GetSheetList(Path(u"a.xls"_q), names, count, Path(u"log"_q), replace);
    EXPECT_EQ(ReadFile(u"log"_q).count('\n'), 3);
    List(u"a.xls"_q);
    EXPECT_EQ(ReadFile(u"log"_q).count('\n'), 1);
}

TEST_F(Operations, ALogThatCannotBeWrittenIsSkipped)
{
    WriteFile(u"a.xls"_q, WorkbookOf({}));
    QDir(folder.path()).mkdir(u"log"_q);
    EXPECT_EQ(List(u"a.xls"_q), Boolean::True);
    EXPECT_EQ(operations.GetSheetList(Path(u"a.xls"_q), names, count, Path(u"no/such/log"_q), true),
              Boolean::True);
    EXPECT_EQ(count, 3);
}

} // namespace
