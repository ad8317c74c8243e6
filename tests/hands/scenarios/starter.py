"""The starter beside the running program: fields, lists and what they tell, from no connection to a start."""

import contextlib
import os
import pathlib
import shutil
import signal
import subprocess
import time

from hands import MAIN, PATIENCE
from scenes import scene
from screen import ACCESSIBLE, SHOWING, TEXT

STARTER = "문자메시지"
NEW, TEST, PASSWORD = "새 연결", "연결 시험", "비밀번호"
LIST, STEPS, WORDS = "연결", "확인 목록", "할 일"
NAME, SERVER, PORT, DATABASE, LOGIN = "연결이름", "서버", "포트", "데이터베이스", "로그인"
# In the home that the session has for itself.
KEPT = pathlib.Path.home() / ".config/tsms/tsms-start.conf"
DATA = pathlib.Path.home() / ".local/share/tsms"
SECRET = "secret"
PASSWORD_TEXT = 40  # the number of a role of AT-SPI, whose name Qt does not tell

# Seconds in which an input method learns of a program that has just begun: until then keys are letters.
METHOD_COMES = 1.0

# Nobody listens on the first port.
NOWHERE = {"id": "1", "name": "본사", "kind": "server", "server": "127.0.0.1", "port": "1", "database": "SmsDb",
           "login": "sms", "number": "1"}


def _begin(hands, connections):
    """Its process; these are the connections that its user has set up."""
    shutil.rmtree(DATA, ignore_errors=True)
    lines = [f"{number}\\{key}={value}" for number, one in enumerate(connections, 1) for key, value in one.items()]
    KEPT.parent.mkdir(parents=True, exist_ok=True)
    KEPT.write_text("\n".join(["[connections]", *lines, f"size={len(connections)}", ""]), encoding="utf-8")
    with open(f"{hands.out}/tsms-start.log", "a", encoding="utf-8") as log:
        return subprocess.Popen([f"{hands.programs}/tsms-start"], stdout=log, stderr=log,
                                env=dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"))


@contextlib.contextmanager
def _started(hands, *connections):
    process = _begin(hands, connections)
    try:
        hands.wait_for(STARTER)
        yield process
    finally:
        process.terminate()
        process.wait()
        hands.wait_gone(STARTER)


def _window(hands, title):
    return hands.wait(lambda: next((window for window in hands.screen.windows() if window.name == title), None),
                      f"a window told of as '{title}'")


def _fields(thing):
    """The fields within it that are on view."""
    if not thing.has(SHOWING):
        return []
    own = [thing] if thing.role in ("text", "radio button", "check box") else []
    return own + [field for child in thing.children() for field in _fields(child)]


def _expect_secret(hands, title):
    """The field for a password has taken each key for itself, and tells none of them."""
    field = next(field for field in _fields(_window(hands, title)) if field.name == PASSWORD)
    hands.expect("its role", field.call(ACCESSIBLE, "GetRole"), PASSWORD_TEXT)
    hands.wait(lambda: field.value(TEXT, "CharacterCount") == len(SECRET), "as many signs as keys")
    hands.expect("what it tells", field.text, "")


def _answered_by_nobody(hands):
    """The rows of a finished test of a server that is not there."""
    steps = hands.the(STEPS)
    hands.wait(lambda: steps.rows == 8 and steps.cell(3, 8).name == "이상 없음", "the end of the test")
    return steps


@scene("A connection is set up by keys alone, with its name and text in Hangul and its password without a method")
def _new(hands):
    with _started(hands):
        hands.press("space")
        hands.wait_for(NEW)
        time.sleep(METHOD_COMES)
        hands.write("본사")
        hands.press("Tab", "Right", "Tab")
        for value in ("127.0.0.1", "1433", "1", "2"):
            hands.write(value)
            hands.press("Tab")
        hands.write(SECRET)
        _expect_secret(hands, NEW)
        hands.press("Tab", "Tab", "Tab")
        hands.write("안녕")
        dialog = _window(hands, NEW)
        hands.expect("the fields", [field.name for field in _fields(dialog)],
                     [NAME, "데이터베이스 파일", "SQL Server", SERVER, PORT, DATABASE, LOGIN, PASSWORD,
                      "비밀번호를 데스크톱의 암호 보관함에 저장", "호출번호", "호출문구"])
        hands.press("F12")
        hands.wait_gone(NEW)
        hands.expect("the list", hands.the(LIST).texts(1, 2), [("본사", "127.0.0.1,1433 / 1")])
        kept = KEPT.read_text(encoding="utf-8")
        hands.expect("its text", [line for line in kept.splitlines() if "text=" in line], ["1\\text=안녕"])
        hands.expect("the password among the settings", SECRET in kept, False)


@scene("The password is asked for with the hands of a method at rest, and can be refused")
def _asked(hands):
    with _started(hands, NOWHERE):
        hands.press("Return")
        hands.wait_for(PASSWORD)
        hands.write(SECRET)
        _expect_secret(hands, PASSWORD)
        hands.press("Escape")
        hands.wait_gone(PASSWORD)
        hands.wait_for(STARTER)
        hands.expect("the list has the keyboard", hands.the(LIST).active_cell(), (1, 1))


@scene("A test is read line by line, and told by the row on which it stands")
def _test(hands):
    with _started(hands, NOWHERE):
        hands.click(TEST)
        hands.wait_for(PASSWORD)
        hands.write(f"{SECRET}\n")
        hands.wait_for(TEST)
        steps = _answered_by_nobody(hands)
        hands.expect("the results", steps.texts(2, 3)[:3],
                     [("ODBC 드라이버", "이상 없음"), ("서버 응답", "고쳐야 합니다"), ("로그인", "아직 확인하지 못함")])
        hands.wait(lambda: steps.active_cell() == (2, 2), "the first fault chosen")
        hands.expect("what to do", hands.the(WORDS).text.split("\n")[0],
                     "서버 127.0.0.1,1 이(가) 응답하지 않습니다. 다음을 확인하십시오.")
        hands.press("Up")
        hands.wait(lambda: hands.the(WORDS).text == "ODBC 드라이버: 이상이 없습니다.", "the words of the line above")
        hands.click(steps.cell(2, 8))
        hands.wait(lambda: hands.the(WORDS).text == "문자메시지 서버: 이상이 없습니다.", "the words of the last line")
        hands.press("F12")
        _answered_by_nobody(hands)
        hands.press("Escape")
        hands.wait_gone(TEST)


@scene("A file is made by the mouse, and Enter starts the program on it")
def _start(hands):
    with _started(hands) as process:
        hands.click(NEW)
        hands.wait_for(NEW)
        hands.click(NAME)
        time.sleep(METHOD_COMES)
        hands.write("연습")
        hands.click("새 파일에 시연용 자료 채우기")
        hands.click("저장(F12)")
        hands.wait(lambda: hands.the("예"), "the question")
        hands.click("예")
        hands.wait_gone(NEW)
        hands.wait_for(STARTER)
        hands.expect("the list", hands.the(LIST).texts(1), [("연습",)])
        hands.press("Return")
        process.wait(PATIENCE)
        hands.wait(lambda: len(_mains(hands)) == 2, "a second program")
        hands.wait_for(MAIN)
        active = subprocess.run(["xdotool", "getactivewindow", "getwindowpid"], check=True, capture_output=True)
        os.kill(int(active.stdout), signal.SIGTERM)
        hands.wait(lambda: len(_mains(hands)) == 1, "the first program alone")


def _mains(hands):
    return [window for window in hands.screen.windows() if window.name == MAIN]
