"""The list of what was sent."""

from scenes import scene

LIST = "문자메시지 발송내역"
DETAIL = "문자메시지 상세보기"


def _opens_detail(where, place):
    @scene(f"A double click {where} of the sent messages opens the detail")
    def play(hands):
        hands.click("발송내역")
        table = hands.the(LIST)
        hands.wait(lambda: table.rows > 0, "a sent message")
        hands.click(place(table), times=2)
        hands.wait_for(DETAIL)
        hands.press("Escape")
        hands.wait_gone(DETAIL)
        hands.click("문자발송")


def _in_a_row(table):
    return table.cell(6, 1)


def _on_a_title(table):
    _, top, _, _ = table.box
    return _in_a_row(table).middle[0], top + 8


def _below(table):
    _, top, _, height = table.box
    return _in_a_row(table).middle[0], top + height - 40


_opens_detail("in a row", _in_a_row)
_opens_detail("on a title", _on_a_title)
_opens_detail("below the last row", _below)
