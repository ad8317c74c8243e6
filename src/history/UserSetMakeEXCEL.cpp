#include "history/UserSetMakeEXCEL.h"

#include "history/GridSheet.h"
#include "runtime/Clock.h"
#include "runtime/Desktop.h"
#include "runtime/DoEvents.h"
#include "runtime/RuntimeError.h"
#include "services/ScreenBusy.h"
#include "services/Services.h"
#include "spreadsheet/WriteWorkbook.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tsms {

namespace {

/// False where a file stands there that must stay, or that cannot be removed.
bool MakeRoom(Desktop& desktop, const QString& file, const QString& title, const QString& today)
{
    if (!QFileInfo(file).isFile())
        return true;
    const MsgBoxAnswer answer = desktop.MsgBox(
        title + today + QStringLiteral("을 엑셀파일이 이미 존재합니다. 삭제하신후 계속 진행하시겠습니까?."),
        MsgBoxCriticalYesNo, title);
    if (answer != AnswerYes || !QFile::remove(file))
        return false;
    DoEvents();
    return true;
}

/// What becomes of the file shows when it is to be opened.
void ExportToExcel(const fpSpread& grid, const QString& file)
{
    WithHandler([&] { WriteWorkbook(file, SheetOf(grid)); }, [] {});
}

} // namespace

void MakeExcel(Services& services, const fpSpread& grid, const QString& title)
{
    const QString folder =
        services.desktop.PickFolder(QStringLiteral("엑셀파일을 저장하실 폴더를 선택하여 주십시오."));
    if (folder.isEmpty())
        return;
    const QString today = services.clock.Date().toString(u"yyyyMMdd");
    const QString file = QDir(folder).filePath(title + today + QStringLiteral(".xls"));
    if (!MakeRoom(services.desktop, file, title, today))
        return;
    ExportToExcel(grid, file);
    if (!QFileInfo(file).isFile())
        return; // without a word, as is meant
    services.desktop.OpenDocument(file);
    SetScreenBusy(services, Boolean::False);
}

} // namespace tsms
