#include "toolkit/grid/PastedRows.h"

#include "runtime/Text.h"
#include "toolkit/fields/LimitRule.h"

#include <algorithm>
#include <utility>

namespace tsms {

namespace {

bool IsValueEnd(QChar c)
{
    return c == u'\t' || c == u'\r' || c == u'\n';
}

/// Walks through the text, value by value.
class ValueReader
{
public:
    explicit ValueReader(QStringView text) : text_(text) {}

    bool AtEnd() const { return at_ == text_.size(); }

    /// The value that begins here. Afterwards the end of the text or what ends the value stands here.
    QString Value()
    {
        const qsizetype end = QuotedEnd();
        if (end < 0)
            return PlainValue();
        QString value = text_.sliced(at_ + 1, end - at_ - 2).toString();
        at_ = end;
        value.replace(QStringLiteral("\"\""), QStringLiteral("\""));
        return value.first(FirstLineLength(value));
    }

    /// True when a value of the same row follows.
    bool NextValue()
    {
        if (AtEnd() || text_[at_] != u'\t')
            return false;
        ++at_;
        return true;
    }

    void NextRow()
    {
        if (text_.sliced(at_).startsWith(u"\r\n"))
            ++at_;
        if (!AtEnd())
            ++at_;
    }

private:
    QString PlainValue()
    {
        const qsizetype start = at_;
        while (!AtEnd() && !IsValueEnd(text_[at_]))
            ++at_;
        return text_.sliced(start, at_ - start).toString();
    }

    /// Behind the closing quote; -1 for a value that is not in quotes from its beginning to its end.
    qsizetype QuotedEnd() const
    {
        if (AtEnd() || text_[at_] != u'"')
            return -1;
        qsizetype i = at_ + 1;
        while (i < text_.size()) {
            if (text_[i++] != u'"')
                continue;
            if (i == text_.size() || IsValueEnd(text_[i]))
                return i;
            if (text_[i++] != u'"')
                return -1;
        }
        return -1;
    }

    QStringView text_;
    qsizetype at_ = 0;
};

/// In quotes where it would be taken for more than a value, or for less.
QString Quoted(QString value)
{
    const bool ends = std::any_of(value.cbegin(), value.cend(), IsValueEnd);
    if (!ends && !value.startsWith(u'"'))
        return value;
    value.replace(CrLf.toString(), QStringLiteral("\n"));
    return u'"' + value.replace(u'"', QStringLiteral("\"\"")) + u'"';
}

} // namespace

QList<QStringList> PastedRows(QStringView text)
{
    QList<QStringList> rows;
    ValueReader reader(text);
    while (!reader.AtEnd()) {
        QStringList values;
        values.reserve(rows.isEmpty() ? 1 : rows.last().size());
        do
            values += Trim(reader.Value());
        while (reader.NextValue());
        reader.NextRow();
        rows.append(std::move(values));
    }
    while (!rows.isEmpty() && rows.last() == QStringList(QString()))
        rows.removeLast();
    return rows;
}

QString CopiedText(const QList<QStringList>& rows)
{
    if (rows.size() == 1 && rows.first().size() == 1)
        return rows.first().first();
    QStringList lines;
    for (const QStringList& row : rows) {
        QStringList values;
        for (const QString& value : row)
            values += Quoted(value);
        lines += values.join(u'\t');
    }
    return lines.join(u'\n');
}

bool IsBlock(const QList<QStringList>& rows)
{
    return rows.size() > 1 || (rows.size() == 1 && rows.first().size() > 1);
}

} // namespace tsms
