#include "runtime/Clock.h"
#include "runtime/ProcessRules.h"
#include "tsms-db/Command.h"

#include <QCoreApplication>

int main(int argc, char** argv)
{
    tsms::TakeWriteFaultsAsErrors();
    tsms::TakeWordsAsUtf8();
    const QCoreApplication application(argc, argv);
    const tsms::SystemClock clock;
    QTextStream out(stdout);
    QTextStream err(stderr);
    return tsms::RunDatabaseTool(QCoreApplication::arguments(), clock, out, err);
}
