#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

#include <vector>

namespace tsms::test {

/// Puts a compound file together, sector by sector, as [MS-CFB] tells.
class CompoundMaker
{
public:
    struct Stream
    {
        QString name;
        QByteArray content;
        bool inStorage = false; ///< in a storage below the root, and not in the root itself
    };

    QList<Stream> streams;
    int sectorBytes = 512;  ///< or 4096
    bool backwards = false; ///< the sectors of a stream lie in the file in the opposite order
    int spareEntries = 0;   ///< empty streams that stand in the directory ahead of the others

    QByteArray Make();

    // Where things lie in the file that was made last, for those who want to damage it.
    qsizetype directoryAt = 0;
    qsizetype firstLinkAt = 0; ///< the entry of the first sector in the table of links

private:
    quint32 Place(const QByteArray& content, bool backwards);
    std::vector<quint32> PlaceLinks();
    void PlaceMiniStreams();
    QByteArray Directory();
    QByteArray Header(quint32 directory, quint32 miniLinks, quint32 miniLinkSectors) const;

    int LinksInSector() const { return sectorBytes / 4; }

    QByteArray sectors_;
    std::vector<quint32> links_;
    std::vector<quint32> starts_; // of each stream
    quint32 miniStart_ = 0;
    qsizetype miniBytes_ = 0;
    std::vector<quint32> miniLinks_;
    std::vector<quint32> linkSectors_;
    quint32 moreLinkSectors_ = 0; // where the list of link sectors goes on
    quint32 moreCount_ = 0;
};

} // namespace tsms::test
