#include "history/UserSetMakeEXCEL.h"

#include "history/GridSheet.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/RuntimeError.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "spreadsheet/write/WriteWorkbook.h"

#include <QDir>
#include <QFileInfo>

namespace tsms {

namespace {

/// False where a file stands there that must stay.
bool CanWrite(Desktop& desktop, const QString& file, const QString& title, const QString& today)
{
    if (!QFileInfo(file).isFile())
        return true;
    const MsgBoxAnswer answer = desktop.MsgBox(
        title + today + QStringLiteral("을 엑셀파일이 이미 존재합니다. 삭제하신후 계속 진행하시겠습니까?."),
        MsgBoxCriticalYesNo, title);
    if (answer != AnswerYes)
        return false;
    DoEvents();
    return true;
}

/// Behind the name of a file that could not be written: what a person can do something about.
QString ReasonOfFailure()
{
    if (Err().Number == DiskFull)
        return QStringLiteral(" (디스크가 꽉 찼습니다.)");
    if (Err().Number == PathFileAccess)
        return QStringLiteral(" (다른 프로그램이 열고 있거나, 쓸 수 없는 곳입니다.)");
    return {};
}

/// True when the file is there. A former one goes when the new one is whole, and not before.
bool ExportToExcel(const fpSpread& grid, const QString& file)
{
    bool written = false;
    WithHandler(
        [&] {
            WriteWorkbook(file, SheetOf(grid));
            written = true;
        },
        [] {});
    return written;
}

} // namespace

QString MakeExcel(Services& services, const fpSpread& grid, const QString& title)
{
    const QString folder =
        services.desktop.PickFolder(QStringLiteral("엑셀파일을 저장하실 폴더를 선택하여 주십시오."));
    if (folder.isEmpty())
        return {};
    const QString today = services.clock.Date().toString(u"yyyyMMdd");
    const QString file = QDir(folder).filePath(title + today + QStringLiteral(".xls"));
    if (!CanWrite(services.desktop, file, title, today))
        return {};
    if (!ExportToExcel(grid, file))
        return QStringLiteral("저장하지 못했습니다 : ") + QDir::toNativeSeparators(file) + ReasonOfFailure();
    services.desktop.OpenDocument(file);
    SetScreenBusy(services, false);
    return QStringLiteral("저장하였습니다 : ") + QDir::toNativeSeparators(file);
}

} // namespace tsms
