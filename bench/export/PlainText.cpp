#include "bench/export/PlainText.h"

#include <QFile>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

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
    for (int row = 1; good && row <= Cells::Rows; ++row) {
        QByteArray line;
        for (int col = 1; col <= Cells::Columns; ++col) {
            line += Field(cells.Text(col, row));
            line += col < Cells::Columns ? ',' : '\n';
        }
        good = file.write(line) == line.size();
    }
    if (good && file.flush())
        return;
    std::fprintf(stderr, "bench_export: the plain text could not be written\n");
    std::exit(1);
}

} // namespace tsms::bench
