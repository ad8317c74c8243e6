"""From the message into the recipient list."""

from recipients import NAME, PHONE, Recipients
from scenes import scene

MESSAGE = "문자메시지 내용"


def _begin(hands):
    recipients = Recipients(hands)
    hands.click(MESSAGE)
    hands.press("ctrl+a", "Delete")
    hands.wait(lambda: hands.the(MESSAGE).text == "", "the message emptied")
    return recipients


@scene("The last syllable of the message stays in the message when a name is clicked")
def _into_a_name(hands):
    recipients = _begin(hands)
    hands.write("안녕")
    recipients.click(NAME, 1)
    recipients.expect({})
    hands.expect("the message", hands.the(MESSAGE).text, "안녕")


@scene("A name that is typed right after the message begins anew")
def _name_after_message(hands):
    recipients = _begin(hands)
    hands.write("안녕")
    recipients.click(NAME, 1)
    hands.write("녕하")
    hands.press("Return")
    recipients.await_cell(PHONE, 1)
    recipients.expect({1: ("녕하", "")})
    hands.expect("the message", hands.the(MESSAGE).text, "안녕")


@scene("A click within the message leaves the syllable where it was")
def _within(hands):
    recipients = _begin(hands)
    hands.write("가나다")
    left, top, _, _ = hands.the(MESSAGE).box
    hands.click((left + 5, top + 15))
    hands.write("하")
    recipients.expect({})
    hands.expect("the message", hands.the(MESSAGE).text, "하가나다")


@scene("Between two names the message is written")
def _back_and_forth(hands):
    recipients = _begin(hands)
    recipients.click(NAME, 1)
    hands.write("김하늘")
    hands.click(MESSAGE)
    hands.write("안녕")
    recipients.click(NAME, 2)
    hands.write("혜진")
    hands.click(MESSAGE)
    hands.write("하세요")
    recipients.expect({1: ("김하늘", ""), 2: ("혜진", "")})
    hands.expect("the message", hands.the(MESSAGE).text, "안녕하세요")
