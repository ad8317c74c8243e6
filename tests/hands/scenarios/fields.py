"""Fields: what is marked, dates, the wheel, and what is taken back."""

import time

from hands import BRISK, QUICK
from scenes import scene

MESSAGE = "문자메시지 내용"
SENDER = "보내는사람"
WORDS = "검색어"
FIRST_DAY, LAST_DAY = "검색 시작일", "검색 종료일"
CARD = "정기 모임 안내"

YEAR, MONTH, DAY = 0.12, 0.36, 0.52  # where the parts stand in a date field, of its width
PAUSE = 1.2  # seconds behind which typing is another step, and some more
WHEEL_ACTS = 0.3  # seconds within which a turn of the wheel would have acted


def _part(field, share):
    left, top, width, height = field.box
    return int(left + width * share), top + height // 2


@scene("A click on the sender's number marks it, and what is typed takes its place")
def _marked(hands):
    field = hands.the(SENDER)
    before = field.text
    hands.click(MESSAGE)
    hands.click(_part(field, 0.2))
    hands.wait(lambda: field.selection == (0, len(before)), "the whole number marked")
    hands.write("02")
    hands.wait(lambda: field.text == "02", "the number that was typed")
    hands.press("ctrl+z")
    hands.wait(lambda: field.text == before, "the former number")


@scene("The wheel over a list or a date without the focus changes nothing and takes no focus")
def _wheel(hands):
    message = hands.the(MESSAGE)
    hands.click(message.middle)
    card = hands.the(CARD)
    left, top, width, height = card.box
    hands.turn_wheel((left + 480, top - 35), 3)  # the list of categories, above the last card
    time.sleep(WHEEL_ACTS)
    hands.the(CARD)
    hands.expect("the focus in the message", message.has_focus, True)
    hands.click("발송내역")
    words, first = hands.the(WORDS), hands.the(FIRST_DAY)
    hands.wait(lambda: words.has_focus, "the focus in the search")
    before = first.text
    hands.turn_wheel(first, 3)
    time.sleep(WHEEL_ACTS)
    hands.expect("the first day", first.text, before)
    hands.expect("the focus in the search", words.has_focus, True)
    hands.click("문자발송")


def _days(hands):
    hands.click("발송내역")
    first, last = hands.the(FIRST_DAY), hands.the(LAST_DAY)
    _type(hands, first, "2012-05-31")
    hands.click(_part(last, YEAR))
    hands.expect("the first day", first.text, "2012-05-31")
    return first, last


def _type(hands, field, date):
    hands.click(_part(field, YEAR))
    hands.pace = QUICK
    hands.write(date)
    hands.pace = BRISK
    hands.wait(lambda: field.text == date, date)


def _leave(hands, first, last):
    _type(hands, first, last.text)  # two days of different years would bring a box at the next entry
    hands.click("문자발송")


def _date(sentence, part, keys, wanted):
    @scene(sentence)
    def play(hands):
        first, last = _days(hands)
        hands.click(_part(first, part))
        hands.write(keys)
        hands.press("Tab")
        hands.wait(lambda: last.has_focus, "the focus in the next field")
        hands.expect("the first day", first.text, wanted)
        _leave(hands, first, last)


_date("A date typed as it is shown is that date", YEAR, "2019-05-06", "2019-05-06")
_date("Also from another part", MONTH, "2019-05-06", "2019-05-06")
_date("Eight digits are a date", DAY, "20190506", "2019-05-06")
_date("Digits after a click on a part replace that part", MONTH, "10", "2012-10-31")
_date("A date that does not exist gives way to the one that stood there", MONTH, "0230", "2012-05-31")


@scene("The wheel steps the part under the caret of the date that has the focus")
def _step(hands):
    first, last = _days(hands)
    hands.click(_part(first, MONTH))
    hands.turn_wheel(first, 1)
    hands.wait(lambda: first.text == "2012-04-30", "the month before")
    hands.press("Up")
    hands.wait(lambda: first.text == "2012-05-30", "the month again")
    _leave(hands, first, last)


@scene("What is typed in Hangul is taken back by words, and a chosen card in one step")
def _undo(hands):
    message = hands.the(MESSAGE)
    hands.click(message.middle)
    hands.press("ctrl+a", "Delete")
    hands.write("안녕 하세요 여러분")
    left, top, width, height = hands.the(CARD).box
    hands.click((left + width // 2, top + 60))
    hands.wait(lambda: message.text.startswith("[받는사람]"), "the text of the card")
    hands.click(message.middle)
    for wanted in ("안녕 하세요 여러분", "안녕 하세요 ", "안녕 "):
        hands.press("ctrl+z")
        hands.wait(lambda: message.text == wanted, wanted)
    hands.press("ctrl+y")
    hands.wait(lambda: message.text == "안녕 하세요 ", "the word again")


@scene("What is typed behind a pause is taken back by itself")
def _undo_behind_a_pause(hands):
    message = hands.the(MESSAGE)
    hands.click(message.middle)
    hands.press("ctrl+a", "Delete")
    hands.write("안녕")
    time.sleep(PAUSE)
    hands.write("하세요")
    hands.press("ctrl+z")
    hands.wait(lambda: message.text == "안녕", "what was typed before the pause")
