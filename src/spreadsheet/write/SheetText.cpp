#include "spreadsheet/write/SheetText.h"

namespace tsms {

namespace {

/// Written without a branch, so that the compiler can look at many units at once.
bool HasUnwritable(QStringView text)
{
    bool found = false;
    for (const QChar c : text) {
        const char16_t unit = c.unicode();
        found |= (unit == u'\r') | (unit == 0) | ((unit & 0xF800) == 0xD800);
    }
    return found;
}

bool IsPairAt(QStringView text, qsizetype at)
{
    return at + 1 < text.size() && text[at].isHighSurrogate() && text[at + 1].isLowSurrogate();
}

} // namespace

QStringView SheetText(QStringView text, QString& changed)
{
    if (!HasUnwritable(text))
        return text.first(qMin(text.size(), MaxCellText));
    changed.clear();
    for (qsizetype at = 0; at < text.size() && changed.size() < MaxCellText; ++at) {
        const QChar unit = text[at];
        if (IsPairAt(text, at)) {
            if (changed.size() + 2 > MaxCellText)
                break;
            changed += text.sliced(at, 2);
            ++at;
        } else if (unit == u'\r') {
            changed += u'\n';
            if (at + 1 < text.size() && text[at + 1] == u'\n')
                ++at;
        } else if (unit.isNull()) {
            changed += u' ';
        } else {
            changed += unit.isSurrogate() ? QChar(QChar::ReplacementCharacter) : unit;
        }
    }
    return changed;
}

} // namespace tsms
