// Takes any bytes for a text in code page 949, and for one in UTF-16.
#include "fuzz/Target.h"
#include "runtime/CodePage949.h"
#include "support/CodePageTable.h"

using namespace tsms;
using namespace tsms::test;

namespace {

void RequireBytesOfUnits(const QString& text)
{
    QByteArray bytes;
    for (const QChar unit : text)
        bytes += ToCodePage949(QStringView(&unit, 1));
    Require(ToCodePage949(text) == bytes);
}

/// How many units at a place stand or fall together.
qsizetype UnitsAt(const QString& text, qsizetype at)
{
    if (at + 1 >= text.size())
        return 1;
    const bool isPair = text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
    const bool isBreak = text[at] == u'\r' && text[at + 1] == u'\n';
    return isPair || isBreak ? 2 : 1;
}

void RequireLongestBeginning(const QString& text, int limit)
{
    const qsizetype length = FittingLength(text, limit);
    Require(MessageBytes(text.first(length)) <= limit);
    if (length < text.size())
        Require(MessageBytes(text.first(length + UnitsAt(text, length))) > limit);
}

void RequireCounts(QString text)
{
    constexpr qsizetype mostUnits = 500; // one by one they take their time
    text.truncate(mostUnits);
    RequireBytesOfUnits(text);
    const int all = MessageBytes(text);
    for (const int limit : {0, 1, 80, all / 2, qMax(all - 1, 0), all})
        RequireLongestBeginning(text, limit);
}

void ReadCodePage(const QByteArray& bytes)
{
    const QString text = FromCodePage949(bytes);
    Require(text == CodePageTable::Get().TextOf(bytes));
    RequireCounts(text);
    RequireCounts(TextIn(bytes, true));
}

const Target codePage("code-page", ReadCodePage);

} // namespace
