#pragma once

#include <QString>

class QIODevice;

namespace tsms {

class Desktop;
class RecipientList;
struct Session;

/// Fills the recipient list from the file "SMSData" that another program has left in the application's
/// folder. A number that stands in a row on view already, hyphens and the like apart, is not taken again.
///
/// True when the file was there and read through; false when it is missing, and then nothing has happened, or
/// when reading it failed, and then the rows until there stay. No box is shown. Busy is cleared.
bool ReadRecipientFile(const QString& applicationPath, RecipientList& list, Session& session,
                       Desktop& desktop);

/// The reading itself: makes room for all records of the file and 20 rows more, and writes the rows from the
/// first on. Raises 6 for a file larger than any list, 57 where it cannot be read.
void ReadRecipientRecords(QIODevice& file, RecipientList& list);

} // namespace tsms
