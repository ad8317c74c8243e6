// Shows any number by any code of a number format: eight bytes of the number, one that tells how the rest is
// read (bit 0: dates from 1904; bit 1: the code is UTF-16, else UTF-8), and the code.
#include "fuzz/Target.h"
#include "spreadsheet/read/XlsNumberFormat.h"

#include <cstring>
#include <limits>

using namespace tsms;
using namespace tsms::test;

namespace {

constexpr qsizetype CodeAt = sizeof(double) + 1;
// Each of the 255 signs of a code shows at most the number in its general form, and one of them all its
// digits.
constexpr qsizetype MostShown = 255 * 24 + 500;

void ShowNumber(const QByteArray& bytes)
{
    if (bytes.size() < CodeAt)
        return;
    double value = 0;
    std::memcpy(&value, bytes.constData(), sizeof value);
    const unsigned int how = static_cast<unsigned char>(bytes[CodeAt - 1]);
    const FirstDay firstDay = (how & 1) != 0 ? FirstDay::Of1904 : FirstDay::Of1900;
    const XlsNumberFormat format(TextIn(bytes.sliced(CodeAt), (how & 2) != 0));
    for (const double shown : {value, -value, 0.0, 41059.5, std::numeric_limits<double>::max()})
        Require(format.Shown(shown, firstDay).size() <= MostShown);
}

const Target numberFormat("number-format", ShowNumber);

} // namespace
