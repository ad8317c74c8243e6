#include "bench/ProgramDesk.h"
#include "bench/recipients/Steps.h"

#include "recipients/GridRecipientList.h"
#include "runtime/Numbers.h"
#include "shell/frmSMSMain.h"
#include "shell/Main.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/grid/fpSpread.h"

#include <QClipboard>
#include <QKeyEvent>

namespace tsms::bench {

namespace {

void Press(QWidget& widget, int key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {})
{
    QKeyEvent press(QEvent::KeyPress, key, modifiers, text);
    QCoreApplication::sendEvent(&widget, &press);
}

} // namespace

std::vector<double> DayOnPage(const QString& database)
{
    ProgramDesk desk(database);
    const auto form = Main(database + QStringLiteral("■(embedded)■0■demo■demo■1■demo"), desk.services).form;
    Paint(); // the window's first activation
    auto& list = *form->findChild<fpSpread*>(QStringLiteral("fpSpread"));
    auto& empty = *form->findChild<PushButton*>(QStringLiteral("BtnFuncMain(2)"));
    QApplication::clipboard()->setText(PastedText());
    list.SetActiveCell(GridRecipientList::NameColumn, 1);
    Paint();

    std::vector<double> times;
    times.push_back(TimeOf([&] { Press(list, Qt::Key_V, Qt::ControlModifier); }));
    Demand(list.Cells().Text(GridRecipientList::PhoneColumn, LargestSize) == u"010-0003-2000",
           "bench_recipients: nothing was pasted");
    const int middle = LargestSize / 2;
    for (int removal = 0; removal < Removals; ++removal) {
        list.SetActiveCell(GridRecipientList::RemoveColumn, middle + removal);
        Paint();
        times.push_back(TimeOf([&] { Press(list, Qt::Key_Space, {}, QStringLiteral(" ")); }));
    }
    Demand(list.Cells().Text(GridRecipientList::RunningNumberColumn, LargestSize) ==
               TwoDigits(LargestSize - Removals),
           "bench_recipients: the list was not numbered anew");
    list.SetActiveCell(GridRecipientList::NameColumn, middle);
    for (int walk = 0; walk < Walks; ++walk)
        times.push_back(TimeOf([&] { Press(list, Qt::Key_Return, {}, QStringLiteral("\r")); }));
    Demand(list.ActiveRow() == middle + Removals + Walks / 2, "bench_recipients: Enter did not walk");
    times.push_back(TimeOf([&] { empty.Click(); }));
    Demand(list.Cells().Text(GridRecipientList::NameColumn, 1).isEmpty(),
           "bench_recipients: the list was not emptied");
    return times;
}

} // namespace tsms::bench
