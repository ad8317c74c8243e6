#pragma once

#include "support/program/Program.h"
#include "support/server/TestServer.h"

#include <functional>

namespace tsms::test {

/// What one user action brought about.
struct Outcome
{
    QList<Box> boxes;       ///< in their order
    QStringList statements; ///< that reached the server
    QStringList passed;     ///< that the program gave to a connection
    QList<int> frames;      ///< for each that was passed, which connection of the action it went by, from 1
    int logIns = 0;         ///< tried
    QStringList changes;    ///< what has become different in the database, as Changes tells it
    QStringList view;       ///< what is on view at the end, where the action is there to show something
};

/// The program on a server with a small stock of rows, worked by one user action after the other.
class Scene
{
public:
    Scene();

    void Start(); ///< launches the program; what ran before is gone
    bool IsStarted() const { return program.form != nullptr; }

    /// Runs the one user action of a turn. Before it the server is told what goes wrong; behind it the server
    /// is well again, and there again.
    void Act(const std::function<void()>& action);

    std::function<void(TestServer&)> fault; ///< what goes wrong in the next action, once
    Outcome last;                           ///< of the last action

    // The pages, entered anew: 0 compose, 1 history, 2 account, 3 templates.
    void Enter(int page);
    bool IsOn(int page);

    /// Opens a form by `open`, runs `act` in it, and leaves it by Esc unless it is gone by then.
    void In(const QString& form, const std::function<void()>& open, const std::function<void(QWidget&)>& act);
    void InBook(const std::function<void(QWidget& book)>& act);
    void Press(QWidget& form, const QString& control) { ClickOn(program.On<QWidget>(form, control)); }
    /// Types a text in the place of what stands in a field.
    void Write(QWidget& form, const QString& field, const QString& text);

    /// The texts of a column of a grid; the row in which one stands.
    static QStringList Column(const fpSpread& grid, int column);
    static int RowWith(const fpSpread& grid, int column, const QString& text);

    /// Sends a message through the gateway, which holds it until that hour of tomorrow.
    void Reserve(const QString& name, int hour);

    TestServer& Server() { return *program.database.Server(); }

    Program program;

private:
    /// Every row that a person has put there, as a line of its table and its words; not the balance.
    QStringList Rows();
};

/// What one list has and the other has not: "-" and the row that is gone, "+" and the one that has come,
/// sorted. A row that stands there twice counts twice. Of the account only what it has become is told.
QStringList Changes(QStringList before, const QStringList& after);

} // namespace tsms::test
