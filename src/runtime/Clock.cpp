#include "runtime/Clock.h"

namespace tsms {

QString MomentText(const QDateTime& moment)
{
    QString text = QStringLiteral("0000-00-00 00:00:00");
    const auto put = [&text](int number, qsizetype end) { // its last digit stands before `end`
        for (; number > 0; number /= 10)
            text[--end] = QChar(u'0' + number % 10);
    };
    const QDate date = moment.date();
    const QTime time = moment.time();
    put(date.year(), 4);
    put(date.month(), 7);
    put(date.day(), 10);
    put(time.hour(), 13);
    put(time.minute(), 16);
    put(time.second(), 19);
    return text;
}

} // namespace tsms
