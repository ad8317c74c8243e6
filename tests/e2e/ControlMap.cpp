// Prints where each named control stands, for a driver that works the real program with a real mouse:
//   control-map "<launch line>"
// A line is "<window>\t<control>\t<x>\t<y>", the middle of the control counted from its window's corner.
// Cells of the recipient list, of the sent messages and of the lists of the address book are
// "fpSpread[column,row]" by the name of their grid. The windows are those of the program, laid out on the
// same screen with the same fonts, and never shown.
#include "account/dlgSMSCharge.h"
#include "account/dlgSMSSetup.h"
#include "addressbook/dlgSMSGroupMst.h"
#include "addressbook/dlgSMSGroupSelect.h"
#include "addressbook/dlgSMSGroupSub.h"
#include "addressbook/MakeSMSExcel.h"
#include "compose/MakeSMSTransport.h"
#include "gateway/ModSMS.h"
#include "recipients/GridRecipientList.h"
#include "runtime/Clock.h"
#include "runtime/CommandLine.h"
#include "services/Services.h"
#include "session/Session.h"
#include "shell/frmSMSMain.h"
#include "shell/LaunchLine.h"
#include "store/DBConnect.h"
#include "store/LoadSMSSetup.h"
#include "store/MakeConnections.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"
#include "toolkit/windows/QtDesktop.h"

#include <QTextStream>

using namespace tsms;

namespace {

void Print(const QWidget& window, const QString& name, QPoint middle)
{
    QTextStream(stdout) << window.objectName() << '\t' << name << '\t' << middle.x() << '\t' << middle.y()
                        << '\n';
}

void PrintControls(QWidget& window)
{
    window.grab(); // lays the window out without showing it
    for (QWidget* control : window.findChildren<QWidget*>())
        if (!control->objectName().isEmpty())
            Print(window, control->objectName(), control->mapTo(&window, control->rect().center()));
}

void PrintDialog(QWidget& dialog)
{
    dialog.adjustSize();
    PrintControls(dialog);
}

void PrintCells(QWidget& window, fpSpread& grid)
{
    for (int row = 1; row <= 5; ++row)
        for (int column = 1; column <= grid.Cells().MaxCols(); ++column) {
            const QRect cell = grid.visualRect(grid.model()->index(row - 1, column - 1));
            Print(window, QStringLiteral("%1[%2,%3]").arg(grid.objectName()).arg(column).arg(row),
                  grid.viewport()->mapTo(&window, cell.center()));
        }
}

void PrintAddressBook(Services& services, RecipientList& recipients)
{
    dlgSMSGroupSelect book(services, recipients);
    PrintDialog(book);
    for (auto* grid : book.findChildren<fpSpread*>()) {
        grid->Cells().SetMaxRows(5);
        PrintCells(book, *grid);
    }
    dlgSMSGroupMst group(services, {});
    PrintDialog(group);
    dlgSMSGroupSub member(services, {});
    PrintDialog(member);
}

} // namespace

int main(int argc, char** argv)
{
    const QString line = TakeCommandLine(argc, argv);
    int programNameOnly = 1;
    Application application(programNameOnly, argv);
    theme::ApplyTheme(application);
    QtDesktop desktop;
    const SystemClock clock;
    Session session;
    DBConnect db(session, desktop, MakeConnections(clock));
    ModSMS sms(session, db, desktop, clock, QString());
    Services services{session, desktop, clock, db, sms};

    StoreLaunchLine(line, session);
    LoadSMSSetup(session, db);
    frmSMSMain window(services);
    window.Load();
    // Who is quicker than the first picture has the other pages before it.
    for (const char* button : {"BtnToolbarDis(3)", "BtnToolbarDis(0)"})
        window.findChild<PictureButton*>(QLatin1String(button))->OnClick();
    PrintControls(window);
    auto* sent = window.findChild<fpSpread*>(QStringLiteral("fpSpreadSendList"));
    sent->Cells().SetMaxRows(5);
    PrintCells(window, *sent);
    auto* grid = window.findChild<fpSpread*>(QStringLiteral("fpSpread"));
    PrintCells(window, *grid);
    GridRecipientList recipients(*grid);
    MakeSMSTransport dialog(services, {recipients, 0, {}, {}});
    PrintDialog(dialog);
    dlgSMSCharge charge(services, [] {});
    PrintDialog(charge);
    dlgSMSSetup settings(services);
    PrintDialog(settings);
    PrintAddressBook(services, recipients);
    MakeSMSExcel import(services, recipients);
    PrintDialog(import);
    return 0;
}
