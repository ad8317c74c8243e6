"""The recipient list under the hands."""

NUMBER, NAME, PHONE, REMOVE = 1, 2, 3, 4


class Recipients:
    """Emptied as a person does it."""

    def __init__(self, hands):
        self._hands = hands
        self.table = hands.the("받는사람 목록")
        hands.click("비우기")
        hands.wait(lambda: self.contents() == {}, "the list emptied")

    def click(self, column, row, times=1):
        self._hands.click(self.table.cell(column, row), times)
        self.await_cell(column, row)

    def await_cell(self, column, row):
        """Until that cell is the active one."""
        self._hands.wait(lambda: self.table.cell(column, row).has_focus, f"the active cell ({column}, {row})")
        self._hands.keys_have_arrived()

    def contents(self):
        """Name and phone number by row, of the rows that hold any."""
        rows = enumerate(self.table.texts(NAME, PHONE), 1)
        return {row: texts for row, texts in rows if any(texts)}

    def expect(self, wanted):
        """Afterwards, all that was typed having come to where it goes: a last key goes the same way."""
        self.click(PHONE, 12)
        self._hands.press("Return")
        self.await_cell(NAME, 13)
        self._hands.expect("the list", self.contents(), wanted)
