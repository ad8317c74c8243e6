#include "spreadsheet/read/ReadCompoundFile.h"

#include "runtime/RuntimeError.h"
#include "spreadsheet/Compound.h"
#include "spreadsheet/read/Demand.h"

#include <QIODevice>
#include <QString>
#include <QtEndian>

#include <algorithm>
#include <utility>
#include <vector>

namespace tsms {

namespace {

constexpr qint64 MostFileBytes = 2047LL << 20;
constexpr std::size_t MostEntries = 1 << 16;

template <class Number> Number NumberAt(const QByteArray& bytes, qint64 at)
{
    return qFromLittleEndian<Number>(bytes.constData() + at);
}

quint32 U32(const QByteArray& bytes, qint64 at)
{
    return NumberAt<quint32>(bytes, at);
}

qint64 PartsFor(qint64 bytes, qint64 partBytes)
{
    return (bytes + partBytes - 1) / partBytes;
}

/// Sectors, or mini sectors, and their links into chains. Each is handed out once and never again, so that
/// every walk has an end and all walks together take no longer than the file is large.
class SectorChains
{
public:
    explicit SectorChains(qint64 sectors) : taken_(static_cast<std::size_t>(sectors)) {}

    void AddLinks(const QByteArray& bytes)
    {
        for (qsizetype at = 0; at < bytes.size(); at += 4)
            next_.push_back(U32(bytes, at));
    }

    quint32 Take(quint32 sector)
    {
        Demand(sector < taken_.size() && !taken_[sector]);
        taken_[sector] = true;
        return sector;
    }

    std::vector<quint32> Chain(quint32 start)
    {
        std::vector<quint32> chain;
        for (quint32 sector = start; sector != Compound::EndOfChain; sector = Next(sector))
            chain.push_back(Take(sector));
        return chain;
    }

    /// As far as it is used; it may be longer.
    std::vector<quint32> Beginning(quint32 start, qint64 sectors)
    {
        std::vector<quint32> chain = AtMost(start, sectors);
        Demand(static_cast<qint64>(chain.size()) == sectors);
        return chain;
    }

    /// The same, but it may also end before.
    std::vector<quint32> AtMost(quint32 start, qint64 sectors)
    {
        std::vector<quint32> chain;
        quint32 sector = start;
        for (qint64 i = 0; i < sectors; ++i) {
            if (i > 0)
                sector = Next(sector);
            if (sector > Compound::LastSector)
                break;
            chain.push_back(Take(sector));
        }
        return chain;
    }

private:
    quint32 Next(quint32 sector) const
    {
        Demand(sector < next_.size());
        return next_[sector];
    }

    std::vector<bool> taken_;
    std::vector<quint32> next_;
};

/// An entry of the directory.
struct Entry
{
    QString name;
    quint8 type = 0;
    quint32 left = Compound::NoEntry;
    quint32 right = Compound::NoEntry;
    quint32 child = Compound::NoEntry;
    quint32 start = Compound::EndOfChain;
    qint64 size = 0;
    std::vector<quint32> chain; // sectors or mini sectors, once they are known
};

class CompoundReader
{
public:
    explicit CompoundReader(QIODevice& file)
        : file_(file),
          header_(Bytes(0, Compound::HeaderBytes)),
          sectorBytes_(SectorBytes()),
          sectors_(Sectors()),
          miniSectors_(0)
    {
        ReadLinks();
        ReadDirectory();
        ReadMiniLinks();
        ReadTree();
    }

    /// Null where the root has no such stream.
    const Entry* Find(QStringView name) const
    {
        for (const quint32 index : rootStreams_)
            if (name.compare(entries_[index].name, Qt::CaseInsensitive) == 0)
                return &entries_[index];
        return nullptr;
    }

    QByteArray Content(const Entry& stream)
    {
        Demand(stream.size <= MostStreamBytes);
        return IsMini(stream) ? MiniContent(stream) : LargeContent(stream);
    }

private:
    /// A piece of the file, all of it or nothing.
    void Read(qint64 at, char* bytes, qint64 size)
    {
        Demand(file_.seek(at) && file_.read(bytes, size) == size);
    }
    QByteArray Bytes(qint64 at, qint64 size)
    {
        QByteArray bytes(size, Qt::Uninitialized);
        Read(at, bytes.data(), size);
        return bytes;
    }

    qint64 PlaceOf(quint32 sector) const { return (qint64{sector} + 1) * sectorBytes_; }
    QByteArray Sector(quint32 sector) { return Bytes(PlaceOf(sector), sectorBytes_); }
    bool IsMini(const Entry& stream) const { return stream.size < U32(header_, 56); }
    bool HasLongSizes() const { return sectorBytes_ > 512; }

    qint64 SectorBytes() const
    {
        Demand(header_.startsWith(Compound::Signature));
        const auto version = NumberAt<quint16>(header_, 26);
        const auto shift = NumberAt<quint16>(header_, 30);
        Demand((version == 3 && shift == 9) || (version == 4 && shift == 12));
        Demand(NumberAt<quint16>(header_, 32) == 6); // mini sectors of 64 bytes
        return 1 << shift;
    }

    /// How many begin in the file. Some writers leave out the rest of the last one.
    qint64 Sectors() const
    {
        const qint64 size = file_.size();
        Demand(size > sectorBytes_ && size <= MostFileBytes);
        return PartsFor(size, sectorBytes_) - 1;
    }

    void ReadLinks()
    {
        quint32 left = U32(header_, 44);
        for (quint32 i = 0; i < Compound::FatSectorsInHeader && left > 0; ++i, --left)
            ReadLinkSector(U32(header_, 76 + 4 * i));
        const qint64 last = sectorBytes_ - 4; // leads to the next sector of such numbers
        for (quint32 sector = U32(header_, 68); left > 0;) {
            const QByteArray numbers = Sector(sectors_.Take(sector));
            for (qint64 at = 0; at < last && left > 0; at += 4, --left)
                ReadLinkSector(U32(numbers, at));
            sector = U32(numbers, last);
        }
    }

    void ReadLinkSector(quint32 sector) { sectors_.AddLinks(Sector(sectors_.Take(sector))); }

    void ReadDirectory()
    {
        for (const quint32 sector : sectors_.Chain(U32(header_, 48))) {
            const QByteArray bytes = Sector(sector);
            for (qint64 at = 0; at < sectorBytes_; at += Compound::EntryBytes)
                entries_.push_back(ReadEntry(bytes.sliced(at, Compound::EntryBytes)));
            Demand(entries_.size() <= MostEntries);
        }
        Demand(!entries_.empty() && entries_[0].type == Compound::RootEntry);
    }

    Entry ReadEntry(const QByteArray& bytes) const
    {
        Entry entry;
        const int nameBytes = NumberAt<quint16>(bytes, 64); // with the NUL at its end
        for (int at = 0; at + 2 < nameBytes && at < 64; at += 2)
            entry.name += QChar(NumberAt<char16_t>(bytes, at));
        entry.type = NumberAt<quint8>(bytes, 66);
        entry.left = U32(bytes, 68);
        entry.right = U32(bytes, 72);
        entry.child = U32(bytes, 76);
        entry.start = U32(bytes, 116);
        entry.size = HasLongSizes() ? NumberAt<qint64>(bytes, 120) : U32(bytes, 120);
        return entry;
    }

    void ReadMiniLinks()
    {
        Entry& root = entries_[0];
        TakeChain(root, sectors_, sectorBytes_);
        const qint64 miniSectors = PartsFor(root.size, Compound::MiniSectorBytes);
        miniSectors_ = SectorChains(miniSectors);
        // The chain decides: writers miscount its sectors in the header.
        for (const quint32 sector :
             sectors_.AtMost(U32(header_, 60), PartsFor(4 * miniSectors, sectorBytes_)))
            miniSectors_.AddLinks(Sector(sector));
    }

    static void TakeChain(Entry& entry, SectorChains& sectors, qint64 partBytes)
    {
        Demand(entry.size >= 0 && entry.size <= MostFileBytes);
        entry.chain = sectors.Beginning(entry.start, PartsFor(entry.size, partBytes));
    }

    /// Visits every entry that hangs on the root, in storages too, and takes the chains of all streams.
    void ReadTree()
    {
        std::vector<bool> seen(entries_.size());
        std::vector<std::pair<quint32, bool>> open{
            {entries_[0].child, true}}; // which, and whether in the root
        while (!open.empty()) {
            const auto [index, inRoot] = open.back();
            open.pop_back();
            if (index == Compound::NoEntry)
                continue;
            Demand(index < entries_.size() && !seen[index]);
            seen[index] = true;
            Entry& entry = entries_[index];
            open.insert(open.end(), {{entry.left, inRoot}, {entry.right, inRoot}});
            if (entry.type == Compound::StorageEntry)
                open.emplace_back(entry.child, false);
            if (entry.type == Compound::StreamEntry)
                ReadStreamEntry(index, inRoot);
        }
    }

    void ReadStreamEntry(quint32 index, bool inRoot)
    {
        Entry& stream = entries_[index];
        if (IsMini(stream))
            TakeChain(stream, miniSectors_, Compound::MiniSectorBytes);
        else
            TakeChain(stream, sectors_, sectorBytes_);
        if (inRoot)
            rootStreams_.push_back(index);
    }

    /// Sectors that follow one another are read in one go.
    QByteArray LargeContent(const Entry& stream)
    {
        const std::vector<quint32>& chain = stream.chain;
        QByteArray content(stream.size, Qt::Uninitialized);
        qint64 done = 0;
        for (std::size_t first = 0; first < chain.size();) {
            std::size_t end = first + 1;
            while (end < chain.size() && chain[end] == chain[end - 1] + 1)
                ++end;
            const qint64 run = static_cast<qint64>(end - first) * sectorBytes_;
            const qint64 size = std::min(run, stream.size - done);
            Read(PlaceOf(chain[first]), content.data() + done, size);
            done += size;
            first = end;
        }
        return content;
    }

    /// Mini sectors lie in the stream of the root.
    QByteArray MiniContent(const Entry& stream)
    {
        QByteArray content;
        for (const quint32 sector : stream.chain) {
            const qint64 at = qint64{sector} * Compound::MiniSectorBytes;
            const qint64 place =
                PlaceOf(entries_[0].chain[static_cast<std::size_t>(at / sectorBytes_)]) + at % sectorBytes_;
            content +=
                Bytes(place, std::min<qint64>(Compound::MiniSectorBytes, stream.size - content.size()));
        }
        return content;
    }

    QIODevice& file_;
    QByteArray header_;
    qint64 sectorBytes_;
    SectorChains sectors_;
    SectorChains miniSectors_;
    std::vector<Entry> entries_;
    std::vector<quint32> rootStreams_;
};

} // namespace

QByteArray ReadCompoundStream(QIODevice& file, std::initializer_list<QStringView> names)
{
    CompoundReader reader(file);
    for (const QStringView name : names)
        if (const Entry* stream = reader.Find(name))
            return reader.Content(*stream);
    throw RuntimeError(InvalidFileFormat);
}

} // namespace tsms
