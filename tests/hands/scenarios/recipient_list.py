"""The recipient list by keyboard and mouse."""

from recipients import NAME, NUMBER, PHONE, REMOVE, Recipients
from scenes import scene


@scene("Tab goes from the name to the number to the next name")
def _tab_walks(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    for text in ("김하늘", "010-0000-0001", "혜진", "010-0000-0002"):
        hands.write(text)
        hands.press("Tab")
    recipients.await_cell(NAME, 3)
    recipients.expect({1: ("김하늘", "010-0000-0001"), 2: ("혜진", "010-0000-0002")})


@scene("Shift and Tab go back from cell to cell")
def _tab_walks_back(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 2)
    hands.write("혜진")
    hands.press("shift+Tab")
    recipients.await_cell(PHONE, 1)
    hands.write("010")
    hands.press("shift+Tab")
    recipients.await_cell(NAME, 1)
    recipients.expect({1: ("", "010"), 2: ("혜진", "")})


@scene("Where nothing is edited Tab leaves the list, and the number that follows is not the next recipient's")
def _tab_leaves(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.press("Tab")
    hands.wait(lambda: hands.the("보내는사람").has_focus, "the sender's number with the focus")
    recipients.expect({})


@scene("The keyboard comes to the first free name")
def _tab_into(hands):
    recipients = Recipients(hands)
    recipients.click(NAME, 1)
    hands.write("김하늘\n010-0000-0001\n")
    recipients.await_cell(NAME, 2)
    hands.click("문자메시지 내용")
    hands.press("Tab", "Tab", "Tab", "Tab")
    recipients.await_cell(NAME, 2)
    hands.write("혜진")
    hands.press("Return")
    recipients.expect({1: ("김하늘", "010-0000-0001"), 2: ("혜진", "")})


def _remove(how, times):
    @scene(f"A {how} click on x removes one recipient")
    def play(hands):
        recipients = Recipients(hands)
        hands.click(recipients.table.cell(REMOVE, 2), times)
        hands.wait(lambda: recipients.table.rows == 19, "nineteen rows")
        recipients.click(NAME, 10)  # all that was clicked has come by then
        hands.expect("the number of the last row", recipients.table.cell(NUMBER, 19).name, "19")


_remove("single", 1)
_remove("double", 2)
_remove("triple", 3)


@scene("Esc gives a cell that is edited back, and asks for the end of the program only afterwards")
def _escape(hands):
    recipients = Recipients(hands)
    recipients.click(PHONE, 2)
    hands.write("010")
    hands.press("Escape")
    hands.press("Escape")
    hands.wait_for("프로그램 종료")
    hands.press("Escape")
    hands.wait_gone("프로그램 종료")
    recipients.expect({})
