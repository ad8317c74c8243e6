#pragma once

#include <QByteArray>
#include <QCryptographicHash>

namespace tsms::bench {

/// Sums up the texts of a search, cell by cell.
class TextSum
{
public:
    void Add(QByteArrayView utf8)
    {
        bytes_ += utf8.size();
        hash_.addData(utf8);
        hash_.addData(QByteArrayView("\0", 1));
    }
    qint64 Bytes() const { return bytes_; }
    QByteArray Digest() const { return hash_.result().toHex(); }

private:
    qint64 bytes_ = 0;
    QCryptographicHash hash_{QCryptographicHash::Md5};
};

} // namespace tsms::bench
