"""Names typed into the recipient list."""

from hands import QUICK
from recipients import NAME, PHONE, Recipients
from scenes import scene


def _typed_straight(name, pace):
    @scene(f"{name} typed straight into a cell, a key each {pace} ms")
    def play(hands):
        hands.pace = pace
        recipients = Recipients(hands)
        recipients.click(NAME, 1)
        hands.write(name)
        hands.press("Return")
        recipients.await_cell(PHONE, 1)
        recipients.expect({1: (name, "")})


for _name in ("김씨", "조씨", "혜진", "김하늘", "안녕하세요"):
    _typed_straight(_name, pace=5)
_typed_straight("김하늘", pace=30)
_typed_straight("조씨", pace=80)
_typed_straight("안녕하세요", pace=200)


@scene("Shift alone in the middle of a syllable changes nothing")
def _shift_alone(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.press("r", "l", "Shift_R", "a", "Shift_R")  # the left one turns fcitx5 off
    hands.press("Return")
    recipients.await_cell(PHONE, 1)
    recipients.expect({1: ("김", "")})


# In the middle of a syllable: what is done then, which cell is the active one afterwards, and what the cell holds.
def _left_by(what, leave, cell, held="하녕"):
    @scene(f"A syllable under way and {what}")
    def play(hands):
        recipients = Recipients(hands)
        recipients.click(NAME, 3)
        hands.write("하녕")
        leave(hands, recipients)
        recipients.await_cell(*cell)
        recipients.expect({3: (held, "")} if held else {})


_left_by("a click on another cell", lambda hands, recipients: recipients.click(NAME, 6), (NAME, 6))
_left_by("a click on its own number", lambda hands, recipients: recipients.click(PHONE, 3), (PHONE, 3))
_left_by("Enter", lambda hands, recipients: hands.press("Return"), (PHONE, 3))
_left_by("Tab", lambda hands, recipients: hands.press("Tab"), (PHONE, 3))
_left_by("Down", lambda hands, recipients: hands.press("Down"), (NAME, 4))
_left_by("Up", lambda hands, recipients: hands.press("Up"), (NAME, 2))
_left_by("Left", lambda hands, recipients: hands.press("Left"), (NAME, 3))
_left_by("Esc", lambda hands, recipients: hands.press("Escape"), (NAME, 3), held="")
_left_by("the wheel", lambda hands, recipients: hands.turn_wheel(recipients.table, 1), (NAME, 3))
_left_by("F12", lambda hands, recipients: hands.press("F12"), (NAME, 3))
_left_by("a click on the message", lambda hands, recipients: hands.click("문자메시지 내용"), (NAME, 3))


@scene("The syllable under way goes on after the wheel")
def _wheel_within(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 3)
    hands.press("g")
    hands.turn_wheel(recipients.table, 1)
    hands.turn_wheel(recipients.table, -1)
    hands.press("k", "s", "Return")
    recipients.await_cell(PHONE, 3)
    recipients.expect({3: ("한", "")})


@scene("Names and numbers that come all at once go each into its cell")
def _all_at_once(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    typed = {1: ("혜진", "010-0000-0001"), 2: ("김하늘", "010-0000-0002"), 3: ("조씨", "010-0000-0003")}
    hands.pace = QUICK
    with hands.while_it_stands_still():
        hands.write("".join(f"{name}\n{phone}\n" for name, phone in typed.values()))
    recipients.await_cell(NAME, 4)
    recipients.expect(typed)


# In place: how the cell is opened and where the caret goes.
def _in_place(how, open_cell, walk, wanted, leave):
    @scene(f"{how}, and a click elsewhere" if leave == "click" else f"{how}, and {leave}")
    def play(hands):
        recipients = Recipients(hands)
        recipients.click(NAME, 1)
        hands.write("김하늘")
        hands.press("Return")
        recipients.await_cell(PHONE, 1)
        open_cell(hands, recipients)
        if walk:
            hands.press(*walk)
        hands.write("녕")
        if leave == "click":
            recipients.click(NAME, 4)
        else:
            hands.press(leave)
        recipients.expect({1: (wanted, "")})


def _by_f2(hands, recipients):
    recipients.click(NAME, 1)
    hands.press("F2")


def _by_double_click(hands, recipients):
    recipients.click(NAME, 1, times=2)


_in_place("F2 and a syllable at the end", _by_f2, (), "김하늘녕", "click")
_in_place("A double click and a syllable at the end", _by_double_click, (), "김하늘녕", "click")
_in_place("F2 and a syllable at the start", _by_f2, ("Home",), "녕김하늘", "click")
_in_place("F2 and a syllable in the middle", _by_f2, ("Left",), "김하녕늘", "Return")
_in_place("A double click and a syllable in the middle", _by_double_click, ("Home", "Right"), "김녕하늘", "Tab")


@scene("A name that was typed straight is mended in its middle without leaving the cell")
def _mended(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("김늘")
    hands.press("Left")
    hands.write("하")
    recipients.click(NAME, 2)
    recipients.expect({1: ("김하늘", "")})


@scene("A click into the name under way puts the caret there")
def _clicked_into(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("하늘")
    left, top, _, height = recipients.table.cell(NAME, 1).box
    hands.click((left + 4, top + height // 2))
    hands.write("김")
    hands.press("Return")
    recipients.await_cell(PHONE, 1)
    recipients.expect({1: ("김하늘", "")})


@scene("Of seven syllables six go in, and none into the cell that is clicked next")
def _at_the_limit(hands):
    hands.pace = 5
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("가나다라마바사")
    recipients.click(NAME, 2)
    recipients.expect({1: ("가나다라마바", "")})


@scene("A syllable in the middle of a full name finds no room and pushes none out")
def _full(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("가나다라마바")
    hands.press("Return")
    recipients.await_cell(PHONE, 1)
    recipients.click(NAME, 1)
    hands.press("F2", "Home")
    hands.write("녕")
    hands.press("Return")
    recipients.await_cell(PHONE, 1)
    recipients.expect({1: ("가나다라마바", "")})


@scene("Backspace takes a syllable that is under way back letter by letter")
def _backspace(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("김한")
    hands.press("BackSpace", "BackSpace", "BackSpace", "Return")
    recipients.await_cell(PHONE, 1)
    recipients.expect({1: ("김", "")})
