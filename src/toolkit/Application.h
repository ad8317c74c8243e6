#pragma once

#include <QApplication>
#include <QTranslator>

namespace tsms {

class Desktop;

/// The application. Its windows bear the program's icon. Menus and pickers that belong to the toolkit speak
/// Korean, whatever the desk's language.
/// It is the last place that catches an exception which left an event handler.
class Application : public QApplication
{
public:
    /// Without a display it ends the process in order: with a line on stderr and status 1.
    Application(int& argc, char** argv);

    /// Where unhandled errors are shown; without it they end the program.
    void SetDesktop(Desktop& desktop) { desktop_ = &desktop; }

    bool notify(QObject* receiver, QEvent* event) override;

private:
    QTranslator words_; // where the platform has none, those menus stay English
    Desktop* desktop_ = nullptr;
};

} // namespace tsms
