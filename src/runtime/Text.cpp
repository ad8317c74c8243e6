#include "runtime/Text.h"

#include <utility>

namespace tsms {

QStringView Trimmed(QStringView text)
{
    while (text.startsWith(u' '))
        text = text.sliced(1);
    while (text.endsWith(u' '))
        text.chop(1);
    return text;
}

QString Trim(QStringView text)
{
    return Trimmed(text).toString();
}

QString Trim(const QString& text)
{
    const QStringView trimmed = Trimmed(text);
    return trimmed.size() == text.size() ? text : trimmed.toString();
}

QString Trim(QString&& text)
{
    const QStringView trimmed = Trimmed(text);
    return trimmed.size() == text.size() ? std::move(text) : trimmed.toString();
}

bool IsBlank(QStringView text)
{
    return Trimmed(text).isEmpty();
}

QString WithoutBlanks(QStringView text)
{
    QString kept;
    kept.reserve(text.size());
    for (const QChar c : text)
        if (c != u' ')
            kept += c;
    return kept;
}

} // namespace tsms
