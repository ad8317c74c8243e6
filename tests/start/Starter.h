#pragma once

#include "session/Session.h"
#include "support/database/TestDatabase.h"
#include "support/FixedClock.h"
#include "support/program/Hands.h"
#include "support/ScriptedDesktop.h"
#include "support/Words.h"
#include "toolkit/fields/TextField.h"
#include "toolkit/grid/fpSpread.h"
#include "tsms-start/StartWindow.h"

#include <QHash>
#include <QSettings>
#include <QTemporaryDir>

#include <memory>

namespace tsms::test {

/// A key store in memory.
class TestPasswords final : public PasswordStore
{
public:
    Answer Read(const QString& id) override
    {
        if (outcome != Outcome::Done)
            return {outcome};
        return kept.contains(id) ? Answer{Outcome::Done, kept[id]} : Answer{Outcome::Missing};
    }
    Outcome Write(const QString& id, const QString& password) override
    {
        if (outcome == Outcome::Done)
            kept[id] = password;
        return outcome;
    }
    Outcome Remove(const QString& id) override
    {
        kept.remove(id);
        return outcome;
    }

    QHash<QString, QString> kept;
    Outcome outcome = Outcome::Done; ///< of every call
};

/// tsms-start in the test's process: settings and a folder of its own, a desk that plays a script, a key
/// store in memory, a gateway that is there, and a program that is not started but noted.
class Starter
{
public:
    explicit Starter(const QString& folder = {});
    ~Starter();

    void Open();

    template <class W> W& On(QWidget& form, const QString& name)
    {
        W* found = dynamic_cast<W*>(form.findChild<QWidget*>(name));
        if (!found)
            throw std::runtime_error("no control " + name.toStdString());
        return *found;
    }
    template <class W> W& The(const QString& name) { return On<W>(*window, name); }
    void Click(const QString& name) { ClickOn(The<QWidget>(name)); }
    fpSpread& List() { return The<fpSpread>(u"fpSpreadConnections"_q); }
    QList<QStringList> Rows(); ///< of the list: name, place

    /// Clicks a command and runs `act` in the dialog that opens.
    void Within(const QString& dialog, const QString& button, const std::function<void(QWidget&)>& act);
    void New(const std::function<void(QWidget&)>& act)
    {
        Within(u"ConnectionDialog"_q, u"BtnConnection(0)"_q, act);
    }
    void Change(const std::function<void(QWidget&)>& act)
    {
        Within(u"ConnectionDialog"_q, u"BtnConnection(1)"_q, act);
    }

    /// Types in place of what stands in a field of a dialog.
    void Type(QWidget& dialog, int field, const QString& text);
    QString Text(QWidget& dialog, int field);

    /// Puts a connection to a test database into the list, past the window.
    SavedConnection Add(const TestDatabase& database, const QString& name = u"시험"_q);

    QTemporaryDir home;
    FixedClock clock;
    ScriptedDesktop desktop;
    Session session;
    QSettings settings;
    ConnectionList connections;
    TestPasswords passwords;
    QStringList launched;       ///< launch lines
    bool programIsThere = true; ///< tsms, that is
    QString gatewayFault;
    StartServices services;
    std::unique_ptr<StartWindow> window;
};

/// The password that a test database is reached by.
QString PasswordOf(const TestDatabase& database);

/// Waits until no work runs beside the windows, and what it has said is shown.
void AwaitWork();

/// A box of the window itself.
Box StartBox(const QString& words, MsgBoxStyle style);

/// The box of an error that is none of the program's own.
Box UnforeseenBox(const QString& what);

} // namespace tsms::test
