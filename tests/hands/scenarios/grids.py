"""Blocks of cells, the menu of a grid, and the keys around it."""

from recipients import NAME, PHONE, Recipients
from scenes import scene


def _two_recipients(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("혜진\n010-0000-0001\n김하늘\n010-0000-0002\n")
    recipients.await_cell(NAME, 3)
    return recipients


TWICE = {1: ("혜진", "010-0000-0001"), 2: ("김하늘", "010-0000-0002"),
         5: ("혜진", "010-0000-0001"), 6: ("김하늘", "010-0000-0002")}


@scene("A block drawn by the mouse is copied and pasted elsewhere")
def _drag(hands):
    recipients = _two_recipients(hands)
    hands.drag(recipients.table.cell(NAME, 1), recipients.table.cell(PHONE, 2))
    hands.press("ctrl+c")
    recipients.click(NAME, 5)
    hands.press("ctrl+v")
    recipients.expect(TWICE)


# The platform tells of a menu that is open, but not to who looks for it: its entries are chosen by keys.


@scene("A block drawn by Shift and the arrows is copied by the menu of a key and pasted by that of the mouse")
def _menus(hands):
    recipients = _two_recipients(hands)
    recipients.click(NAME, 1)
    hands.press("shift+Right", "shift+Down", "Menu")
    hands.choose("Down", "Return")
    hands.open_menu(recipients.table.cell(NAME, 5))
    hands.choose("Down", "Down", "Return")
    recipients.expect(TWICE)


@scene("Shift and F10 open the menu of a block, Esc closes it alone, and its last entry empties the block")
def _clear(hands):
    recipients = _two_recipients(hands)
    recipients.click(NAME, 2)
    hands.press("shift+End", "shift+F10")
    hands.choose("Escape")
    hands.press("shift+F10")
    hands.choose("Up", "Return")
    recipients.expect({1: ("혜진", "010-0000-0001")})


@scene("Tab stays in an open popup")
def _popup(hands):
    hands.click("문자서식")
    hands.click("변환문구")
    for keys, words in (((), "[받는사람]"), (("Tab",), "[보내는사람]"), (("Tab", "Tab"), "[받는사람]")):
        if keys:
            hands.press(*keys)
        hands.wait(lambda: hands.the(words).has_focus, f"'{words}' with the focus")
    hands.press("shift+Tab", "space")  # the button that closes
    hands.click("문자발송")
