#pragma once

#include <QString>

namespace tsms {

class ComboBox;
struct Services;

/// Reads the template categories into a list, each with its code as ItemData, and selects the first. With a
/// `code` (empty for none) the category of that code stands first. The caller opens the database before and
/// closes it after. The list tells nobody of the choice, since Busy is set until the end; Busy is clear then,
/// also for a caller that had set it. A failure has been reported and leaves the list empty.
void FillTemplateCombo(Services& services, ComboBox& combo, const QString& code = QString());

} // namespace tsms
