# Who may use whom: "room: the rooms it may include from". A room is a folder below src; it may always include from
# itself. The library of a folder holds the folder's rooms.
# Both the build (tsms_library) and the include check (CheckLayers.cmake) read this table and no other.
set(whole_toolkit "toolkit/look toolkit/fields toolkit/grid toolkit/windows")
set(database "store store/engine")
set(TSMS_LAYERS
  "runtime:"
  "session: runtime"
  "store/engine: runtime session"
  "store/embedded: runtime store/engine"
  "store/odbc: runtime store/engine"
  "store: runtime session store/engine store/embedded store/odbc"
  "gateway: runtime session ${database}"
  "spreadsheet:"
  "spreadsheet/read: runtime spreadsheet"
  "spreadsheet/write: runtime spreadsheet"
  "services: runtime session store gateway"
  "toolkit/look: runtime"
  "toolkit/fields: runtime toolkit/look"
  "toolkit/grid: runtime toolkit/look toolkit/fields"
  "toolkit/windows: runtime session toolkit/look toolkit/fields"
  "recipients: runtime toolkit/look toolkit/grid"
  "compose: runtime session ${database} gateway services ${whole_toolkit} recipients"
  "addressbook: runtime session ${database} gateway services spreadsheet/read ${whole_toolkit} recipients"
  "templates: runtime session ${database} services ${whole_toolkit}"
  "history: runtime session ${database} gateway services spreadsheet/write ${whole_toolkit} compose"
  "account: runtime session ${database} services ${whole_toolkit}"
  "shell: runtime session ${database} gateway services ${whole_toolkit} recipients compose addressbook templates history account")
