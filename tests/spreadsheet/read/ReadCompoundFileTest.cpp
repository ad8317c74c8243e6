#include "spreadsheet/read/ReadCompoundFile.h"
#include "runtime/RuntimeError.h"
#include "support/spreadsheet/CompoundMaker.h"
#include "support/Words.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QtEndian>

using namespace tsms;
using namespace tsms::test;

namespace {

QByteArray Content(qsizetype size)
{
    QByteArray content;
    for (qsizetype i = 0; i < size; ++i)
        content += static_cast<char>(i * 7 + i / 251);
    return content;
}

QByteArray Read(QByteArray bytes)
{
    QBuffer file(&bytes);
    file.open(QIODevice::ReadOnly);
    return ReadCompoundStream(file, {u"Workbook", u"Book"});
}

long ErrorOfFile(const QByteArray& bytes)
{
    try {
        Read(bytes);
    } catch (const RuntimeError& error) {
        return error.Number;
    }
    return NoError;
}

/// With one number put in place of another.
QByteArray Patched(QByteArray bytes, qsizetype at, quint32 number)
{
    qToLittleEndian(number, bytes.data() + at);
    return bytes;
}

class CompoundFile : public ::testing::Test
{
protected:
    CompoundMaker maker;
};

TEST_F(CompoundFile, StreamsOfAllSizesComeBackWhole)
{
    for (const int sector : {512, 4096})
        for (const qsizetype size : {1, 63, 64, 65, 511, 512, 513, 4095, 4096, 4097, 100000}) {
            maker.sectorBytes = sector;
            maker.streams = {
                {u"Other"_q, Content(300)}, {u"Workbook"_q, Content(size)}, {u"Last"_q, Content(5000)}};
            EXPECT_EQ(Read(maker.Make()), Content(size)) << sector << ", " << size;
        }
}

TEST_F(CompoundFile, AnEmptyStreamIsRead)
{
    maker.streams = {{u"Workbook"_q, {}}};
    EXPECT_EQ(Read(maker.Make()), QByteArray());
}

TEST_F(CompoundFile, SectorsMayLieInAnyOrder)
{
    maker.backwards = true;
    maker.streams = {{u"Workbook"_q, Content(50000)}};
    EXPECT_EQ(Read(maker.Make()), Content(50000));
}

TEST_F(CompoundFile, ALargeFileHasMoreLinksThanItsHeaderLists)
{
    maker.streams = {{u"Workbook"_q, Content(20 << 20)}};
    EXPECT_EQ(Read(maker.Make()), Content(20 << 20));
}

constexpr qsizetype MiniLinksStart = 60; // in the header
constexpr qsizetype MiniLinksCount = 64;

TEST_F(CompoundFile, TheNumberOfSectorsOfTheMiniLinksMayBeWrong)
{
    // More than one sector of links, and as much in mini sectors again as one of them holds.
    for (int i = 0; i < 5; ++i)
        maker.streams += {u"Small%1"_q.arg(i), Content(4000)};
    maker.streams += {u"Workbook"_q, Content(4000)};
    const QByteArray file = maker.Make();
    ASSERT_EQ(qFromLittleEndian<quint32>(file.constData() + MiniLinksCount), 3u);
    for (const quint32 told : {0u, 1u, 2u, 4u, 100u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(Read(Patched(file, MiniLinksCount, told)), Content(4000)) << told;
}

TEST_F(CompoundFile, TheMiniLinksMayEndWithAnySignOrGoOn)
{
    maker.streams = {{u"Workbook"_q, Content(300)}};
    const QByteArray file = maker.Make();
    const auto links = qFromLittleEndian<quint32>(file.constData() + MiniLinksStart);
    for (const quint32 next : {0xFFFFFFFFu, 0xFFFFFFFDu, 0xFFFFFFFBu, 0x7FFFFFFFu, links})
        EXPECT_EQ(Read(Patched(file, maker.firstLinkAt + 4 * links, next)), Content(300)) << next;
}

TEST_F(CompoundFile, WithoutMiniSectorsTheirLinksMayBeginAnywhere)
{
    maker.streams = {{u"Workbook"_q, Content(5000)}};
    for (const quint32 start : {0u, 1u, 0x7FFFFFFFu, 0xFFFFFFFFu})
        EXPECT_EQ(Read(Patched(maker.Make(), MiniLinksStart, start)), Content(5000)) << start;
}

TEST_F(CompoundFile, MiniLinksThatEndTooEarlyOrRunInACircleAreRefused)
{
    maker.streams = {
        {u"Small"_q, Content(4000)}, {u"Other"_q, Content(4000)}, {u"Workbook"_q, Content(4000)}};
    const QByteArray file = maker.Make();
    const auto links = qFromLittleEndian<quint32>(file.constData() + MiniLinksStart);
    for (const quint32 next : {0xFFFFFFFEu, 0x7FFFFFFFu, links, 0u})
        EXPECT_EQ(ErrorOfFile(Patched(file, maker.firstLinkAt + 4 * links, next)), InvalidFileFormat) << next;
}

TEST_F(CompoundFile, TheStreamMayStandAnywhereInTheDirectory)
{
    maker.spareEntries = 50;
    maker.streams = {{u"Workbook"_q, Content(5000)}};
    EXPECT_EQ(Read(maker.Make()), Content(5000));
}

TEST_F(CompoundFile, TheFirstNameIsPreferredWhateverTheOrderOfTheEntries)
{
    maker.streams = {{u"Book"_q, Content(10)}, {u"WORKBOOK"_q, Content(20)}};
    EXPECT_EQ(Read(maker.Make()), Content(20));
    maker.streams = {{u"Book"_q, Content(10)}};
    EXPECT_EQ(Read(maker.Make()), Content(10));
}

TEST_F(CompoundFile, AWorkbookWithinAnotherDocumentIsNone)
{
    maker.streams = {{u"WordDocument"_q, Content(5000)}, {u"Workbook"_q, Content(5000), true}};
    EXPECT_EQ(ErrorOfFile(maker.Make()), InvalidFileFormat);
}

TEST_F(CompoundFile, FilesOfOtherKindsAreRefused)
{
    for (const QByteArray& bytes :
         {QByteArray(), QByteArray("x"), QByteArray("PK\x03\x04") + Content(5000),
          QByteArray("<html>") + Content(5000), QByteArray(100000, '\0'), Content(1000)})
        EXPECT_EQ(ErrorOfFile(bytes), InvalidFileFormat);
}

TEST_F(CompoundFile, AFileThatIsCutAnywhereIsRefused)
{
    maker.streams = {{u"Small"_q, Content(300)}, {u"Workbook"_q, Content(5000)}, {u"Last"_q, Content(6000)}};
    const QByteArray whole = maker.Make();
    for (qsizetype size = 0; size < whole.size(); ++size)
        ASSERT_EQ(ErrorOfFile(whole.first(size)), InvalidFileFormat) << size;
}

TEST_F(CompoundFile, TheRestOfTheLastSectorMayBeMissing)
{
    // A file whose stream comes last: its directory and its links lie ahead.
    maker.streams = {{u"Workbook"_q, Content(5000)}};
    QByteArray file = maker.Make();
    const qsizetype links = maker.firstLinkAt;
    const qsizetype end = file.size();
    QByteArray moved = file + file.mid(512, 5120).first(5000);
    const auto first = static_cast<quint32>(end / 512 - 1);
    for (quint32 i = 0; i < 10; ++i)
        moved = Patched(moved, links + 4 * (first + i), i < 9 ? first + i + 1 : 0xFFFFFFFE);
    moved = Patched(moved, maker.directoryAt + 2 * 128 + 116, first);
    EXPECT_EQ(Read(moved), Content(5000));
    EXPECT_EQ(ErrorOfFile(moved.chopped(1)), InvalidFileFormat);
}

TEST_F(CompoundFile, BytesBehindTheLastSectorDoNotMatter)
{
    maker.streams = {{u"Workbook"_q, Content(5000)}};
    EXPECT_EQ(Read(maker.Make() + Content(777)), Content(5000));
}

TEST_F(CompoundFile, AChainThatRunsInACircleIsRefused)
{
    maker.streams = {{u"Workbook"_q, Content(50000)}};
    const QByteArray file = maker.Make();
    for (const quint32 to : {0u, 3u, 5u})
        EXPECT_EQ(ErrorOfFile(Patched(file, maker.firstLinkAt + 4 * 5, to)), InvalidFileFormat);
}

TEST_F(CompoundFile, AChainThatEndsEarlyOrLeavesTheFileIsRefused)
{
    maker.streams = {{u"Workbook"_q, Content(50000)}};
    const QByteArray file = maker.Make();
    for (const quint32 to : {0xFFFFFFFEu, 0xFFFFFFFFu, 0xFFFFFFFDu, 0x7FFFFFFFu, 100000u})
        EXPECT_EQ(ErrorOfFile(Patched(file, maker.firstLinkAt + 4 * 5, to)), InvalidFileFormat);
}

TEST_F(CompoundFile, TwoStreamsThatShareASectorAreRefused)
{
    maker.streams = {{u"Workbook"_q, Content(5120)}, {u"Other"_q, Content(5120)}};
    const QByteArray file = maker.Make();
    EXPECT_EQ(ErrorOfFile(Patched(file, maker.directoryAt + 3 * 128 + 116, 2)), InvalidFileFormat);
}

TEST_F(CompoundFile, ACircleInTheDirectoryIsRefused)
{
    maker.streams = {{u"Workbook"_q, Content(5000)}, {u"Other"_q, Content(5000)}};
    const QByteArray file = maker.Make();
    for (const int link : {68, 72})
        for (const quint32 to : {1u, 2u, 3u, 100u})
            EXPECT_EQ(ErrorOfFile(Patched(file, maker.directoryAt + 3 * 128 + link, to)), InvalidFileFormat);
    EXPECT_EQ(ErrorOfFile(Patched(file, maker.directoryAt + 76, 0)), InvalidFileFormat);
}

TEST_F(CompoundFile, ACircleInTheChainOfTheDirectoryOrOfTheLinksIsRefused)
{
    maker.spareEntries = 50;
    maker.streams = {{u"Workbook"_q, Content(20 << 20)}};
    const QByteArray file = maker.Make();
    const auto directory = static_cast<quint32>(maker.directoryAt / 512 - 1);
    EXPECT_EQ(ErrorOfFile(Patched(file, maker.firstLinkAt + 4 * (directory + 1), directory)),
              InvalidFileFormat);
    const auto list = qFromLittleEndian<quint32>(file.constData() + 68);
    EXPECT_EQ(ErrorOfFile(Patched(file, (list + 2) * 512 - 4, list)), InvalidFileFormat);
    EXPECT_EQ(ErrorOfFile(Patched(file, 80, qFromLittleEndian<quint32>(file.constData() + 76))),
              InvalidFileFormat);
}

TEST_F(CompoundFile, AbsurdNumbersAreRefused)
{
    maker.streams = {{u"Small"_q, Content(300)}, {u"Workbook"_q, Content(5000)}};
    const QByteArray file = maker.Make();
    const qsizetype entry = maker.directoryAt + 3 * 128;
    for (const qsizetype at : {qsizetype(44), qsizetype(48), qsizetype(60), qsizetype(76), entry + 116,
                               entry + 120, maker.directoryAt + 116, maker.directoryAt + 120})
        for (const quint32 number : {0xFFFFFFFFu, 0x7FFFFFFFu, 0x40000000u, 100000u})
            EXPECT_EQ(ErrorOfFile(Patched(file, at, number)), InvalidFileFormat) << at << ", " << number;
}

TEST_F(CompoundFile, AStreamBeyondAllMeasureIsRefused)
{
    maker.streams = {{u"Workbook"_q, QByteArray(MostStreamBytes + 1, 'x')}};
    EXPECT_EQ(ErrorOfFile(maker.Make()), InvalidFileFormat);
}

TEST_F(CompoundFile, AFileThatCannotBeReadIsRefused)
{
    class Unreadable final : public QBuffer
    {
        qint64 readData(char*, qint64) override { return -1; }
    } file;
    maker.streams = {{u"Workbook"_q, Content(5000)}};
    file.setData(maker.Make());
    file.open(QIODevice::ReadOnly);
    EXPECT_THROW(ReadCompoundStream(file, {u"Workbook"}), RuntimeError);
}

} // namespace
