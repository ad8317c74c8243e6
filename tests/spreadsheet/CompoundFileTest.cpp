#include "spreadsheet/write/CompoundFile.h"

#include "spreadsheet/read/ReadCompoundFile.h"
#include "support/Words.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>
#include <QtEndian>

#include <gtest/gtest.h>

#include <vector>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr quint32 EndOfChain = 0xFFFFFFFE;
constexpr quint32 Free = 0xFFFFFFFF;
constexpr quint32 NoStream = 0xFFFFFFFF;
constexpr unsigned char ClassOfBook[16] = {0x20, 8, 2, 0, 0, 0, 0, 0, 0xC0, 0, 0, 0, 0, 0, 0, 0x46};

QByteArray Content(qsizetype size)
{
    QByteArray content(size, Qt::Uninitialized);
    for (qsizetype i = 0; i < size; ++i)
        content[i] = static_cast<char>(i * 7 + i / 251);
    return content;
}

/// Looks at a file number by number, as [MS-CFB] has them, and expects that each of its sectors belongs to
/// one thing and to one alone.
class Inspection
{
public:
    explicit Inspection(const QByteArray& file) : file_(file)
    {
        EXPECT_EQ(file.size() % 512, 0);
        EXPECT_EQ(file.first(8), QByteArray::fromHex("D0CF11E0A1B11AE1"));
        EXPECT_EQ(file.sliced(8, 16), QByteArray(16, '\0'));
        EXPECT_EQ(file.sliced(24, 16), QByteArray::fromHex("3E000300FEFF09000600000000000000"));
        EXPECT_EQ(U32(40), 0u); // directory sectors, which this version does not count
        EXPECT_EQ(U32(52), 0u);
        EXPECT_EQ(U32(56), 4096u);
        users_.resize(static_cast<std::size_t>(file.size() / 512 - 1));
        TakeFat();
    }

    quint32 U32(qint64 at) const { return qFromLittleEndian<quint32>(file_.constData() + at); }
    quint32 FatSectors() const { return U32(44); }
    quint32 DifatSectors() const { return U32(72); }

    /// The bytes of a chain of sectors, which no other chain may have.
    QByteArray Chain(quint32 start)
    {
        QByteArray bytes;
        for (quint32 sector = start; sector != EndOfChain; sector = links_[sector]) {
            if (!Take(sector))
                return {};
            bytes += Sector(sector);
        }
        return bytes;
    }

    void ExpectThatEverySectorIsUsed() const
    {
        for (std::size_t i = 0; i < links_.size(); ++i)
            EXPECT_EQ(links_[i] != Free, i < users_.size() && users_[i]) << i;
        for (const bool used : users_)
            EXPECT_TRUE(used);
    }

private:
    QByteArray Sector(quint32 sector) const { return file_.sliced((qint64{sector} + 1) * 512, 512); }

    bool Take(quint32 sector)
    {
        const bool isFree = sector < users_.size() && sector < links_.size() && !users_[sector];
        EXPECT_TRUE(isFree) << sector;
        if (isFree)
            users_[sector] = true;
        return isFree;
    }

    void TakeFat()
    {
        std::vector<quint32> fat;
        for (qint64 at = 76; at < 512; at += 4)
            fat.push_back(U32(at));
        std::vector<quint32> difat;
        for (quint32 sector = U32(68); sector != EndOfChain;) {
            difat.push_back(sector);
            const qint64 begin = (qint64{sector} + 1) * 512;
            for (qint64 at = begin; at < begin + 508; at += 4)
                fat.push_back(U32(at));
            sector = U32(begin + 508);
        }
        EXPECT_EQ(difat.size(), DifatSectors());
        for (std::size_t i = 0; i < fat.size(); ++i)
            EXPECT_EQ(fat[i] != Free, i < FatSectors()) << i;
        fat.resize(FatSectors());
        for (const quint32 sector : fat)
            for (qint64 at = 0; at < 512; at += 4)
                links_.push_back(U32((qint64{sector} + 1) * 512 + at));
        ExpectLinksAndTake(fat, 0xFFFFFFFD);
        ExpectLinksAndTake(difat, 0xFFFFFFFC);
    }

    void ExpectLinksAndTake(const std::vector<quint32>& sectors, quint32 sign)
    {
        for (const quint32 sector : sectors) {
            Take(sector);
            EXPECT_EQ(links_[sector], sign);
        }
    }

    QByteArray file_;
    std::vector<quint32> links_;
    std::vector<bool> users_; // of each sector, whether it has one
};

/// An entry of the directory.
struct DirectoryEntry
{
    explicit DirectoryEntry(const QByteArray& bytes) : raw(bytes)
    {
        for (int at = 0; at + 2 < qFromLittleEndian<quint16>(raw.constData() + 64); at += 2)
            name += QChar(qFromLittleEndian<char16_t>(raw.constData() + at));
    }

    int Type() const { return raw[66]; }
    int Colour() const { return raw[67]; }
    quint32 Left() const { return U32(68); }
    quint32 Right() const { return U32(72); }
    quint32 Child() const { return U32(76); }
    quint32 Start() const { return U32(116); }
    quint64 Size() const { return qFromLittleEndian<quint64>(raw.constData() + 120); }
    quint32 U32(qsizetype at) const { return qFromLittleEndian<quint32>(raw.constData() + at); }

    QByteArray raw;
    QString name;
};

class WrittenContainer : public ::testing::Test
{
protected:
    QByteArray Write(const QByteArray& content)
    {
        const QTemporaryDir folder;
        const QString path = folder.filePath(u"x.xls"_q);
        tsms::CompoundFile container(path, "Workbook", ClassOfBook);
        container.Write(content.constData(), content.size());
        container.Commit();
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return file.readAll();
    }

    static QByteArray Read(QByteArray bytes)
    {
        QBuffer file(&bytes);
        file.open(QIODevice::ReadOnly);
        return ReadCompoundStream(file, {u"Workbook"});
    }

    static std::vector<DirectoryEntry> Directory(const QByteArray& bytes)
    {
        std::vector<DirectoryEntry> entries;
        for (qsizetype at = 0; at + 128 <= bytes.size(); at += 128)
            entries.emplace_back(bytes.sliced(at, 128));
        return entries;
    }

    /// Both ways in which a stream can stand in a file.
    static QByteArray ContentOf(Inspection& file, const DirectoryEntry& root, const DirectoryEntry& stream)
    {
        const QByteArray miniStream = file.Chain(root.Start());
        const QByteArray miniFat = file.Chain(file.U32(60));
        EXPECT_EQ(miniFat.size(), file.U32(64) * 512);
        if (stream.Size() >= 4096) {
            EXPECT_EQ(root.Size(), 0u);
            EXPECT_TRUE(miniFat.isEmpty());
            return file.Chain(stream.Start());
        }
        QByteArray content;
        quint32 listed = 0;
        for (quint32 next = stream.Start(); next != EndOfChain; ++listed) {
            content += miniStream.sliced(next * 64, 64);
            next = qFromLittleEndian<quint32>(miniFat.constData() + next * 4);
        }
        EXPECT_EQ(root.Size(), listed * 64u);
        for (qsizetype at = listed * 4; at < miniFat.size(); at += 4)
            EXPECT_EQ(qFromLittleEndian<quint32>(miniFat.constData() + at), Free);
        return content;
    }

    static void ExpectASoundFile(const QByteArray& bytes, const QByteArray& content)
    {
        Inspection file(bytes);
        const std::vector<DirectoryEntry> entries = Directory(file.Chain(file.U32(48)));
        ASSERT_GE(entries.size(), 2u);
        const DirectoryEntry& stream = entries[entries[0].Child()];
        EXPECT_EQ(stream.Size(), static_cast<quint64>(content.size()));
        const QByteArray found = ContentOf(file, entries[0], stream);
        EXPECT_EQ(found.first(content.size()), content);
        EXPECT_LT(found.size() - content.size(), content.size() < 4096 ? 64 : 512);
        file.ExpectThatEverySectorIsUsed();
    }
};

class SizedContainer : public WrittenContainer, public ::testing::WithParamInterface<int>
{
};

TEST_P(SizedContainer, HasItsStreamAndAllItsSectorsInSoundChains)
{
    const QByteArray content = Content(GetParam());
    const QByteArray bytes = Write(content);
    ExpectASoundFile(bytes, content);
    EXPECT_EQ(Read(bytes), content);
}

INSTANTIATE_TEST_SUITE_P(Sizes, SizedContainer,
                         ::testing::Values(0, 1, 63, 64, 65, 511, 512, 513, 4032, 4033, 4095, 4096, 4097,
                                           4608, 64000, 65024, 100000));

/// The sectors of a stream with which a file has just that many sectors of the FAT, and not one more.
int MostSectorsWith(int fatSectors, int difatSectors)
{
    return fatSectors * 128 - fatSectors - difatSectors - 1;
}

struct Edge
{
    int fatSectors;
    int difatSectors;
};

class LinkedContainer : public WrittenContainer, public ::testing::WithParamInterface<Edge>
{
};

TEST_P(LinkedContainer, ListsTheSectorsOfItsLinksAtEveryEdge)
{
    const auto [fatSectors, difatSectors] = GetParam();
    const int most = MostSectorsWith(fatSectors, difatSectors) * 512;
    for (const int size : {most - 512, most, most + 1}) {
        const QByteArray content = Content(size);
        const QByteArray bytes = Write(content);
        ExpectASoundFile(bytes, content);
        EXPECT_EQ(Read(bytes), content);
        const Inspection file(bytes);
        EXPECT_EQ(file.FatSectors(), quint32(fatSectors + (size > most ? 1 : 0))) << size;
    }
}

// The header lists 109 sectors, each further list 127.
INSTANTIATE_TEST_SUITE_P(Edges, LinkedContainer,
                         ::testing::Values(Edge{1, 0}, Edge{2, 0}, Edge{109, 0}, Edge{110, 1}, Edge{236, 1},
                                           Edge{237, 2}));

TEST_F(WrittenContainer, HasADirectoryOfARootAndOneStream)
{
    const QByteArray bytes = Write(Content(5000));
    Inspection file(bytes);
    const std::vector<DirectoryEntry> entries = Directory(file.Chain(file.U32(48)));
    ASSERT_EQ(entries.size(), 4u);
    EXPECT_EQ(entries[0].name, u"Root Entry");
    EXPECT_EQ(entries[0].Type(), 5);
    EXPECT_EQ(entries[0].Child(), 1u);
    EXPECT_EQ(entries[0].raw.sliced(80, 16), QByteArray(reinterpret_cast<const char*>(ClassOfBook), 16));
    EXPECT_EQ(entries[1].name, u"Workbook");
    EXPECT_EQ(entries[1].Type(), 2);
    EXPECT_EQ(entries[1].Colour(), 1); // black, as the root of a tree is
    EXPECT_EQ(entries[1].Child(), NoStream);
    EXPECT_EQ(entries[1].raw.sliced(80, 36), QByteArray(36, '\0'));
    for (const std::size_t i : {0, 1}) {
        EXPECT_EQ(entries[i].Left(), NoStream);
        EXPECT_EQ(entries[i].Right(), NoStream);
    }
}

TEST_F(WrittenContainer, HasUnusedEntriesThatLeadNowhere)
{
    Inspection file(Write(Content(100)));
    const std::vector<DirectoryEntry> entries = Directory(file.Chain(file.U32(48)));
    for (std::size_t i = 2; i < entries.size(); ++i) {
        EXPECT_EQ(entries[i].raw.first(68), QByteArray(68, '\0'));
        EXPECT_EQ(entries[i].raw.sliced(68, 12), QByteArray(12, '\xFF'));
        EXPECT_EQ(entries[i].raw.sliced(80), QByteArray(48, '\0'));
    }
}

TEST_F(WrittenContainer, TakesWhatIsWrittenOverInItsPlace)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"x.xls"_q);
    tsms::CompoundFile container(path, "Workbook", ClassOfBook);
    container.Write("0123456789", 10);
    container.WriteOver(3, "abc", 3);
    container.Write("end", 3);
    container.Commit();
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(ReadCompoundStream(file, {u"Workbook"}), "012abc6789end");
}

} // namespace
