#include "support/spreadsheet/CompoundMaker.h"

#include "support/spreadsheet/LittleEndian.h"

#include <algorithm>
#include <numeric>

namespace tsms::test {

namespace {

constexpr quint32 LinksSector = 0xFFFFFFFD;
constexpr quint32 ListSector = 0xFFFFFFFC;
constexpr quint32 EndOfChain = 0xFFFFFFFE;
constexpr quint32 Free = 0xFFFFFFFF;
constexpr qsizetype MiniCutoff = 4096;
constexpr qsizetype MiniSector = 64;
constexpr int LinkSectorsInHeader = 109;

QByteArray Numbers(const std::vector<quint32>& numbers, qsizetype bytes)
{
    LittleEndian out;
    for (const quint32 number : numbers)
        out.U32(number);
    return out.Fill(bytes - out.bytes.size(), '\xFF').bytes;
}

qsizetype Parts(qsizetype size, qsizetype part)
{
    return (size + part - 1) / part;
}

QByteArray EntryBytes(const QString& name, int type, quint32 left, quint32 right, quint32 child,
                      quint32 start, qsizetype size)
{
    LittleEndian out;
    for (const QChar c : name)
        out.U16(c.unicode());
    out.Fill(64 - out.bytes.size()).U16(type == 0 ? 0 : static_cast<int>(2 * name.size() + 2));
    out.U8(type).U8(1).U32(left).U32(right).U32(child).Fill(36).U32(start).U32(size).U32(0);
    return out.bytes;
}

} // namespace

QByteArray CompoundMaker::Make()
{
    sectors_.clear();
    links_.clear();
    starts_.clear();
    miniLinks_.clear();
    linkSectors_.clear();
    moreLinkSectors_ = EndOfChain;
    moreCount_ = 0;

    for (const Stream& stream : streams)
        starts_.push_back(stream.content.size() < MiniCutoff ? EndOfChain : Place(stream.content, backwards));
    PlaceMiniStreams();
    const quint32 miniLinks =
        Place(Numbers(miniLinks_, Parts(qsizetype(miniLinks_.size()) * 4, sectorBytes) * sectorBytes), false);
    const quint32 directory = Place(Directory(), false);
    PlaceLinks();
    directoryAt = (qsizetype(directory) + 1) * sectorBytes;
    firstLinkAt = (qsizetype(linkSectors_.front()) + 1) * sectorBytes;
    return Header(directory, miniLinks,
                  static_cast<quint32>(Parts(qsizetype(miniLinks_.size()) * 4, sectorBytes))) +
           sectors_;
}

/// Adds the sectors of a chain and answers the first of them.
quint32 CompoundMaker::Place(const QByteArray& content, bool reversed)
{
    const qsizetype count = Parts(content.size(), sectorBytes);
    if (count == 0)
        return EndOfChain;
    std::vector<quint32> order(static_cast<std::size_t>(count));
    std::iota(order.begin(), order.end(), static_cast<quint32>(links_.size()));
    if (reversed)
        std::reverse(order.begin(), order.end());
    const qsizetype begin = sectors_.size();
    sectors_ += QByteArray(count * sectorBytes, '\0');
    links_.resize(links_.size() + static_cast<std::size_t>(count));
    for (std::size_t i = 0; i < order.size(); ++i) {
        const QByteArray part = content.mid(static_cast<qsizetype>(i) * sectorBytes, sectorBytes);
        const qsizetype first = order.front() < order.back() ? order.front() : order.back();
        sectors_.replace(begin + (qsizetype(order[i]) - first) * sectorBytes, part.size(), part);
        links_[order[i]] = i + 1 < order.size() ? order[i + 1] : EndOfChain;
    }
    return order.front();
}

void CompoundMaker::PlaceMiniStreams()
{
    QByteArray mini;
    for (qsizetype i = 0; i < streams.size(); ++i) {
        const QByteArray& content = streams[i].content;
        if (content.isEmpty() || content.size() >= MiniCutoff)
            continue;
        const qsizetype count = Parts(content.size(), MiniSector);
        starts_[static_cast<std::size_t>(i)] = static_cast<quint32>(miniLinks_.size());
        for (qsizetype part = 1; part < count; ++part)
            miniLinks_.push_back(static_cast<quint32>(miniLinks_.size() + 1));
        miniLinks_.push_back(EndOfChain);
        mini += content + QByteArray(count * MiniSector - content.size(), '\0');
    }
    miniBytes_ = mini.size();
    miniStart_ = Place(mini, false);
}

/// The root, then the streams as a list of right neighbours, with the storage among them.
QByteArray CompoundMaker::Directory()
{
    const int first = 2 + spareEntries; // after the root and the storage
    const auto next = [&](int index, bool inStorage) -> quint32 {
        for (int i = index; i < streams.size(); ++i)
            if (streams[i].inStorage == inStorage)
                return static_cast<quint32>(first + i);
        return Free;
    };
    QByteArray out = EntryBytes(QStringLiteral("Root Entry"), 5, Free, Free, 1, miniStart_, miniBytes_);
    out += EntryBytes(QStringLiteral("Storage"), 1, Free, spareEntries > 0 ? 2 : next(0, false),
                      next(0, true), 0, 0);
    for (int i = 0; i < spareEntries; ++i)
        out += EntryBytes(QStringLiteral("Spare%1").arg(i), 2, Free,
                          i + 1 < spareEntries ? static_cast<quint32>(3 + i) : next(0, false), Free,
                          EndOfChain, 0);
    for (int i = 0; i < streams.size(); ++i)
        out += EntryBytes(streams[i].name, 2, Free, next(i + 1, streams[i].inStorage), Free,
                          starts_[static_cast<std::size_t>(i)], streams[i].content.size());
    while (out.size() % sectorBytes != 0)
        out += EntryBytes(QString(), 0, Free, Free, Free, 0, 0);
    return out;
}

/// The links have sectors of their own, which have links, too; beyond those that the header lists, a list of
/// them has sectors as well.
std::vector<quint32> CompoundMaker::PlaceLinks()
{
    const qsizetype inList = LinksInSector() - 1;
    qsizetype linkSectors = 0;
    qsizetype listSectors = 0;
    while (linkSectors * LinksInSector() < qsizetype(links_.size()) + linkSectors + listSectors) {
        ++linkSectors;
        listSectors = Parts(std::max<qsizetype>(linkSectors - LinkSectorsInHeader, 0), inList);
    }
    for (qsizetype i = 0; i < linkSectors; ++i) {
        linkSectors_.push_back(static_cast<quint32>(links_.size()));
        links_.push_back(LinksSector);
    }
    const auto firstList = static_cast<quint32>(links_.size());
    links_.insert(links_.end(), static_cast<std::size_t>(listSectors), ListSector);
    sectors_ += Numbers(links_, linkSectors * sectorBytes);

    moreCount_ = static_cast<quint32>(listSectors);
    moreLinkSectors_ = listSectors > 0 ? firstList : EndOfChain;
    for (qsizetype list = 0; list < listSectors; ++list) {
        std::vector<quint32> numbers(static_cast<std::size_t>(inList), Free);
        for (qsizetype i = 0; i < inList; ++i) {
            const qsizetype at = LinkSectorsInHeader + list * inList + i;
            if (at < linkSectors)
                numbers[static_cast<std::size_t>(i)] = linkSectors_[static_cast<std::size_t>(at)];
        }
        numbers.push_back(list + 1 < listSectors ? firstList + static_cast<quint32>(list) + 1 : EndOfChain);
        sectors_ += Numbers(numbers, sectorBytes);
    }
    return linkSectors_;
}

QByteArray CompoundMaker::Header(quint32 directory, quint32 miniLinks, quint32 miniLinkSectors) const
{
    const bool large = sectorBytes == 4096;
    LittleEndian out;
    out.Raw(QByteArray("\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1", 8)).Fill(16);
    out.U16(0x3E).U16(large ? 4 : 3).U16(0xFFFE).U16(large ? 12 : 9).U16(6).Fill(6);
    out.U32(large ? 1 : 0).U32(qint64(linkSectors_.size())).U32(directory).U32(0).U32(MiniCutoff);
    out.U32(miniLinkSectors > 0 ? miniLinks : EndOfChain).U32(miniLinkSectors);
    out.U32(moreLinkSectors_).U32(moreCount_);
    for (std::size_t i = 0; i < LinkSectorsInHeader; ++i)
        out.U32(i < linkSectors_.size() ? linkSectors_[i] : Free);
    return out.Fill(sectorBytes - out.bytes.size()).bytes;
}

} // namespace tsms::test
