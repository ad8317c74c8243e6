#pragma once

#include "spreadsheet/write/Sheet.h"

#include <QList>
#include <QStringList>

namespace tsms::test {

/// A sheet of these texts, which are all of one length; the first row is the titles.
Sheet TableSheet(const QList<QStringList>& rows);

/// A sheet without titles, one text a row.
Sheet ColumnSheet(const QStringList& texts);

} // namespace tsms::test
