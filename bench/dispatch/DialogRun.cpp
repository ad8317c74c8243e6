#include "bench/dispatch/Workload.h"
#include "bench/Heart.h"
#include "bench/ProgramDesk.h"

#include "compose/MakeSMSTransport.h"
#include "recipients/GridRecipientList.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"

#include <QTimer>

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

namespace {

void Fill(RecipientList& recipients, int rows)
{
    recipients.Reset();
    recipients.Resize(rows);
    for (int row = 1; row <= rows; ++row)
        recipients.Write(row, RecipientName(row), RecipientNumber(row));
}

void DemandOneBox(const test::ScriptedDesktop& desktop, MsgBoxStyle style)
{
    if (desktop.boxes.size() == 1 && desktop.boxes.first().style == style)
        return;
    for (const test::Box& box : desktop.boxes)
        std::fprintf(stderr, "%s: %s\n", qPrintable(box.title), qPrintable(box.text));
    std::exit(1);
}

} // namespace

Sending RunThroughDialog(const World& world)
{
    ProgramDesk desk(world.database, world.wsdlUrl);
    desk.session.UserData1 = UserData1;
    desk.session.UserData2 = UserData2();
    fpSpread grid;
    GridRecipientList recipients(grid);
    Fill(recipients, world.rows);
    MakeSMSTransport dialog(desk.services, {recipients, world.rows, MessageTemplate(), SenderNumber()});

    Sending sending;
    constexpr int settledMilliseconds = 300; // by then the dialog has been painted and nothing is left to do
    QTimer::singleShot(settledMilliseconds, [&] {
        Heart heart;
        const std::int64_t from = Nanoseconds();
        dialog.Button(0)->Click();
        sending.cost.nanoseconds = static_cast<double>(Nanoseconds() - from);
        heart.Beat();
        sending.stall = heart.Longest();
    });
    dialog.ShowModal();
    DemandOneBox(desk.desktop, MsgBoxInformation);
    sending.cost.peakMemory = PeakMemory();
    return sending;
}

} // namespace tsms::bench
