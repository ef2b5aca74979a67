#!/usr/bin/env python3
"""The program in a real window: a display that nobody sees, a window manager, and xdotool for a user's hands.

    real_window.py ZARN SAMPLES_FOLDER

Nothing here waits for a fixed time: each step asks again until a deadline. A failure leaves with status 1 and says what
was waited for; without the tools the run is skipped with status 77.
"""
import os
import shutil
import signal
import subprocess
import sys
import tempfile
import time

DEADLINE = 15.0  # seconds for any one step, on a machine that is busy
TOOLS = ("Xvfb", "openbox", "xdotool", "xwininfo", "scrot")


def until(what, ask):
    """Asks until the answer is true, and gives it."""
    end = time.monotonic() + DEADLINE
    while True:
        answer = ask()
        if answer:
            return answer
        if time.monotonic() > end:
            raise AssertionError("waited in vain for: " + what)
        time.sleep(0.02)


class Desk:
    """A display with a window manager and an empty home."""

    def __enter__(self):
        self.home = tempfile.mkdtemp(prefix="zarn-window-")
        self.programs = []
        read, write = os.pipe()
        self.start(["Xvfb", "-displayfd", str(write), "-screen", "0", "1200x900x24", "-nolisten", "tcp"],
                   os.environ, pass_fds=(write,))
        os.close(write)
        with os.fdopen(read) as number:
            display = ":" + number.readline().strip()
        self.env = dict(os.environ, DISPLAY=display, HOME=self.home, XDG_CONFIG_HOME=self.home,
                        XDG_RUNTIME_DIR=self.home, QT_QPA_PLATFORM="xcb", LC_ALL="C.UTF-8")
        self.start(["openbox"], self.env)
        until("a window manager", lambda: "_NET_SUPPORTING_WM_CHECK(WINDOW)" in self.tell("xprop", "-root"))
        return self

    def __exit__(self, *_):
        for program in reversed(self.programs):
            if program.poll() is None:
                program.send_signal(signal.SIGTERM)
                try:
                    program.wait(5)
                except subprocess.TimeoutExpired:
                    program.kill()
        shutil.rmtree(self.home, ignore_errors=True)

    def start(self, words, env, **more):
        program = subprocess.Popen(words, env=env, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, **more)
        self.programs.append(program)
        return program

    def tell(self, *words):
        return subprocess.run(words, env=self.env, capture_output=True, text=True, timeout=DEADLINE).stdout

    def do(self, *words):
        subprocess.run(("xdotool",) + words, env=self.env, capture_output=True, timeout=DEADLINE, check=False)

    def keys(self, *keys):
        self.do("key", "--delay", "20", *keys)

    def titles(self):
        """The titles of all windows that can be seen."""
        windows = self.tell("xdotool", "search", "--onlyvisible", "--name", ".").split()
        return [self.tell("xdotool", "getwindowname", window).strip() for window in windows]

    def shows(self, title):
        try:
            until("a window called " + title, lambda: title in self.titles())
        except AssertionError as wrong:
            raise AssertionError("%s; there are: %s" % (wrong, "; ".join(self.titles()))) from None

    def hides(self, title):
        until("no window called " + title, lambda: title not in self.titles())

    def active(self):
        return self.tell("xdotool", "getactivewindow", "getwindowname").strip()

    def picture(self):
        """The bytes of the screen as it is now."""
        path = os.path.join(self.home, "screen.png")
        if os.path.exists(path):
            os.remove(path)
        self.tell("scrot", path)
        with open(path, "rb") as file:
            return file.read()


def opens_a_tune_and_ends_by_the_menu(zarn, samples):
    with Desk() as desk:
        tune = os.path.join(samples, "kesh.abc")
        program = desk.start([zarn, tune], desk.env)
        title = "The Kesh (from file '%s')" % tune
        desk.shows(title)
        until("the keyboard", lambda: desk.active() == title)
        # Stretching redraws the page: the key's way into the program and back to the screen.
        until("a picture that stands", lambda: desk.picture() == desk.picture())
        before = desk.picture()
        desk.keys("plus")
        until("a wider page", lambda: desk.picture() != before)
        desk.keys("ctrl+o")
        until("the dialog", lambda: desk.active() not in (title, ""))
        desk.keys("Escape")
        until("the window again", lambda: desk.active() == title)
        desk.keys("alt+f")
        desk.keys("x")
        # Stretching is no edit, so nothing is asked.
        until("the end", lambda: program.poll() is not None)
        assert program.returncode == 0, "status %s" % program.returncode


def asks_how_to_begin(zarn, _):
    with Desk() as desk:
        program = desk.start([zarn], desk.env)
        desk.shows("Zarn Message")  # the five things to know, on the very first start
        until("the keyboard", lambda: desk.active() == "Zarn Message")
        desk.keys("Return")
        desk.shows("File source")
        until("the keyboard", lambda: desk.active() == "File source")
        desk.keys("Escape")
        desk.hides("File source")
        until("the window", lambda: desk.active() not in ("", "File source"))
        desk.keys("alt+F4")
        until("the end", lambda: program.poll() is not None)
        assert program.returncode == 0, "status %s" % program.returncode


TESTS = (opens_a_tune_and_ends_by_the_menu, asks_how_to_begin)


def main():
    if any(shutil.which(tool) is None for tool in TOOLS):
        print("skipped: not all of %s are there" % ", ".join(TOOLS))
        return 77
    failed = 0
    for test in TESTS:
        try:
            test(*sys.argv[1:3])
            print("passed: " + test.__name__)
        except (AssertionError, subprocess.TimeoutExpired) as wrong:
            failed = 1
            print("FAILED: %s: %s" % (test.__name__, wrong))
    return failed


if __name__ == "__main__":
    sys.exit(main())
