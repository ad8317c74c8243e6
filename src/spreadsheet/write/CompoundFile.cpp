#include "spreadsheet/write/CompoundFile.h"

#include "runtime/DiskFull.h"
#include "runtime/SyncToDisk.h"
#include "spreadsheet/Compound.h"

#include <QDir>
#include <QFileInfo>
#include <QtEndian>

#include <cerrno>

namespace tsms {

namespace {

constexpr quint32 SectorBytes = 512;
constexpr quint32 LinksInSector = SectorBytes / 4;
constexpr quint32 LeastLargeStream = 4096; // shorter ones are made of mini sectors

/// Sectors that follow one another.
struct Sectors
{
    quint32 first = 0;
    quint32 count = 0;

    quint32 Start() const { return count == 0 ? Compound::EndOfChain : first; }
    quint32 End() const { return first + count; }
};

/// What the sectors of a file hold, in their order. Those of a short stream hold the mini stream, which
/// consists of nothing else.
struct Layout
{
    explicit Layout(quint32 streamBytes)
        : bytes(streamBytes),
          miniSectors{0, bytes < LeastLargeStream ? Parts(Compound::MiniSectorBytes) : 0},
          stream{0, Parts(SectorBytes)},
          directory{stream.End(), 1},
          miniFat{directory.End(), miniSectors.count > 0 ? 1u : 0u},
          fat{miniFat.End(), 0}
    {
        do { // it links its own sectors too
            ++fat.count;
            const quint32 listed =
                qMax(fat.count, Compound::FatSectorsInHeader) - Compound::FatSectorsInHeader;
            difat = {fat.End(), (listed + LinksInSector - 2) / (LinksInSector - 1)};
        } while (fat.count * LinksInSector < difat.End());
    }

    quint32 Parts(quint32 partBytes) const { return (bytes + partBytes - 1) / partBytes; }

    quint32 bytes; ///< of the stream
    Sectors miniSectors;
    Sectors stream;
    Sectors directory; ///< of four entries: the root, the stream and two unused ones
    Sectors miniFat;
    Sectors fat;
    Sectors difat;
};

template <class Number> void Put(QByteArray& to, Number value, quint32 times = 1)
{
    const Number littleEndian = qToLittleEndian(value);
    for (; times > 0; --times)
        to.append(reinterpret_cast<const char*>(&littleEndian), sizeof littleEndian);
}

void PutChain(QByteArray& to, const Sectors& sectors)
{
    for (quint32 next = sectors.first + 1; next <= sectors.End(); ++next)
        Put(to, next < sectors.End() ? next : Compound::EndOfChain);
}

/// The sectors of the FAT from the one of that number on.
void PutFatSectors(QByteArray& to, const Layout& layout, quint32 from, quint32 count)
{
    for (quint32 i = from; i < from + count; ++i)
        Put(to, i < layout.fat.count ? layout.fat.first + i : Compound::FreeSector);
}

/// [MS-CFB] 2.2
QByteArray HeaderOf(const Layout& layout)
{
    constexpr quint16 version[] = {0x003E, 3};
    constexpr quint16 littleEndian = 0xFFFE;
    constexpr quint16 sectorShift = 9;
    constexpr quint16 miniSectorShift = 6;
    QByteArray header = Compound::Signature;
    Put(header, quint8(0), 16);
    for (const quint16 value : {version[0], version[1], littleEndian, sectorShift, miniSectorShift})
        Put(header, value);
    Put(header, quint8(0), 10); // reserved, and a count that this version does not tell
    for (const quint32 value :
         {layout.fat.count, layout.directory.first, 0u, LeastLargeStream, layout.miniFat.Start(),
          layout.miniFat.count, layout.difat.Start(), layout.difat.count})
        Put(header, value);
    PutFatSectors(header, layout, 0, Compound::FatSectorsInHeader);
    return header;
}

/// [MS-CFB] 2.6.1. The one stream is a tree by itself: it has no brothers, and black is the colour of a root.
void PutEntry(QByteArray& to, Compound::EntryType type, const QString& name, quint32 child,
              const QByteArray& classId, quint32 start, quint32 bytes)
{
    constexpr int nameUnits = 32;
    constexpr quint8 black = 1;
    for (const QChar c : name)
        Put(to, c.unicode());
    Put(to, quint16(0), static_cast<quint32>(nameUnits - name.size()));
    Put(to, static_cast<quint16>(name.isEmpty() ? 0 : 2 * (name.size() + 1)));
    Put(to, quint8(type));
    Put(to, type == Compound::UnusedEntry ? quint8(0) : black);
    Put(to, Compound::NoEntry, 2);
    Put(to, child);
    to += classId.leftJustified(16, '\0');
    Put(to, quint32(0), 5); // flags and times
    Put(to, start);
    Put(to, quint64(bytes));
}

void PutDirectory(QByteArray& to, const Layout& layout, const QString& stream, const QByteArray& classId)
{
    const bool isMini = layout.miniSectors.count > 0;
    PutEntry(to, Compound::RootEntry, QStringLiteral("Root Entry"), 1, classId,
             isMini ? layout.stream.first : Compound::EndOfChain,
             layout.miniSectors.count * Compound::MiniSectorBytes);
    PutEntry(to, Compound::StreamEntry, stream, Compound::NoEntry, {}, layout.stream.Start(), layout.bytes);
    for (int i = 0; i < 2; ++i)
        PutEntry(to, Compound::UnusedEntry, {}, Compound::NoEntry, {}, 0, 0);
}

/// [MS-CFB] 2.4
void PutMiniFat(QByteArray& to, const Layout& layout)
{
    PutChain(to, layout.miniSectors);
    Put(to, Compound::FreeSector, layout.miniFat.count * LinksInSector - layout.miniSectors.count);
}

/// [MS-CFB] 2.3
void PutFat(QByteArray& to, const Layout& layout)
{
    PutChain(to, layout.stream);
    PutChain(to, layout.directory);
    PutChain(to, layout.miniFat);
    Put(to, Compound::FatSector, layout.fat.count);
    Put(to, Compound::DifatSector, layout.difat.count);
    Put(to, Compound::FreeSector, layout.fat.count * LinksInSector - layout.difat.End());
}

/// [MS-CFB] 2.5: the sectors of the FAT that the header has no room for. Each sector ends with the next one.
void PutDifat(QByteArray& to, const Layout& layout)
{
    quint32 listed = Compound::FatSectorsInHeader;
    for (quint32 next = layout.difat.first + 1; next <= layout.difat.End(); ++next) {
        PutFatSectors(to, layout, listed, LinksInSector - 1);
        Put(to, next < layout.difat.End() ? next : Compound::EndOfChain);
        listed += LinksInSector - 1;
    }
}

/// All that comes behind the stream, from its end on.
QByteArray TablesOf(const Layout& layout, const QString& stream, const QByteArray& classId)
{
    QByteArray tables;
    tables.reserve(qsizetype{layout.difat.End() - layout.stream.End() + 1} * SectorBytes);
    Put(tables, quint8(0), layout.stream.count * SectorBytes - layout.bytes);
    PutDirectory(tables, layout, stream, classId);
    PutMiniFat(tables, layout);
    PutFat(tables, layout);
    PutDifat(tables, layout);
    return tables;
}

long NumberOfOpenFailure(const QSaveFile& file)
{
    if (IsForWantOfRoom(file))
        return DiskFull;
    return QFileInfo(file.fileName()).absoluteDir().exists() ? PathFileAccess : PathNotFound;
}

/// Of a write or sync that has just failed.
long NumberOfDeviceFailure(const QSaveFile& file)
{
    return IsForWantOfRoom(file) ? DiskFull : DeviceFault;
}

} // namespace

CompoundFile::CompoundFile(const QString& path, const char* stream, const unsigned char* classId)
    : file_(path), stream_(QString::fromLatin1(stream)), classId_(reinterpret_cast<const char*>(classId), 16)
{
    // Unbuffered: what comes is large as a rule, and errno is that of the last write.
    errno = 0;
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        throw RuntimeError(NumberOfOpenFailure(file_));
}

void CompoundFile::Write(const char* bytes, qsizetype size)
{
    if (written_ + size > MaxStream)
        throw FileTooLarge();
    WriteAt(Compound::HeaderBytes + written_, bytes, size);
    written_ += size;
}

void CompoundFile::WriteOver(quint32 position, const char* bytes, qsizetype size)
{
    WriteAt(Compound::HeaderBytes + qint64{position}, bytes, size);
}

void CompoundFile::Commit()
{
    const Layout layout(static_cast<quint32>(written_));
    const QByteArray tables = TablesOf(layout, stream_, classId_);
    WriteAt(Compound::HeaderBytes + written_, tables.constData(), tables.size());
    const QByteArray header = HeaderOf(layout);
    WriteAt(0, header.constData(), header.size());
    if (!SyncToDisk(file_))
        throw RuntimeError(NumberOfDeviceFailure(file_));
    if (!file_.commit())
        throw RuntimeError(PathFileAccess);
}

void CompoundFile::WriteAt(qint64 place, const char* bytes, qsizetype size)
{
    bool isDone = file_.seek(place);
    for (qint64 at = 0; isDone && at < size;) { // a full disk that took a part says so at the rest
        const qint64 written = file_.write(bytes + at, size - at);
        isDone = written > 0;
        at += written;
    }
    if (!isDone)
        throw RuntimeError(NumberOfDeviceFailure(file_));
}

RuntimeError FileTooLarge()
{
    return RuntimeError(Overflow, QStringLiteral("엑셀파일의 크기는 2GB를 넘을 수 없습니다."));
}

} // namespace tsms
