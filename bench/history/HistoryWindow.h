#pragma once

#include "bench/ProgramDesk.h"

#include "gateway/ModSMS.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "support/FixedClock.h"
#include "support/ScriptedDesktop.h"
#include "toolkit/windows/Application.h"

#include <memory>

namespace tsms {
class fpSpread;
class frmSMSMain;
} // namespace tsms

namespace tsms::bench {

/// The application with its main window on a database of MakeSendLog, the history page on view and the search
/// set to the whole year. A box that comes up unexpectedly ends the process.
class HistoryWindow
{
public:
    explicit HistoryWindow(const QString& database);
    ~HistoryWindow();

    void ClickSearch(int boxes = 0); ///< at the end of which so many have come up
    frmSMSMain& Window() { return *form_; }
    fpSpread& List();

private:
    template <class W> W& The(const QString& name);
    void DemandNoBox() const;
    [[noreturn]] void EndWithBoxes() const;

    ThemedApplication application_;
    test::FixedClock clock_;
    test::ScriptedDesktop desktop_;
    Session session_;
    DBConnect db_;
    ModSMS sms_;
    Services services_;
    std::unique_ptr<frmSMSMain> form_;
};

} // namespace tsms::bench
