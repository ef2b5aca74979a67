#!/usr/bin/env python3
"""The program as it stands on a screen: a window under a window manager, keys as a keyboard sends them, the picture as
a monitor shows it.

    real_window.py ZARN SAMPLES_FOLDER

Nothing here waits for luck: each step looks again and again until what it expects is there, or the deadline is past.
Without the tools the run is skipped with status 77.
"""
import os
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

TOOLS = ("Xvfb", "openbox", "xdotool")
SKIPPED = 77
DEADLINE_S = 15  # for any one step, on a machine that is busy
LOOK_AGAIN_S = 0.02
FIRST_DISPLAY = 1000
DISPLAYS = 10000
SCREEN = (1000, 700)
LINES_OF_STAFF = 5
MENU_BAR_ROWS = 60  # title and menu, at most
COOLEY = "Cooley's (from file 'cooley.abc')"


class Screen:
    """A display that nobody sees, with a window manager; its picture lies in a file."""

    def __init__(self, folder):
        self.processes = []
        self.picture_file = os.path.join(folder, "Xvfb_screen0")
        self.env = {k: os.environ[k] for k in os.environ if not k.startswith(("QT_", "XDG_", "DBUS_", "WAYLAND_"))}
        self.env.update(HOME=folder, XDG_RUNTIME_DIR=folder, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb")
        self.env["DISPLAY"] = self.start_display(folder)
        manager = self.start(["openbox", "--sm-disable"])
        wait_until("the window manager", lambda: self.ask("get_num_desktops") is not None, manager)

    def start_display(self, folder):
        """Under a number of our own: displays that look for a free one can find the same at the same time."""
        first = FIRST_DISPLAY + os.getpid() % DISPLAYS
        for display in (":%d" % (first + attempt * DISPLAYS) for attempt in range(3)):
            read_end, write_end = os.pipe()
            self.start(["Xvfb", "-displayfd", str(write_end), display, "-screen", "0", "%dx%dx24" % SCREEN,
                        "-fbdir", folder, "-nolisten", "tcp"], pass_fds=[write_end])
            os.close(write_end)
            with os.fdopen(read_end) as number:
                if number.readline():  # comes when the display is there; empty when it has ended
                    return display
        raise AssertionError("no display comes up")

    def start(self, words, **kwargs):
        process = subprocess.Popen(words, env=self.env, stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **kwargs)
        self.processes.append(process)
        return process

    def ask(self, *words):
        """What xdotool answers; None when it can't."""
        done = subprocess.run(["xdotool", *words], env=self.env, capture_output=True, text=True, check=False)
        return done.stdout.rstrip("\n") if done.returncode == 0 else None

    def active_title(self):
        return (self.ask("getactivewindow", "getwindowname") or "").strip()

    def press(self, *keys):
        subprocess.run(["xdotool", "key", *keys], env=self.env, check=True)

    def picture(self):
        """The rows of the screen, four bytes a pixel."""
        with open(self.picture_file, "rb") as file:
            dump = file.read()
        header = struct.unpack(">25I", dump[:100])
        header_size, height, bytes_per_row, colours = header[0], header[5], header[12], header[19]
        begin = header_size + colours * 12
        return [dump[begin + y * bytes_per_row:begin + (y + 1) * bytes_per_row] for y in range(height)]

    def end(self):
        for process in reversed(self.processes):
            process.terminate()
            try:
                process.wait(DEADLINE_S)
            except subprocess.TimeoutExpired:
                process.kill()
                process.wait()


def wait_until(what, is_so, process):
    """Looks until is_so() and gives what it gave; fails at the deadline, or as soon as the process has ended."""
    end = time.monotonic() + DEADLINE_S
    while time.monotonic() < end:
        found = is_so()
        if found:
            return found
        try:
            status = process.wait(LOOK_AGAIN_S)
        except subprocess.TimeoutExpired:
            continue
        raise AssertionError("waited for %s, but the program ended with status %d" % (what, status))
    raise AssertionError("waited in vain for " + what)


def look_at(picture):
    """How many rows below the menu are lines of staffs, dark for more than half their width; and how many dark pixels
    the other rows have."""
    lines = ink = 0
    for row in picture[MENU_BAR_ROWS:]:
        pixels = row[0::4]  # one colour is enough: paper is white and ink is black
        dark = sum(1 for value in pixels if value < 128)
        if dark > len(pixels) // 2:
            lines += 1
        else:
            ink += dark
    return lines, ink


class RealWindow(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="zarn-window-")
        self.addCleanup(shutil.rmtree, self.folder)
        shutil.copy(os.path.join(SAMPLES, "cooley.abc"), self.folder)
        self.screen = Screen(self.folder)
        self.addCleanup(self.screen.end)

    def start(self, *words):
        self.program = self.screen.start([PROGRAM, *words], cwd=self.folder)

    def wait(self, what, is_so):
        return wait_until(what, is_so, self.program)

    def wait_for_title(self, title):
        self.wait("a window called " + repr(title), lambda: self.screen.active_title() == title)

    def wait_for_other_picture(self, before):
        self.wait("another picture", lambda: self.screen.picture() != before)

    def wait_for_picture(self, picture):
        self.wait("the picture of before", lambda: self.screen.picture() == picture)

    def still_picture(self):
        """The picture, once two looks in a row see the same."""
        seen = [None, self.screen.picture()]

        def is_still():
            seen.append(self.screen.picture())
            return seen[-1] == seen[-2]
        self.wait("a picture that stands still", is_still)
        return seen[-1]

    def open_cooley(self):
        self.start("cooley.abc")
        self.wait_for_title(COOLEY)
        self.wait("music", self.shows_music)
        return self.still_picture()

    def shows_music(self):
        lines, ink = look_at(self.screen.picture())
        return 3 * LINES_OF_STAFF <= lines < 6 * LINES_OF_STAFF and ink > 10000

    def expect_a_clean_end(self):
        try:
            self.assertEqual(self.program.wait(DEADLINE_S), 0)
        except subprocess.TimeoutExpired:
            self.fail("the program doesn't end")

    def test_signs_with_and_without_shift_stretch_and_squeeze_and_the_menu_leaves(self):
        before = self.open_cooley()
        self.screen.press("plus")
        self.wait_for_other_picture(before)
        self.screen.press("minus")
        self.wait_for_picture(before)
        self.screen.press("alt+plus")
        self.wait_for_other_picture(before)
        self.screen.press("alt+f")
        self.screen.press("x")
        self.expect_a_clean_end()

    def test_the_menu_and_the_file_dialog_go_away_on_escape(self):
        before = self.open_cooley()
        self.screen.press("alt+f")
        self.wait_for_other_picture(before)
        self.screen.press("Escape", "Escape")  # the list, then the bar
        self.wait_for_picture(before)
        self.screen.press("ctrl+o")
        self.wait_for_title("Open file")
        self.screen.press("Escape")
        self.wait_for_title(COOLEY)
        self.wait_for_picture(before)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_a_start_without_a_file_asks_how_to_begin(self):
        self.start()
        self.wait_for_title("Zarn Message")
        self.screen.press("Return")
        self.wait_for_title("File source")
        self.screen.press("Escape")
        self.wait_for_title("Zarn")
        self.screen.press("alt+F4")
        self.expect_a_clean_end()
        self.start()
        self.wait_for_title("File source")
        self.screen.press("Escape")
        self.wait_for_title("Zarn")
        lines, ink_of_nothing = look_at(self.still_picture())
        self.assertGreaterEqual(lines, LINES_OF_STAFF)  # the palette covers some of the next staff
        self.screen.press("ctrl+n")
        self.wait_for_title("New tune - select clef, key signature and time signature")
        self.screen.press("Return")
        self.wait("a clef and a time signature", lambda: look_at(self.screen.picture())[1] > ink_of_nothing + 200)
        self.screen.press("alt+f")
        self.screen.press("x")
        self.expect_a_clean_end()


if __name__ == "__main__":
    if not all(shutil.which(tool) for tool in TOOLS):
        print("skipped: not all of %s are there" % ", ".join(TOOLS))
        sys.exit(SKIPPED)
    PROGRAM, SAMPLES = map(os.path.abspath, sys.argv[1:3])
    unittest.main(argv=sys.argv[:1])
