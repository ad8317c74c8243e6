#pragma once

#include <QString>
#include <QStringView>

#include <cstddef>
#include <vector>

namespace tsms {

/// Texts one behind the other, told by their numbers from 0.
class TextTable
{
public:
    /// Room for so many texts.
    void Reserve(std::size_t texts) { ends_.reserve(texts); }

    std::size_t Size() const { return ends_.size(); }

    QStringView At(std::size_t number) const
    {
        const qsizetype begin = number == 0 ? 0 : ends_[number - 1];
        return QStringView(characters_).sliced(begin, ends_[number] - begin);
    }

    /// Adds what `append` appends to the text that it is given. Where it answers false, nothing.
    template <class Append> bool AddBy(Append&& append)
    {
        const qsizetype before = characters_.size();
        if (!append(characters_)) {
            characters_.truncate(before);
            return false;
        }
        ends_.push_back(static_cast<quint32>(characters_.size()));
        return true;
    }

private:
    QString characters_;
    std::vector<quint32> ends_; // a workbook has fewer characters
};

} // namespace tsms
