#pragma once

#include <QString>

namespace tsms {

class ComboBox;
class DBConnect;

/// Fills a list with the groups by name, each with its code as ItemData, and "기타" with 0 behind them, and
/// selects the first entry. With a `code` (empty for none) the group of that code stands first. The caller
/// opens the database before and closes it after. A query that fails has been reported, and leaves "기타"
/// alone in the list.
void FillMemberGroupCombo(DBConnect& db, ComboBox& list, const QString& code);

} // namespace tsms
