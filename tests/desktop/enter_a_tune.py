#!/usr/bin/env python3
"""A tune from a printed page, entered in a real window: by the mouse alone, and by the keyboard alone. Both hands save
the same elements.

    enter_a_tune.py ZARN SAMPLES_FOLDER
"""
import os
import re
import subprocess

import screen

# Where a place of the score is in the window, before anything is stretched: a line has this many columns, the window
# this many rows.
COLUMNS, ROWS = 150, 120
ROWS_AHEAD, ROWS_OF_A_LINE, ROW_OF_MIDDLE_C = 8, 32, 18
PALETTE_COLUMNS, PALETTE_ROWS = 31, 6

C, D, E, F, G, A = range(6)  # steps above middle C
LOW_G = -3
SEMIBREVE, MINIM, CROTCHET, QUAVER = 192, 96, 48, 24
REPEAT_START, REPEAT_END, BAR, DOUBLE_BAR = "{", "}", "/", "|"


def notes(length, *pitches):
    return [(length, pitch) for pitch in pitches]


# A round that children sing, with an end of its own.
TUNE = ([REPEAT_START] + notes(CROTCHET, C, D, E, C) + [BAR] + notes(CROTCHET, C, D, E, C) + [BAR]
        + notes(CROTCHET, E, F) + notes(MINIM, G) + [BAR] + notes(CROTCHET, E, F) + notes(MINIM, G) + [REPEAT_END]
        + [("triplet", G, A, G)] + notes(CROTCHET, F, E, C) + [BAR]
        + [("triplet", G, A, G)] + notes(CROTCHET, F, E, C) + [BAR]
        + notes(CROTCHET, C, LOW_G) + [("tied", MINIM, C)] + [BAR]
        + notes(MINIM, C) + [("chord", MINIM, C, E, G)] + [DOUBLE_BAR])
WORDS = "Are you sleep- ing, are you sleep- ing".split()
PALETTE = {SEMIBREVE: (2, 2), MINIM: (3, 2), CROTCHET: (4, 2), QUAVER: (5, 2), "triplet": (10, 3), BAR: (15, 3),
           DOUBLE_BAR: (16, 3), REPEAT_START: (17, 3), REPEAT_END: (18, 3), "tie": (28, 3)}
KEYS = {SEMIBREVE: "2", MINIM: "3", CROTCHET: "4", QUAVER: "5", "triplet": "semicolon", BAR: "slash",
        DOUBLE_BAR: "bar", REPEAT_START: "braceleft", REPEAT_END: "braceright", "tie": "t"}
NEW_TUNE = "New tune - select clef, key signature and time signature"


class EnterATune(screen.EditorTest):
    def client(self):
        return screen.extents(self.editor.thing("filler", "Score"))

    def place(self, column, pitch, line=0):
        """Of a column and a pitch on a treble staff, on the screen."""
        left, top, width, height = self.client_area
        rows = ROWS_AHEAD + line * ROWS_OF_A_LINE + ROW_OF_MIDDLE_C - pitch
        return (left + (width * column + COLUMNS // 2 + 1) // COLUMNS, top + rows * height // ROWS)

    def pointer(self):
        x, y = re.match(r"x:(\d+) y:(\d+)", self.screen.ask("getmouselocation")).groups()
        return int(x), int(y)

    def pick(self, symbol):
        """Clicks on a symbol of the palette."""
        left, top, width, height = screen.extents(self.editor.thing("filler", "Note palette"))
        column, row = PALETTE[symbol]
        self.screen.click(left + column * width // PALETTE_COLUMNS, top + row * height // PALETTE_ROWS)

    def elements(self, name):
        """The dump of the saved file, without what tells how much memory an element took, and where."""
        dump = subprocess.run([self.program, "--dump", os.path.join(self.folder, name)], capture_output=True, text=True,
                              check=True).stdout
        return re.sub(r"pel==\w+|list is \w+|stg\d+", "", dump)

    # By the mouse: words of a lyric are typed, as there is no other way, and all else is clicked.

    def begin_by_mouse(self):
        self.editor.start()
        self.editor.wait_for_title("Zarn Message")
        self.editor.click_on("push button", "OK")
        self.editor.wait_for_title("File source")
        self.editor.click_on("push button", "New")
        self.editor.wait_for_title(NEW_TUNE)
        self.editor.click_on("push button", "OK")
        self.editor.wait("the tune's time signature", lambda: not self.editor.showing("dialog"))
        self.client_area = self.client()
        self.editor.choose("Options", "Adjust continuously")  # what is there stays where it was put

    def enter_by_mouse(self):
        column, line = 22, 0
        picked = None
        at = []

        def add(symbol, pitch, behind=6):
            nonlocal column, picked
            if symbol != picked:
                self.pick(symbol)
                picked = symbol
            self.screen.click(*self.place(column, pitch, line))
            column += behind

        for item in TUNE:
            if isinstance(item, str):
                add(item, E)
                if item == REPEAT_END:
                    column, line = 10, 1
            elif item[0] == "triplet":
                self.pick(QUAVER)
                self.pick("triplet")
                picked = "a quaver of a triplet"
                for pitch in item[1:]:
                    add(picked, pitch)
            elif item[0] == "tied":
                add(item[1], item[2])
                at.append((column - 3, line))
            elif item[0] == "chord":
                for pitch in item[2:]:
                    add(item[1], pitch, behind=0)
                column += 6
            else:
                add(*item)
        self.pick("tie")
        for column, line in at:
            self.screen.click(*self.place(column, E, line))

    def words_by_mouse(self):
        column = 22 + 6
        for number, word in enumerate(WORDS):
            self.editor.choose("Symbols", "Text", "Word\tW")
            self.editor.wait_for_title("Lyric")
            self.screen.do("type", word if word.endswith("-") or number + 1 == len(WORDS) else word + " ")
            self.editor.click_on("push button", "OK")
            self.editor.wait("the end of the question", lambda: not self.editor.showing("dialog"))
            self.screen.click(*self.place(column - 1, E))
            column += 6 if number != 3 else 12

    def save_by_mouse(self, name):
        self.editor.choose("Action", "Full Adjust\ta")
        self.editor.choose("File", "Save As...")
        self.editor.click_on("text", "File name:")
        self.screen.do("type", name)
        self.editor.click_on("push button", "Save")
        self.editor.wait_for_title(name)
        self.editor.choose("File", "Exit")
        self.expect_a_clean_end()

    # By the keyboard: continuous adjusting stays on, and the pointer shows where the next symbol comes.

    def begin_by_keyboard(self):
        self.editor.start()
        self.editor.wait_for_title("File source")
        self.screen.press("Tab", "Return")
        self.editor.wait_for_title(NEW_TUNE)
        self.screen.press("Return")
        self.editor.wait("the tune's time signature", lambda: not self.editor.showing("dialog"))
        self.client_area = self.client()
        self.screen.press("Escape")
        self.go_to(22, C)

    def go(self, less, more, difference):
        if difference:
            self.screen.press(*[more if difference > 0 else less] * abs(difference))

    def go_to(self, column, pitch, line=0):
        """With the arrow keys. A run of them takes bigger steps, so there is a look at the pointer after each few."""
        def is_there():
            (x, y), (now_x, now_y) = self.place(column, pitch, line), self.pointer()
            left, right = (x - now_x) * COLUMNS / self.client_area[2], (y - now_y) * ROWS / self.client_area[3]
            self.go("Left", "Right", max(-5, min(5, round(left))))
            self.go("Up", "Down", round(right))
            return (x, y) == (now_x, now_y)
        self.editor.wait("the pointer at column %d, step %d" % (column, pitch), is_there)

    def to_height(self, pitch):
        """With the arrow keys, on the line where the pointer is."""
        def is_there():
            y = self.pointer()[1]
            row = round((y - self.client_area[1]) * ROWS / self.client_area[3]) - ROWS_AHEAD
            line = row // ROWS_OF_A_LINE
            self.go("Up", "Down", line * ROWS_OF_A_LINE + ROW_OF_MIDDLE_C - pitch - row)
            return y == self.place(0, pitch, line)[1]
        self.editor.wait("the pointer at step %d" % pitch, is_there)

    def type(self, symbol, pitch):
        """Adds a symbol at the pointer."""
        self.to_height(pitch)
        before = self.screen.picture()
        self.screen.press(KEYS[symbol])
        self.editor.wait_for_other_picture(before)
        self.editor.still_picture()

    def beat(self):
        """What the status bar says of the place at the pointer, once it stands still."""
        self.editor.still_picture()
        return self.editor.showing("label")[0].get_name().rpartition("|")[2]

    def back_to_the_last_note(self):
        here = self.beat()
        while self.beat() == here:
            self.screen.press("Left")
        self.screen.press("Right")

    def tie_to_the_last_note(self):
        self.back_to_the_last_note()
        self.screen.press("Left", KEYS["tie"], "End")

    def enter_by_keyboard(self):
        tied = None
        for item in TUNE:
            if isinstance(item, str):
                self.type(item, E)
            elif item[0] == "triplet":
                for pitch in item[1:]:
                    self.type(QUAVER, pitch)
                    self.screen.press(KEYS["triplet"])
            elif item[0] == "chord":
                for pitch in item[2:]:
                    if pitch != item[2]:
                        self.back_to_the_last_note()
                    self.type(item[1], pitch)
            elif item[0] == "tied":
                self.type(item[1], item[2])
                tied = item[1], item[2]
            else:
                self.type(*item)
                if item == tied:
                    self.tie_to_the_last_note()

    def words_by_keyboard(self):
        self.go_to(0, C)
        self.screen.press("l")
        self.editor.wait_for_title("Lyrics (Ctrl+Enter for new line)")
        self.screen.do("type", " ".join(WORDS))
        self.screen.press("Return")
        self.editor.wait("the end of the question", lambda: not self.editor.showing("dialog"))

    def save_by_keyboard(self, name):
        self.screen.press("a", "ctrl+s")
        self.editor.wait_for_title("Save file")
        self.screen.do("type", name)
        self.screen.press("Return")
        self.editor.wait_for_title(name)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_mouse_and_keyboard_enter_the_same(self):
        self.begin_by_mouse()
        self.enter_by_mouse()
        self.words_by_mouse()
        self.save_by_mouse("mouse.zrn")
        self.begin_by_keyboard()
        self.enter_by_keyboard()
        self.words_by_keyboard()
        self.save_by_keyboard("keyboard.zrn")
        self.maxDiff = None
        self.assertEqual(self.elements("mouse.zrn"), self.elements("keyboard.zrn"))


if __name__ == "__main__":
    screen.main(needs_bus=True)
