"""What stands on the screen, as the accessibility bus tells it. Nothing is kept: each question is asked anew."""

from gi.repository import Gio, GLib

ACCESSIBLE = "org.a11y.atspi.Accessible"
COMPONENT = "org.a11y.atspi.Component"
TABLE = "org.a11y.atspi.Table"
TEXT = "org.a11y.atspi.Text"
PROPERTIES = "org.freedesktop.DBus.Properties"
ROOT = ("org.a11y.atspi.Registry", "/org/a11y/atspi/accessible/root")

# Numbers of AT-SPI's states.
FOCUSED, SELECTED, SHOWING = 12, 23, 25

ANSWER_MS = 5000


class Thing:
    """Something on the screen: a window, a control, a cell."""

    def __init__(self, screen, reference):
        self._screen = screen
        self._reference = tuple(reference)

    def __eq__(self, other):
        return self._reference == other._reference

    def call(self, interface, method, signature="()", *values):
        return self._screen.call(self._reference, interface, method, signature, *values)

    def value(self, interface, name):
        return self.call(PROPERTIES, "Get", "(ss)", interface, name)

    def children(self):
        return [Thing(self._screen, child) for child in self.call(ACCESSIBLE, "GetChildren")]

    @property
    def name(self):
        return self.value(ACCESSIBLE, "Name")

    @property
    def description(self):
        return self.value(ACCESSIBLE, "Description")

    @property
    def role(self):
        return self.call(ACCESSIBLE, "GetRoleName")

    def has(self, state):
        low, high = self.call(ACCESSIBLE, "GetState")
        return bool((low | high << 32) >> state & 1)

    @property
    def has_focus(self):
        return self.has(FOCUSED)

    @property
    def box(self):
        """Left, top, width, height on the screen."""
        return self.call(COMPONENT, "GetExtents", "(u)", 0)

    @property
    def middle(self):
        left, top, width, height = self.box
        return left + width // 2, top + height // 2

    @property
    def text(self):
        return self.call(TEXT, "GetText", "(ii)", 0, -1)

    @property
    def caret(self):
        return self.value(TEXT, "CaretOffset")

    @property
    def selection(self):
        """Start and end of what is marked; None without."""
        if self.call(TEXT, "GetNSelections") == 0:
            return None
        return self.call(TEXT, "GetSelection", "(i)", 0)

    def by_words(self):
        """What is on view within it, by its name and its description: the controls, and labels of other words."""
        found = {}
        for thing in self._visible():
            for words in {thing.name, thing.description}:
                if words not in found or found[words].role == "label" != thing.role:
                    found[words] = thing
        return found

    def is_known_by(self, words):
        return words == self.name or words == self.description

    def _visible(self):
        if not self.has(SHOWING):
            return
        yield self
        if self.role != "table":  # whose cells are many
            for child in self.children():
                yield from child._visible()

    # Of a table, columns and rows from 1.
    def cell(self, column, row):
        return Thing(self._screen, self.call(TABLE, "GetAccessibleAt", "(ii)", row - 1, column - 1))

    @property
    def rows(self):
        return self.value(TABLE, "NRows")

    def texts(self, *columns):
        """What the cells of these columns hold, row by row. Asked all at once: they are many."""
        rows = range(self.rows)
        cells = self._screen.call_all([(self._reference, TABLE, "GetAccessibleAt", "(ii)", row, column - 1)
                                       for row in rows for column in columns])
        names = self._screen.call_all([(cell, PROPERTIES, "Get", "(ss)", ACCESSIBLE, "Name") for cell in cells])
        return [tuple(names[row * len(columns):(row + 1) * len(columns)]) for row in rows]

    def active_cell(self):
        """Column and row."""
        for row in range(1, self.rows + 1):
            for column in range(1, self.value(TABLE, "NColumns") + 1):
                if self.cell(column, row).has(FOCUSED):
                    return column, row
        return None


def _unpacked(answer):
    values = answer.unpack()
    return values[0] if len(values) == 1 else values


class Screen:
    def __init__(self):
        session = Gio.bus_get_sync(Gio.BusType.SESSION)
        address = session.call_sync("org.a11y.Bus", "/org/a11y/bus", "org.a11y.Bus", "GetAddress", None, None, 0,
                                    ANSWER_MS).unpack()[0]
        flags = Gio.DBusConnectionFlags.AUTHENTICATION_CLIENT | Gio.DBusConnectionFlags.MESSAGE_BUS_CONNECTION
        self._bus = Gio.DBusConnection.new_for_address_sync(address, flags, None, None)

    def call(self, reference, interface, method, signature="()", *values):
        return _unpacked(self._bus.call_sync(*reference, interface, method, GLib.Variant(signature, values), None, 0,
                                             ANSWER_MS))

    def call_all(self, questions):
        """Each with what call() takes. The answers come in the order of the questions."""
        answers = {}
        for number, (reference, interface, method, signature, *values) in enumerate(questions):
            self._bus.call(*reference, interface, method, GLib.Variant(signature, tuple(values)), None, 0, ANSWER_MS,
                           None, lambda bus, result, number: answers.__setitem__(number, result), number)
        while len(answers) < len(questions):
            GLib.MainContext.default().iteration(True)
        return [_unpacked(self._bus.call_finish(answers[number])) for number in range(len(questions))]

    def windows(self):
        """Of all programs."""
        return [window for program in Thing(self, ROOT).children() for window in program.children()]
