#include "tsms-start/Launch.h"

#include <QDir>
#include <QProcess>

namespace tsms {

bool LaunchProgram(const QString& folder, const QString& launchLine)
{
    return QProcess::startDetached(QDir(folder).filePath(QStringLiteral("tsms")), {launchLine});
}

} // namespace tsms
