#pragma once

#include "gateway/ModSMS.h"
#include "runtime/Clock.h"
#include "services/Services.h"
#include "session/Session.h"
#include "store/DBConnect.h"
#include "store/MakeConnections.h"
#include "support/ScriptedDesktop.h"
#include "toolkit/look/Theme.h"
#include "toolkit/windows/Application.h"

#include <QString>

namespace tsms::bench {

/// The application in its own look.
class ThemedApplication
{
public:
    ThemedApplication() { theme::ApplyTheme(application_); }
    Application* operator->() { return &application_; }

private:
    int argumentCount_ = 1;
    char name_[6] = "bench";
    char* arguments_[2] = {name_, nullptr};
    Application application_{argumentCount_, arguments_};
};

/// The application, and what its forms are handed: an embedded database, a gateway's description, a folder
/// that the program takes for its own, and a desk that says yes to everything.
struct ProgramDesk
{
    explicit ProgramDesk(const QString& database, const QString& wsdlUrl = {}, const QString& folder = {})
        : sms(session, db, desktop, clock, wsdlUrl), services{session, desktop, clock, db, sms, folder}
    {
        application->HandleErrors(session, desktop);
        desktop.AllowBoxes();
        session.DBCatalog = database;
        session.DBServer = QStringLiteral("(embedded)");
        session.DBPort = QStringLiteral("0");
    }

    ThemedApplication application;
    test::ScriptedDesktop desktop;
    SystemClock clock;
    Session session;
    DBConnect db{session, desktop, MakeConnections(clock)};
    ModSMS sms;
    Services services;
};

} // namespace tsms::bench
