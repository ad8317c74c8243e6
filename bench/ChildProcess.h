#pragma once

#include <QByteArrayList>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace tsms::bench {

/// What a process of a benchmark had to say.
struct ChildReport
{
    std::int64_t started = 0; ///< Nanoseconds() just before it was started
    QByteArrayList words;     ///< of its standard output
};

/// Runs a program to its end. Ends this process with words on stderr when it fails or does not say exactly
/// `words` words.
ChildReport RunChild(const QString& program, const QStringList& arguments, int words);

} // namespace tsms::bench
