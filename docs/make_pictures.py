#!/usr/bin/env python3
"""Draws the pictures of the manual anew, from the program in a window.

    docs/make_pictures.py [BUILD_FOLDER]

Needs what the tests of the window need, and scrot.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "desktop"))
sys.dont_write_bytecode = True
import screen  # noqa: E402

SAMPLES = os.path.join(HERE, "..", "samples")
TUNE = "cooley.abc"
TITLE = "Cooley's (from file 'cooley.abc')"
EDGE = 4  # pixels of the window around a menu or a dialog


class Pictures:
    def __init__(self, program, folder, bus):
        self.folder = folder
        shutil.copytree(SAMPLES, folder, dirs_exist_ok=True)
        self.editor = screen.Editor(program, folder, bus)
        self.screen = self.editor.screen
        self.editor.start()
        self.editor.wait_for_title("Zarn Message")
        self.keep_window("message", "alert")
        self.screen.press("Return")
        self.editor.wait_for_title("File source")
        self.keep_window("start", "dialog")
        self.screen.press("Escape")
        self.editor.wait_for_title("Zarn")
        self.screen.press("alt+F4")
        self.editor.process.wait()
        self.editor.start(TUNE)
        self.editor.wait_for_title(TITLE)

    def keep(self, name, area=None):
        """Writes a part of the screen, given by left, top, width and height; without one, all of it."""
        self.editor.still_picture()
        self.keep_now(name, area)

    def keep_now(self, name, area=None):
        """The same while something moves."""
        words = ["scrot", "-o", "-p"]
        if area:
            left, top, right, bottom = area[0], area[1], area[0] + area[2], area[1] + area[3]
            left, top = max(left, 0), max(top, 0)
            right, bottom = min(right, screen.SCREEN[0]), min(bottom, screen.SCREEN[1])
            words += ["-a", "%d,%d,%d,%d" % (left, top, right - left, bottom - top)]
        subprocess.run(words + [os.path.join(HERE, name + ".png")], env=self.screen.env, check=True)

    def keep_thing(self, name, thing):
        left, top, width, height = screen.extents(thing)
        self.keep(name, (left - EDGE, top - EDGE, width + 2 * EDGE, height + 2 * EDGE))

    def keep_window(self, name, role):
        """A dialog, with its title."""
        left, top, width, height = screen.extents(self.editor.thing(role))
        title = 20
        self.keep(name, (left - EDGE, top - title - EDGE, width + 2 * EDGE, height + title + 2 * EDGE))

    def point(self, x, y):
        """In pixels of the score."""
        left, top, _, _ = screen.extents(self.editor.thing("filler", "Score"))
        self.screen.do("mousemove", left + x, top + y)

    def modes(self):
        self.point(400, 300)
        self.keep("window")
        area = 0, 40, 640, 200
        self.point(480, 76)
        self.keep("mouse-mode", area)
        self.screen.press("Escape")
        self.keep("keyboard-mode", area)
        self.screen.press("Escape")

    def panels(self):
        self.keep_thing("palette", self.editor.thing("filler", "Note palette"))
        self.editor.choose("Options", "Piano keyboard")
        self.keep_thing("piano", self.editor.thing("filler", "Piano keyboard"))
        self.editor.choose("Options", "Piano keyboard")

    def menus(self):
        bar = self.editor.thing("menu bar")
        for i in range(bar.get_child_count()):
            name = bar.get_child_at_index(i).get_name()
            self.editor.click_on("menu item", name)
            left, top, width, height = screen.extents(self.editor.thing("popup menu"))
            bar_left, bar_top, _, bar_height = screen.extents(bar.get_child_at_index(i))
            self.keep("menu-" + name.lower(), (min(left, bar_left), bar_top, width + EDGE, bar_height + height + EDGE))
            self.screen.press("Escape", "Escape")

    def submenu(self, name, *path):
        """With the menu that it comes out of."""
        self.editor.choose(*path)
        self.editor.wait("both menus", lambda: len(self.editor.showing("popup menu")) == len(path))
        edges = [(left, top, left + width, top + height)
                 for left, top, width, height in map(screen.extents, self.editor.showing("popup menu"))]
        left, top = min(edge[0] for edge in edges), min(edge[1] for edge in edges)
        right, bottom = max(edge[2] for edge in edges), max(edge[3] for edge in edges)
        self.keep(name, (left - EDGE, top - EDGE, right - left + 2 * EDGE, bottom - top + 2 * EDGE))
        self.screen.press(*["Escape"] * (len(path) + 1))

    def dialog(self, name, *path, role="dialog"):
        self.editor.choose(*path)
        self.keep_window(name, role)
        self.screen.press("Escape")
        self.editor.wait("the end of the dialog", lambda: not self.editor.showing(role))

    def dialogs(self):
        self.dialog("dialog-new", "File", "New...\tCtrl+n")
        self.dialog("dialog-time", "Symbols", "Time signatures", "Other...")
        self.dialog("dialog-text", "Symbols", "Text", "Title")
        self.dialog("dialog-number", "Options", "Settings", "Left margin percent...")
        self.dialog("dialog-tuning", "Options", "Settings", "Alter strings or tuning...")
        self.dialog("dialog-commands", "Help", "All commands...")
        self.dialog("dialog-brief", "Help", "Brief info about Zarn", role="alert")
        self.screen.press("Escape")
        self.point(60, 90)
        self.screen.press("l")
        self.keep_window("dialog-lyrics", "dialog")
        self.screen.press("Escape")
        self.editor.wait("the end of the dialog", lambda: not self.editor.showing("dialog"))
        self.screen.press("Escape")

    def preview(self):
        self.editor.choose("File", "Print preview...")
        self.editor.wait_for_title("Print preview")
        self.keep_window("printing", "dialog")
        self.screen.press("Escape")
        self.editor.wait_for_title(TITLE)

    def playing(self):
        """The band that moves with the music, once it has reached the second bar."""
        self.screen.press("p")
        self.editor.wait_for_title("Zarn Message")
        self.screen.press("Return")
        self.editor.wait_for_title(TITLE)
        time.sleep(2)
        self.keep_now("playing", (0, 40, 640, 200))
        self.screen.do("keydown", "ctrl")
        self.editor.still_picture()
        self.screen.do("keyup", "ctrl")

    def list_of_tunes(self):
        self.screen.press("ctrl+o")
        self.editor.wait_for_title("Open file")
        self.screen.do("type", "tunebook.abc")
        self.screen.press("Return")
        self.editor.wait("the list of tunes", lambda: self.editor.showing("list"))
        self.keep_window("dialog-tunes", "dialog")

    def tablature(self, name, *journal):
        """A page of an air with its tablature, after what a journal of these lines asks for."""
        with open(os.path.join(self.folder, "journal"), "w", encoding="utf-8") as file:
            file.write("\n".join(journal + ("command 303", "")))
        words = ["--quiet", "--replay", "journal", "--page", "1", "-o", os.path.join(HERE, name + ".png")]
        subprocess.run([self.editor.program, *words, "skye-boat-song.abc"], cwd=self.folder, check=True,
                       stderr=subprocess.DEVNULL)

    def page(self, name, sample, size):
        """The first page of a sample, small enough for a page of the manual."""
        words = ["--quiet", "--page", "1", "--size", size, "--dpi", "64", "-o", os.path.join(HERE, name + ".png")]
        subprocess.run([self.editor.program, *words, sample], cwd=self.folder, check=True)


def main():
    build = os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else os.path.join(HERE, "..", "build", "release"))
    bus = screen.Bus()
    folder = os.path.join(tempfile.gettempdir(), "tunes")  # a picture shows its name
    os.mkdir(folder)
    pictures = None
    try:
        pictures = Pictures(os.path.join(build, "zarn"), folder, bus)
        pictures.modes()
        pictures.panels()
        pictures.menus()
        pictures.submenu("menu-settings", "Options", "Settings")
        pictures.dialogs()
        pictures.preview()
        pictures.playing()
        pictures.list_of_tunes()
        pictures.page("page-words", "auld-lang-syne.zrn", "1200x640")
        pictures.page("page-staffs", "old-hundredth.zrn", "1200x720")
        pictures.tablature("tablature")
        pictures.tablature("tablature-closed", "answer number 0", "answer cancel", "command 712", "answer number 200",
                           "answer cancel", "command 790")
        pictures.tablature("tablature-mandolin", "answer form mandolin ok", "command 237")
    finally:
        if pictures:
            pictures.screen.end()
        bus.end()
        shutil.rmtree(folder)


if __name__ == "__main__":
    main()
