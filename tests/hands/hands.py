"""A person's hands on the program, and eyes on the screen. Nothing is tried twice: what is awaited is awaited until
it is there, and then the next thing is done."""

import contextlib
import glob
import os
import signal
import sqlite3
import subprocess
import time

from gi.repository import GLib

from keys import hangul_keys
from screen import SHOWING, Screen

PATIENCE = 10.0  # seconds until what does not come is missed
TO_THE_MOUSE = 0.25  # seconds that a hand takes from the keyboard to the mouse
DOUBLE_CLICK = 0.5  # seconds within which two clicks are one double click, and some more
# Milliseconds between two keys: of a person who types well, and where the typing is not what is looked at.
BRISK, QUICK = 30, 5

MAIN = "TSMS문자메시지"


class Wrong(Exception):
    """What was seen is not what was to be."""


class Tool:
    """One xdotool for all keys and all of the mouse: to start one takes longer than a quick key."""

    def __init__(self):
        self._process = subprocess.Popen(["xdotool", "-"], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)

    def do(self, *words):
        """Returns when it is done: it then tells the size of the display."""
        self._process.stdin.write(" ".join(map(str, words)) + "\ngetdisplaygeometry\n")
        self._process.stdin.flush()
        if not self._process.stdout.readline():
            raise Wrong("xdotool has ended")

    def end(self):
        self._process.stdin.close()
        self._process.wait()


class Hands:
    def __init__(self, programs, out):
        self._tool = Tool()
        self.programs = programs
        self.out = out
        self._process = None
        self._typed = 0.0  # when the last key was pressed
        self._clicked = 0.0
        self._known = {}
        self.screen = Screen()
        self.pace = BRISK

    # The program.
    def start(self):
        """On a demo database of its own."""
        self.database = f"{self.out}/demo.db"
        for file in glob.glob(f"{self.database}*"):  # what an ended program kept beside it, too
            os.remove(file)
        subprocess.run([f"{self.programs}/tsms-db", "create", self.database, "--demo"], check=True,
                       stdout=subprocess.DEVNULL)
        log = open(f"{self.out}/tsms.log", "a", encoding="utf-8")
        self._process = subprocess.Popen(
            [f"{self.programs}/tsms", f"{self.database}■(embedded)■0■demo■demo■1■demo"],
            env=dict(os.environ, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1"), stdout=log, stderr=log)
        self._known.clear()
        self.wait_for(MAIN)
        self.the("비우기")

    def end(self):
        self.stop()
        self._tool.end()

    def stop(self):
        if self._process and self.is_running():
            self._process.terminate()
        if self._process:
            self._process.wait()

    def is_running(self):
        return self._process is not None and self._process.poll() is None

    def rows(self, statement):
        """What stands in the database."""
        with sqlite3.connect(f"file:{self.database}?mode=ro", uri=True) as connection:
            return connection.execute(statement).fetchall()

    # Eyes.
    def the(self, words):
        """The control on view that a person knows by these words."""
        return self.wait(lambda: self._known_still(words) or self._find(words), f"'{words}'")

    def is_there(self, title):
        """A window of that title."""
        return self._x("search", "--onlyvisible", "--name", f"^{title}$", check=False) != ""

    def wait(self, seen, what):
        """Looks until it is seen; gives what it saw."""
        end = time.monotonic() + PATIENCE
        while True:
            self._still_runs()
            try:
                sight = seen()
            except GLib.Error:  # what was just asked has gone
                sight = None
            if sight:
                return sight
            if time.monotonic() > end:
                self.picture("missed")
                raise Wrong(f"never seen: {what}")
            time.sleep(0.02)

    def wait_for(self, title):
        self.wait(lambda: self._is_active(title), f"the window '{title}'")

    def choose(self, *keys):
        """By keys in the menu that was asked for: nothing follows before it has come, and has gone."""
        self.wait(self._has_menu, "a menu")
        self.press(*keys)
        self.wait(lambda: not self._has_menu(), "the menu gone")

    def wait_gone(self, title):
        self.wait(lambda: not self.is_there(title), f"'{title}' gone")

    def expect(self, what, seen, wanted):
        if seen != wanted:
            self.picture("wrong")
            raise Wrong(f"{what}: {seen!r}, and should be {wanted!r}")

    # Hands.
    def press(self, *keys):
        """Keys as xdotool names them."""
        self._still_runs()
        self._tool.do("key", "--delay", self.pace, *keys)
        self._typed = time.monotonic()

    def hold(self, key, seconds):
        """The server repeats it meanwhile."""
        self._still_runs()
        self._tool.do("keydown", key)
        time.sleep(seconds)
        self._tool.do("keyup", key)
        self._typed = time.monotonic()

    @contextlib.contextmanager
    def while_it_stands_still(self):
        """As on a machine that is too busy: what is done meanwhile reaches the program all at once."""
        self._process.send_signal(signal.SIGSTOP)
        try:
            yield
        finally:
            self._process.send_signal(signal.SIGCONT)

    def keys_have_arrived(self):
        """Their effect was seen: the hand has had its time."""
        self._typed = 0.0

    def write(self, text):
        """Hangul by the input method; all else by the keys of its characters."""
        self.press(*_key_names(text))

    def click(self, place, times=1):
        """On a control or cell; or on what has these words."""
        self._to_the_mouse(place)
        if times > 1:  # not to be taken with the click before
            time.sleep(max(0.0, self._clicked + DOUBLE_CLICK - time.monotonic()))
        self._tool.do("click", "--repeat", times, "--delay", 60, 1)
        self._clicked = time.monotonic()

    def open_menu(self, place):
        """By the right button."""
        self._to_the_mouse(place)
        self._tool.do("click", 3)

    def drag(self, place, to):
        self._to_the_mouse(place)
        self._tool.do("mousedown", 1)
        self._to_the_mouse(to)
        self._tool.do("mouseup", 1)

    def turn_wheel(self, place, notches):
        """Down; with a negative number up."""
        self._to_the_mouse(place)
        self._tool.do("click", "--repeat", abs(notches), "--delay", self.pace, 5 if notches > 0 else 4)

    def picture(self, name):
        subprocess.run(["import", "-window", "root", f"{self.out}/{name}.png"], check=False)

    def _to_the_mouse(self, place):
        self._still_runs()
        if isinstance(place, str):
            place = self.the(place)
        time.sleep(max(0.0, self._typed + TO_THE_MOUSE - time.monotonic()))
        x, y = place if isinstance(place, tuple) else place.middle
        self._tool.do("mousemove", x, y)

    def _find(self, words):
        for window in self.screen.windows():  # those in front come last
            self._known.update(window.by_words())
        return self._known_still(words)

    def _known_still(self, words):
        """Where it was the last time it was looked for, which saves a walk through the window."""
        thing = self._known.get(words)
        try:
            return thing if thing and thing.has(SHOWING) and thing.is_known_by(words) else None
        except GLib.Error:  # its program has ended
            return None

    def _is_active(self, title):
        window = self._x("getactivewindow", check=False)
        return window and self._x("getwindowname", window, check=False) == title

    def _has_menu(self):
        """Over the main window. It has no title to be found by."""
        return len(self._x("search", "--onlyvisible", "--class", "^tsms$", check=False).split()) > 1

    def _still_runs(self):
        if not self.is_running():
            raise Wrong(f"the program ended by itself ({self._process.returncode})")

    @staticmethod
    def _x(*words, check=True):
        done = subprocess.run(["xdotool", *words], check=check, capture_output=True, text=True)
        return done.stdout.strip()


def _is_hangul(character):
    return "가" <= character <= "힣"


KEY_NAMES = {" ": "space", "-": "minus", "\n": "Return", ".": "period", "/": "slash", "[": "bracketleft",
             "]": "bracketright"}


def _key_names(text):
    keys = []
    for character in text:
        keys += hangul_keys(character) if _is_hangul(character) else [KEY_NAMES.get(character, character)]
    return keys
