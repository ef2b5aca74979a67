#!/usr/bin/env python3
"""The program as it stands on a screen: a window under a window manager, keys as a keyboard sends them, the picture as
a monitor shows it.

    real_window.py ZARN SAMPLES_FOLDER
"""
import os
import shutil

import screen

LINES_OF_STAFF = 5
MENU_BAR_ROWS = 60  # title and menu, at most
COOLEY = "Cooley's (from file 'cooley.abc')"


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


class RealWindow(screen.EditorTest):
    def open_cooley(self):
        shutil.copy(os.path.join(self.samples, "cooley.abc"), self.folder)
        self.editor.start("cooley.abc")
        self.editor.wait_for_title(COOLEY)
        self.editor.wait("music", self.shows_music)
        return self.editor.still_picture()

    def shows_music(self):
        lines, ink = look_at(self.screen.picture())
        return 3 * LINES_OF_STAFF <= lines < 6 * LINES_OF_STAFF and ink > 10000

    def test_signs_with_and_without_shift_stretch_and_squeeze_and_the_menu_leaves(self):
        before = self.open_cooley()
        self.screen.press("plus")
        self.editor.wait_for_other_picture(before)
        self.screen.press("minus")
        self.editor.wait_for_picture(before)
        self.screen.press("alt+plus")
        self.editor.wait_for_other_picture(before)
        self.screen.press("alt+f")
        self.screen.press("x")
        self.expect_a_clean_end()

    def test_the_menu_and_the_file_dialog_go_away_on_escape(self):
        before = self.open_cooley()
        self.screen.press("alt+f")
        self.editor.wait_for_other_picture(before)
        self.screen.press("Escape", "Escape")  # the list, then the bar
        self.editor.wait_for_picture(before)
        self.screen.press("ctrl+o")
        self.editor.wait_for_title("Open file")
        self.screen.press("Escape")
        self.editor.wait_for_title(COOLEY)
        self.editor.wait_for_picture(before)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_a_start_without_a_file_asks_how_to_begin(self):
        self.editor.start()
        self.editor.wait_for_title("Zarn Message")
        self.screen.press("Return")
        self.editor.wait_for_title("File source")
        self.screen.press("Escape")
        self.editor.wait_for_title("Zarn")
        self.screen.press("alt+F4")
        self.expect_a_clean_end()
        self.editor.start()
        self.editor.wait_for_title("File source")
        self.screen.press("Escape")
        self.editor.wait_for_title("Zarn")
        lines, ink_of_nothing = look_at(self.editor.still_picture())
        self.assertGreaterEqual(lines, LINES_OF_STAFF)  # the palette covers some of the next staff
        self.screen.press("ctrl+n")
        self.editor.wait_for_title("New tune - select clef, key signature and time signature")
        self.screen.press("Return")
        self.editor.wait("a clef and a time signature",
                         lambda: look_at(self.screen.picture())[1] > ink_of_nothing + 200)
        self.screen.press("alt+f")
        self.screen.press("x")
        self.expect_a_clean_end()


if __name__ == "__main__":
    screen.main(needs_bus=False)
