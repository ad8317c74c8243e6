#pragma once

#include <QtGlobal>

namespace tsms {

/// What [MS-CFB] lays down for every compound file. All numbers in it are little-endian.
struct Compound
{
    static constexpr char Signature[] = "\xD0\xCF\x11\xE0\xA1\xB1\x1A\xE1";
    static constexpr quint32 HeaderBytes = 512;
    static constexpr quint32 EntryBytes = 128; ///< of the directory
    static constexpr quint32 MiniSectorBytes = 64;
    static constexpr quint32 FatSectorsInHeader = 109; ///< the numbers of the others stand in DIFAT sectors

    // In place of a sector's number.
    static constexpr quint32 LastSector = 0xFFFFFFFA; ///< higher numbers are signs
    static constexpr quint32 DifatSector = 0xFFFFFFFC;
    static constexpr quint32 FatSector = 0xFFFFFFFD;
    static constexpr quint32 EndOfChain = 0xFFFFFFFE;
    static constexpr quint32 FreeSector = 0xFFFFFFFF;

    static constexpr quint32 NoEntry = 0xFFFFFFFF; ///< in place of an entry's number
    enum EntryType : quint8 { UnusedEntry = 0, StorageEntry = 1, StreamEntry = 2, RootEntry = 5 };
};

} // namespace tsms
