#include "runtime/Clock.h"
#include "tsms-db/Command.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const tsms::SystemClock clock;
    QTextStream out(stdout);
    QTextStream err(stderr);
    return tsms::RunDatabaseTool(QCoreApplication::arguments(), clock, out, err);
}
