#pragma once

#include <QString>

#include <memory>

namespace tsms {

class frmSMSMain;
struct Services;

/// How a start ended.
struct Launch
{
    std::unique_ptr<frmSMSMain> form; ///< the main window, shown; none when the process is to end
    int exitStatus = 0;               ///< meant for the process when there is no window
};

/// The start of the program with the text behind its name on the command line. Every failure has been told to
/// the user when it returns without a window.
Launch Main(const QString& command, Services& services);

} // namespace tsms
