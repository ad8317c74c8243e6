#pragma once

#include <QString>

#include <ostream>

/// Lets a failed comparison print Korean text.
inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace tsms::test {

inline QString operator""_q(const char16_t* text, std::size_t length)
{
    return QString(reinterpret_cast<const QChar*>(text), static_cast<qsizetype>(length));
}

} // namespace tsms::test
