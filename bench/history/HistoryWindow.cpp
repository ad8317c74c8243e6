#include "bench/history/HistoryWindow.h"
#include "store/MakeConnections.h"

#include "bench/history/SendLog.h"

#include "shell/frmSMSMain.h"
#include "shell/Main.h"
#include "toolkit/fields/Controls.h"
#include "toolkit/fields/DatePicker.h"
#include "toolkit/grid/fpSpread.h"

#include <cstdio>
#include <cstdlib>

namespace tsms::bench {

HistoryWindow::HistoryWindow(const QString& database)
    : clock_(Moment()),
      db_(session_, desktop_, MakeConnections(clock_)),
      sms_(session_, db_, desktop_, clock_, QString()),
      services_{session_, desktop_, clock_, db_, sms_}
{
    application_->HandleErrors(session_, desktop_);
    desktop_.AllowBoxes();
    form_ = Main(database + QStringLiteral("■(embedded)■0■demo■demo■1■demo"), services_).form;
    Application::processEvents(); // the window's first activation
    DemandNoBox();
    The<PictureButton>(QStringLiteral("BtnToolbarDis(1)")).click();
    The<DatePicker>(QStringLiteral("DTPSendDt(0)")).SetValue(QDate(LogYear, 1, 1));
    The<DatePicker>(QStringLiteral("DTPSendDt(1)")).SetValue(QDate(LogYear, 12, 31));
    Application::processEvents();
}

HistoryWindow::~HistoryWindow() = default;

void HistoryWindow::ClickSearch(int boxes)
{
    desktop_.boxes.clear();
    The<PushButton>(QStringLiteral("BtnSendListSerch")).Click();
    Application::processEvents();
    if (desktop_.boxes.size() != boxes)
        EndWithBoxes();
}

fpSpread& HistoryWindow::List()
{
    return The<fpSpread>(QStringLiteral("fpSpreadSendList"));
}

template <class W> W& HistoryWindow::The(const QString& name)
{
    auto* found = form_->findChild<W*>(name);
    if (found)
        return *found;
    std::fprintf(stderr, "bench_history: no control %s\n", qPrintable(name));
    std::exit(1);
}

void HistoryWindow::DemandNoBox() const
{
    if (!form_ || !desktop_.boxes.isEmpty())
        EndWithBoxes();
}

void HistoryWindow::EndWithBoxes() const
{
    for (const test::Box& box : desktop_.boxes)
        std::fprintf(stderr, "%s: %s\n", qPrintable(box.title), qPrintable(box.text));
    std::exit(1);
}

} // namespace tsms::bench
