#pragma once

#include <QByteArray>
#include <QString>

#include <cstdlib>
#include <cstring>
#include <vector>

namespace tsms::test {

/// Something that is handed any bytes, as they may come from outside. Each target is a fuzzer of its own; one
/// program of every build hands all of them the bytes that were ever found to do harm.
class Target
{
public:
    using Routine = void (*)(const QByteArray& bytes);

    /// Enters it among all targets of the program.
    Target(const char* name, Routine routine) : name_(name), routine_(routine) { All().push_back(*this); }

    static std::vector<Target>& All()
    {
        static std::vector<Target> targets;
        return targets;
    }

    const char* Name() const { return name_; }
    void Read(const QByteArray& bytes) const { routine_(bytes); }

private:
    const char* name_;
    Routine routine_;
};

/// Bytes as a text, in UTF-8 or in the machine's UTF-16, which can also be broken.
inline QString TextIn(const QByteArray& bytes, bool isUtf16)
{
    if (!isUtf16)
        return QString::fromUtf8(bytes);
    QString text(bytes.size() / 2, Qt::Uninitialized);
    std::memcpy(text.data(), bytes.constData(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
    return text;
}

/// Ends the program where something does not hold.
inline void Require(bool condition)
{
    if (!condition)
        std::abort();
}

} // namespace tsms::test
