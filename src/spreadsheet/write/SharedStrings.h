#pragma once

#include <QHash>
#include <QStringView>

#include <memory_resource>
#include <string_view>
#include <vector>

namespace tsms {

class BiffStream;

/// The texts of a workbook, each kept once: the shared string table of [MS-XLS] 2.4.265. A text is kept as it
/// goes out, with 8 bits a character where Latin-1 holds it.
class SharedStrings
{
public:
    /// The number of a text of at most 65,535 units in the table, from 0. Raises 6 when the table would be
    /// larger than a file can be.
    quint32 Add(QStringView text);

    quint32 Count() const { return static_cast<quint32>(texts_.size()); } ///< different texts

    /// The table, over as many records as it takes, and the index of its parts behind it.
    void Write(BiffStream& stream) const;

private:
    /// A text as it goes out.
    struct Entry
    {
        std::string_view bytes;

        bool operator==(const Entry& other) const { return bytes == other.bytes; }
        /// The toolkit's own leaves the processor's wide registers in use, which costs more than the hash.
        friend std::size_t qHash(const Entry& entry, std::size_t)
        {
            return std::hash<std::string_view>()(entry.bytes);
        }
    };

    std::pmr::monotonic_buffer_resource memory_; ///< of the texts, one behind the other
    std::vector<Entry> texts_;
    QHash<Entry, quint32> numbers_; ///< of the texts, from 0
    std::vector<char> entry_;       ///< the text that is being looked for
    std::size_t bytes_ = 0;         ///< of all texts
    quint32 uses_ = 0;              ///< calls of Add
};

} // namespace tsms
