"""A person without a plan: opens a screen, plays there at random with keys, mouse, clipboard and window manager,
comes home and looks whether all is well. What is done is written down, act by act.
HANDS_HOW is "<seconds> <seed>".   free.py <folder of the programs> <folder for what is written>"""

import contextlib
import json
import os
import pathlib
import random
import re
import subprocess
import sys
import time

from gi.repository import GLib

from hands import MAIN, Hands, Wrong

QUESTION = "프로그램 종료"
MESSAGE, RECIPIENTS = "문자메시지 내용", "받는사람 목록"
MOST_ESCAPES = 90
AT_REST = 40  # ticks of the processor in a second that a program at rest may take

# Keys of the window manager, by which a person closes, minimises, enlarges and changes windows.
OPENBOX = """<openbox_config xmlns="http://openbox.org/3.4/rc"><focus><focusNew>yes</focusNew></focus><mouse></mouse>
<keyboard><keybind key="W-x"><action name="Close"/></keybind><keybind key="W-m"><action name="Iconify"/></keybind>
<keybind key="W-f"><action name="ToggleFullscreen"/></keybind><keybind key="W-n"><action name="NextWindow">
<finalactions><action name="Focus"/><action name="Raise"/></finalactions></action></keybind></keyboard>
</openbox_config>"""
MANAGER = "super+x super+x super+x super+m super+n super+n super+f".split()
WALKS = "Up Down Left Right Home End Prior Next".split()
KEYS = (["Return", "Tab"] * 8 + ["space"] * 6 + "shift+Tab F12 F2 F4 BackSpace Delete Hangul ctrl+v ctrl+z".split() * 4
        + [held + walk for held in ("", "", "shift+", "ctrl+", "ctrl+shift+", "alt+") for walk in WALKS]
        + "ctrl+a ctrl+c ctrl+x ctrl+y shift+Insert ctrl+BackSpace Menu shift+F10 shift+space F5 Escape".split() * 2
        + list("0123456789rkskekfkRQaz") + ["minus", "period", "slash", "bracketleft"])
PASTES = ["[받는사람]님, [보내는사람]입니다.", "한" * 39 + "a", "한" * 40 + "b", "a" * 79 + "한", "가" * 5000,
          "x" * 1_000_000, "줄\n" * 2000, "\t" * 50, "a\tb\tc\n" * 300, "", " ", "\r\n\r\n", "010-0000-0001\n" * 30,
          "김하늘\t010-1234-5678\n이바다\t011-222-3333\n", "-1", "2147483648", "1e9", "1,000", "2026-11-23", "20261301",
          "😀👍🏽👨‍👩‍👧‍👦" * 20, "é̂" * 80, "\u202eabc\u202c", "똠방각하 펲시", "■■■", "%_[]^", "<b>굵게</b>&amp;",
          "\x01\x1b\x7f", "\x00NUL", "\udc80\ud800 halves", "\u2028\u2029", "a'b\"c;--"]
HARMFUL = 4  # the last of them: a message with one leaves no row in the log
FAULTS = ("late=1500 refuse@3 short drop@2 cut@4 soap-fault@3 garbage@2 leave@5 wsdl-missing wsdl-late=1200 wsdl-cut"
          " gone").split()
HARMLESS = ["late=300", "late=50", "twice=20", "twice=500"]

# The words on the way to each screen.
SCREENS = [words.split("/") for words in (
    "문자발송", "문자발송/발송", "발송내역", "요금현황", "발송내역/상세보기", "요금현황/등록", "문자서식", "문자서식/특수문자", "환경설정", "문자발송/주소록",
    "문자발송/주소록/그룹 등록", "문자발송/주소록/구성원 등록", "문자발송/엑셀파일/찾기", "발송내역/엑셀변환")]


class Ended(Exception):
    """The program, as it was told to."""


class Stroller(Hands):
    def __init__(self, programs, out, seed):
        super().__init__(programs, out)
        self._dice = random.Random(seed)
        self._acts = open(f"{out}/acts-{seed}.jsonl", "w", encoding="utf-8")
        self._begin = time.monotonic()
        self._gateway, self._taken = None, set()
        # By what may keep a message out of the log, or the balance from falling.
        self._disturbed = self._dice.random() < 0.6

    # Acts.
    def act(self, what, *how):
        self._acts.write(json.dumps([round(time.monotonic() - self._begin, 2), what, *how]) + "\n")
        self._acts.flush()
        getattr(self, "_do_" + what)(*how)

    def _do_keys(self, delay, *keys):
        self._tool.do("key", "--delay", delay, *keys)

    def _do_click(self, x, y, button=1, times=1, held="Shift_R"):
        self._tool.do("keydown" if held != "Shift_R" else "keyup", held, "mousemove", x, y,
                      "click", "--repeat", times, "--delay", 40, button, "keyup", held)

    def _do_drag(self, button, meanwhile, *way):
        moves = [word for place in way[1:] for word in ("mousemove", *place, "sleep", 0.01)]
        self._tool.do("mousemove", *way[0], "mousedown", button, *moves, "key", meanwhile, "mouseup", button)

    def _do_paste(self, text, *keys):
        pathlib.Path(f"{self.out}/clip").write_bytes(text.encode("utf-8", "surrogatepass"))
        subprocess.run(["xclip", "-selection", "clipboard", "-i", f"{self.out}/clip"], check=True,
                       stdout=subprocess.DEVNULL)
        self._do_keys(5, *keys)

    def _do_gateway(self, fault):
        """Another one in the place of the one that there is; "gone": none."""
        self.end_gateway()
        if fault == "gone":
            return
        with open(f"{self.out}/held.json", "w", encoding="utf-8") as held:
            subprocess.run([f"{self.programs}/tsms-db", "reservations", self.database], stdout=held, check=True)
        with open(f"{self.out}/gateway.log", "w", encoding="utf-8") as log:
            self._gateway = subprocess.Popen(
                [f"{self.programs}/tsms-gateway", "--hold", held.name, "--fault", fault], stdout=log)

    def end_gateway(self):
        if self._gateway:
            self._gateway.kill()
            self._gateway.wait()
            log = pathlib.Path(f"{self.out}/gateway.log").read_text(encoding="utf-8")
            self._taken |= set(re.findall(r"^문자 (\d+):", log, re.M))  # a reserved one may be withdrawn
        self._gateway = None

    # Eyes.
    def answers(self):
        """The windows, as the program tells them in time."""
        if self._process.poll() == 0:
            raise Ended
        self._still_runs()
        return self.screen.windows()

    def _is_asked(self):
        windows = self.answers()
        try:
            return any(window.name == QUESTION for window in windows)
        except GLib.Error:  # one of them has gone
            return False

    # What comes to mind.
    def _place(self):
        """On something that was seen of late, or anywhere."""
        try:
            left, top, width, height = self._dice.choice(list(self._known.values())).box
            if self._dice.random() < 0.85 and width > 0 and height > 0:
                return max(0, left + self._dice.randrange(width)), max(0, top + self._dice.randrange(height))
        except GLib.Error:
            pass  # it has gone
        return self._dice.randrange(1280), self._dice.randrange(900)

    def do_something(self):
        one = self._dice.choice
        kind = self._dice.choices(["keys", "click", "drag", "paste", "manager", "gateway"],
                                  [34, 38, 8, 9, 3, 1.5])[0]
        if kind == "keys":
            self.act("keys", one([0, 5, 30]), *self._dice.choices(KEYS, k=one([1, 1, 2, 3, 6, 12])))
        elif kind == "click":
            self.act("click", *self._place(), one([1] * 8 + [3, 3, 2, 4, 5]), one([1] * 6 + [2, 2, 3]),
                     one(["Shift_R"] * 8 + ["shift", "ctrl", "alt"]))
        elif kind == "drag":
            way = [self._place() for _ in range(one([2, 2, 3, 6]))] + one([[]] * 4 + [[(0, 0)], [(1279, 899)]])
            self.act("drag", one([1, 1, 1, 3, 2]), one(["Shift_R"] * 6 + ["Escape", "Return", "super+x", "F12"]), *way)
        elif kind == "paste":
            self.act("paste", one(PASTES if self._disturbed else PASTES[:-HARMFUL]),
                     *one([["ctrl+v"], ["ctrl+a", "ctrl+v"], ["ctrl+v", "ctrl+v"]]))
        elif kind == "manager":
            self.act("keys", 5, one(MANAGER))
        elif self._disturbed:
            self.act("gateway", one(FAULTS))

    # From home to a screen, and back.
    def open(self, way):
        self.act("gateway", self._dice.choice(HARMLESS))  # another one in a run would disturb
        if way[-1] == "발송":
            rows = "".join(f"이름{n}\t010-0000-{n:04}\n" for n in range(self._dice.choice([1, 3, 25])))
            self.act("click", *self.the("비우기").middle)
            self.act("click", *self.the(MESSAGE).middle)
            self.act("paste", "[받는사람]님 안녕하세요", "ctrl+a", "ctrl+v")
            self.act("click", *self.the(RECIPIENTS).cell(2, 1).middle)
            self.act("paste", rows, "ctrl+v")
        for words in way:
            self.act("click", *self.the(words).middle)
            self.answers()

    def come_home(self):
        """By Escape, until the program asks whether it is to end."""
        if self._disturbed:
            self.act("gateway", HARMLESS[0])
        for _ in range(MOST_ESCAPES):
            if self._is_asked():
                break
            if not self._windows():  # minimised
                self._x("search", "--name", f"^{MAIN}$", "windowactivate", check=False)
            self.act("keys", 5, "Escape")
            time.sleep(0.25)
        self.act("keys", 5, "Escape")
        self.wait_gone(QUESTION)
        self.wait_for(MAIN)
        self._x("getactivewindow", "windowmove", "140", "100", check=False)
        self.act("click", *self.the("문자발송").middle)
        self.the("비우기")  # other pages have a message too

    def _windows(self):
        return self._x("search", "--onlyvisible", "--class", "^tsms$", check=False).split()

    def is_well(self):
        """At home: one window, a message that takes a key, and rest."""
        self.expect("the windows on view", len(self._windows()), 1)
        message = self.the(MESSAGE)
        self.act("click", *message.middle)
        for text, *keys in (("", "ctrl+a", "Delete"), ("7", "7"), ("", "BackSpace")):
            self.act("keys", 20, *keys)
            self.wait(lambda text=text: message.text == text, f"the message '{text}'")
        begin = self._ticks()
        time.sleep(1.0)
        self.expect("at rest", self._ticks() - begin < AT_REST, True)

    def _ticks(self):
        stat = pathlib.Path(f"/proc/{self._process.pid}/stat").read_text(encoding="utf-8")
        return sum(map(int, stat.rsplit(")", 1)[1].split()[11:13]))

    def _books(self):
        """The gateway's numbers in the log, and what stays as it is whatever is sent, withdrawn and charged."""
        tables = self.rows("SELECT name FROM sqlite_master WHERE type = 'table' AND name LIKE 'SMSLog%'")
        numbers = [number for (table,) in tables for (number,) in self.rows(
            f"SELECT SMSNo FROM {table} WHERE SMSStatus COLLATE BINARY IN ('0', '1')")]
        balance = "SELECT SMSRemainCnt - (SELECT sum(ChargeCnt) FROM SMSCharge) FROM SMSSetup"
        return set(numbers), len(numbers) + self.rows(balance)[0][0]

    def live(self, until):
        """From a start of the program to its end."""
        self.start()
        _, first = self._books()
        try:
            while time.monotonic() < until:
                self.open(self._dice.choice(SCREENS))
                for step in range(self._dice.choice([15, 40, 70])):
                    if step % 20 == 0:
                        self._find("")  # looks at all that is on view
                    self.do_something()
                    if self._is_asked() and self._dice.random() < 0.9:
                        self.act("keys", 5, "Escape")
                self.come_home()
                self.is_well()
        except Ended:
            pass
        self.end_gateway()
        if not self._disturbed:
            logged, last = self._books()
            self.expect("the balance, the charges and the log", last, first)
            self.expect("taken and not in the log", self._taken - logged, set())

    def exit_status(self):
        """None while it runs. A sanitizer takes its time to tell what it has found."""
        with contextlib.suppress(subprocess.TimeoutExpired):
            return self._process.wait(60)


def main(programs, out):
    seconds, seed = os.environ["HANDS_HOW"].split()
    os.kill(int(os.environ["gateway"]), 15)  # each life has its own
    pathlib.Path(f"{out}/openbox.xml").write_text(OPENBOX, encoding="utf-8")
    subprocess.run(["openbox", "--reconfigure"], check=True)
    until = time.monotonic() + float(seconds)
    life, finds = 0, 0
    while time.monotonic() < until:
        life += 1
        person = Stroller(programs, out, f"{seed}-{life}")
        try:
            person.live(until)
        except (Wrong, GLib.Error) as find:
            person.picture(f"find-{seed}-{life}")
            print(f"  life {seed}-{life}: {find}")
            finds += person.exit_status() != 0
        finally:
            person.end_gateway()
            person.end()
    print(f"{life} lives, {finds} finds; what the program said is in {out}/tsms.log")
    return 1 if finds else 0


if __name__ == "__main__":
    sys.exit(main(*sys.argv[1:3]))
