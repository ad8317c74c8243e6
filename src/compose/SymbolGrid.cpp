#include "compose/SymbolGrid.h"

#include "runtime/RuntimeError.h"

#include <QStringView>

namespace tsms {

namespace {

constexpr QStringView Symbols = u"☆☎☏☜＠♪℡※★○●◎◇◆□■△▲▽▼→←↑↓↔〓◁◀▷▶♤♠♡♥♧♣⊙◈▣◐◑▒▤▥▨▧§÷≠";
static_assert(Symbols.size() == 49);

} // namespace

QString SymbolTable(int index)
{
    if (index < 0 || index >= Symbols.size())
        throw RuntimeError(SubscriptOutOfRange);
    return QString(Symbols[index]);
}

QString SymbolAt(int column, int row)
{
    return SymbolTable(row * column - 1); // meant as a product
}

} // namespace tsms
