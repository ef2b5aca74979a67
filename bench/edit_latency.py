#!/usr/bin/env python3
"""How long a player waits for a note: from the button that lets it go to the last change of the picture on the screen.

    bench/edit_latency.py [BUILD_FOLDER]

A real window on a display in memory: what a monitor adds is not in the figures. Tunes of 1,000 and 10,000 notes, with
continuous adjusting on and off. Needs what the tests of the window need.
"""
import ctypes
import mmap
import os
import statistics
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, "..", "tests", "desktop"))
sys.dont_write_bytecode = True
import screen  # noqa: E402

CLICKS = 40
STILL_S = 0.25  # a picture that has not changed for so long is finished
HEADER = 4096  # bytes of the screen's file that are no picture
NOTES_OF_A_BAR = "CDEF GABc|"


class Hand:
    """A mouse without a process of its own: its button is timed to the microsecond."""

    def __init__(self, display):
        self.x11 = ctypes.CDLL("libX11.so.6")
        self.xtst = ctypes.CDLL("libXtst.so.6")
        self.x11.XOpenDisplay.restype = ctypes.c_void_p
        self.display = ctypes.c_void_p(self.x11.XOpenDisplay(display.encode()))

    def move(self, x, y):
        self.xtst.XTestFakeMotionEvent(self.display, -1, x, y, 0)
        self.x11.XFlush(self.display)

    def button(self, down):
        self.xtst.XTestFakeButtonEvent(self.display, 1, int(down), 0)
        self.x11.XFlush(self.display)


def wait_until_still(picture):
    """Gives the moment of the last change."""
    last, changed = picture[HEADER:], time.perf_counter()
    while time.perf_counter() - changed < STILL_S:
        now = picture[HEADER:]
        if now != last:
            last, changed = now, time.perf_counter()
    return changed


def measure(program, notes, adjusting):
    """Milliseconds of each click."""
    with tempfile.TemporaryDirectory(prefix="zarn-latency-") as folder:
        with open(os.path.join(folder, "tune.abc"), "w", encoding="utf-8") as file:
            file.write("X:1\nT:Scale\nM:4/4\nL:1/8\nK:C\n")
            for _ in range(notes // 32):
                file.write(NOTES_OF_A_BAR * 4 + "\n")
        editor = screen.Editor(program, folder, bus)
        try:
            editor.start("tune.abc")
            editor.wait("the tune", lambda: editor.screen.active_title().startswith("Scale"))
            left, top, width, height = screen.extents(editor.thing("filler", "Score"))
            if not adjusting:
                editor.choose("Options", "Adjust continuously")
            hand = Hand(editor.screen.env["DISPLAY"])
            with open(editor.screen.picture_file, "rb") as file:
                picture = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
            waits = []
            for click in range(CLICKS):
                hand.move(left + width * (30 + click) // 100, top + height // 6 + click % 5)
                hand.button(True)
                wait_until_still(picture)
                begin = time.perf_counter()
                hand.button(False)
                end = wait_until_still(picture)
                waits.append((end - begin) * 1000)
            picture.close()
            return waits
        finally:
            editor.screen.end()


def main():
    program = os.path.join(os.path.abspath(sys.argv[1] if len(sys.argv) > 1 else "build/release"), "zarn")
    print("%8s  %-12s %8s %8s %8s" % ("notes", "adjusting", "median", "9 of 10", "longest"))
    for notes in (1024, 10240):
        for adjusting in (True, False):
            waits = sorted(measure(program, notes, adjusting))
            print("%8d  %-12s %8.1f %8.1f %8.1f   ms" % (notes, "on" if adjusting else "off", statistics.median(waits),
                                                      waits[len(waits) * 9 // 10], waits[-1]))


if __name__ == "__main__":
    bus = screen.Bus()
    try:
        main()
    finally:
        bus.end()
