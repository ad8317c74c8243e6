#include "addressbook/SheetOperations.h"

#include "runtime/Clock.h"
#include "runtime/RuntimeError.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>

namespace tsms {

QString& SheetNames::At(int index)
{
    if (index < 0 || index >= Size())
        throw RuntimeError(SubscriptOutOfRange);
    return names_[static_cast<std::size_t>(index)];
}

Boolean SheetOperations::GetSheetList(const QString& file, SheetNames& names, std::int16_t& count,
                                      const QString& log, bool replaceLog)
{
    Open(file);
    count = static_cast<std::int16_t>(workbook_.sheets.size());
    for (int i = 0; i < std::min<int>(count, names.Size()); ++i)
        names.At(i) = workbook_.sheets[i];
    WriteLog(log, replaceLog);
    return ToBooleanValue(count > 0);
}

std::shared_ptr<const CellSource> SheetOperations::ImportSheet(const QString& name) const
{
    return !workbook_.sheets.isEmpty() && workbook_.sheets.first() == name ? workbook_.firstSheet : nullptr;
}

void SheetOperations::Open(const QString& path)
{
    if (path == file_)
        return;
    file_ = path;
    workbook_ = {};
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly))
        return;
    try {
        workbook_ = ReadWorkbook(file, columns_);
    } catch (const RuntimeError&) {
        // It lists no sheets: that is all that is told of a damaged one.
    }
}

void SheetOperations::WriteLog(const QString& path, bool replace) const
{
    QFile log(path);
    if (!log.open(replace ? QIODevice::WriteOnly : QIODevice::WriteOnly | QIODevice::Append))
        return;
    const QString found = workbook_.sheets.isEmpty() ? QStringLiteral("시트를 읽을 수 없습니다.")
                                                     : workbook_.sheets.join(QStringLiteral(", "));
    log.write(QStringLiteral("%1 %2 (%3) %4\r\n")
                  .arg(MomentText(clock_.Now()), file_, QString::number(workbook_.sheets.size()), found)
                  .toUtf8());
}

} // namespace tsms
