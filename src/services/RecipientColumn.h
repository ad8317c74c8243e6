#pragma once

namespace tsms {

/// The columns of the recipient grid of the compose page, for all who fill it or read it.
enum RecipientColumn : int {
    NumberColumn = 1,
    NameColumn = 2,
    PhoneColumn = 3,
    RemoveColumn = 4,
    ThirdValueColumn = 5, ///< hidden; written by the spreadsheet import, read by nothing
};

} // namespace tsms
