# Who may use whom: "folder: the folders it may include from". A folder may always include from itself.
# Both the build (tsms_library) and the include check (CheckLayers.cmake) read this table and no other.
set(TSMS_LAYERS
  "runtime:"
  "session: runtime"
  "store: runtime session"
  "gateway: runtime session store"
  "spreadsheet: runtime"
  "services: runtime session store gateway"
  "toolkit: runtime session"
  "compose: runtime session store gateway services toolkit"
  "addressbook: runtime session store gateway services spreadsheet toolkit"
  "templates: runtime session store services toolkit"
  "history: runtime session store gateway services spreadsheet toolkit compose"
  "account: runtime session store services toolkit"
  "shell: runtime session store gateway services toolkit compose addressbook templates history account")
