#pragma once

#include <QApplication>

namespace tsms {

class Desktop;

/// The application. It is the last place that catches a RuntimeError which left an event handler.
class Application : public QApplication
{
public:
    Application(int& argc, char** argv);

    /// Where unhandled errors are shown; without it they end the program.
    void SetDesktop(Desktop& desktop) { desktop_ = &desktop; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    Desktop* desktop_ = nullptr;
};

} // namespace tsms
