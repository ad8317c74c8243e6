"""What goes out is what was typed."""

import datetime

from recipients import NAME, PHONE, Recipients
from scenes import scene

MESSAGE = "문자메시지 내용"
DISPATCH = "문자메시지 발송하기"
SENT = "문자메세지 전송 완료!!!"


def _log():
    return f"SMSLog_{datetime.date.today().year}"


@scene("A message with a name is sent to the letter, with a syllable under way as 발송 is clicked")
def _send(hands):
    recipients = Recipients(hands)
    last = hands.rows(f"SELECT max(SMSKey) FROM {_log()}")[0][0]
    hands.click(MESSAGE)
    hands.press("ctrl+a", "Delete")
    hands.write("[받는사람]님 안녕")
    recipients.click(PHONE, 1)
    hands.write("010-0000-0001")
    recipients.click(NAME, 1)
    hands.write("김씨")
    hands.click("발송")
    hands.wait_for(DISPATCH)
    hands.press("F12")
    hands.wait_for(SENT)
    hands.press("Return")
    hands.wait_gone(SENT)
    sent = hands.rows(f"SELECT SendNm, SendTelNo, SMSContent FROM {_log()} WHERE SMSKey > {last}")
    hands.expect("the log", sent, [("김씨", "010-0000-0001", "김씨님 안녕")])
    recipients.expect({1: ("김씨", "010-0000-0001")})


@scene("Enter that is held down on 발송 opens the dialog, and sends nothing")
def _held(hands):
    recipients = Recipients(hands)
    last = hands.rows(f"SELECT max(SMSKey) FROM {_log()}")[0][0]
    hands.click(MESSAGE)
    hands.write("안녕")
    recipients.click(PHONE, 1)
    hands.write("010-0000-0001\n")
    recipients.await_cell(NAME, 2)
    hands.press("Tab", "Tab")
    hands.wait(lambda: hands.the("발송").has_focus, "발송 with the focus")
    hands.hold("Return", seconds=1.5)
    hands.wait_for(DISPATCH)
    hands.expect("the log", hands.rows(f"SELECT max(SMSKey) FROM {_log()}")[0][0], last)
    hands.press("Escape")
    hands.wait_gone(DISPATCH)
