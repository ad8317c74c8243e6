#include "bench/export/PlainText.h"

#include "bench/Measure.h"

#include <QFile>

#include <algorithm>

namespace tsms::bench {

namespace {

bool NeedsQuotes(const QString& text)
{
    return std::any_of(text.begin(), text.end(),
                       [](QChar c) { return c == u',' || c == u'"' || c == u'\n'; });
}

QByteArray Field(const QString& text)
{
    if (!NeedsQuotes(text))
        return text.toUtf8();
    return '"' + text.toUtf8().replace('"', "\"\"") + '"';
}

} // namespace

void WritePlainText(const QString& path, const Cells& cells)
{
    QFile file(path); // buffers by itself
    bool good = file.open(QIODevice::WriteOnly);
    for (int row = 1; good && row <= cells.Rows(); ++row) {
        QByteArray line;
        for (int col = 1; col <= Cells::Columns; ++col) {
            line += Field(cells.Text(col, row));
            line += col < Cells::Columns ? ',' : '\n';
        }
        good = file.write(line) == line.size();
    }
    Demand(good && file.flush(), "bench_export: the plain text could not be written");
}

} // namespace tsms::bench
