#pragma once

#include <QString>
#include <QStringView>

namespace tsms {

/// The form in which two numbers are the same or not: trimmed, then without any "-", "/" and ".".
QString ComparedNumber(QStringView number);

} // namespace tsms
