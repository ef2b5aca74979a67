#!/usr/bin/env python3
"""Every entry of every menu, clicked once in a real window on a scratch score.

    every_command.py ZARN SAMPLES_FOLDER
"""
import os
import shutil

import screen
from screen import Atspi

MARKER = "F12"  # a key without a meaning: once it is in the journal, the command before it has ended
TUNE = "cooley.abc"
RECENT = "1 " + TUNE
EXIT = ("File", "Exit")
SETTINGS = "Settings"
KEYBOARD_MODE = ("Action", "Keyboard mode\tEsc")
NEVER = [("Symbols", "Notes", "Brieve\t1"), ("Symbols", "Rests", "Brieve rest\tShift+1")]  # longer than a bar
# What the commands have to say to this score, the first line of each; anything else is a message too many.
MESSAGES = {
    "Zarn version ",
    "Zarn Print: Couldn't get a printer DC",
    "You must mark the section to be slurred (See Edit menu) before you can slur it",
    "Mark the section to transpose first",
    "Using device 'Built-in synthesizer' (only device available)",
    "MIDI is already set up.  Re-do?",
    "Do you want the tablature recalculated now?",
    "Restriction: Tablature can only be shown for one staff and you have 7 staffs showing",
    "Adding lyrics like this only works in keyboard mode.  Hit Esc to switch modes and put the cursor just before the "
    "note",
    "No MIDI input devices available",
    "There is no such MIDI device any more",
    "Midi input handle=NULL",
}


def children(thing):
    return [thing.get_child_at_index(i) for i in range(thing.get_child_count())]


class EveryCommand(screen.EditorTest):
    size = (1600, 1200)  # so that no menu has to scroll

    def entries(self):
        """The names along the menus to each entry that does something."""
        found = []

        def walk(thing, path):
            for child in children(thing):
                if child.get_role_name() == "popup menu":
                    walk(child, path)
                elif child.get_role_name() == "menu item" and child.get_name():  # a recent file to come has none
                    inside = path + (child,)
                    if child.get_child_count():
                        walk(child, inside)
                    else:
                        found.append(inside)
        walk(self.editor.thing("menu bar"), ())
        return found

    def journal(self):
        with open(os.path.join(self.folder, "journal"), encoding="utf-8") as file:
            return file.read().splitlines()

    def click_along(self, items):
        """Opens menu in menu, and chooses the last."""
        for item in items:
            self.editor.wait("a place for " + item.get_name(), lambda: screen.is_showing(item))
            x, y, width, height = screen.extents(item)
            self.screen.click(x + width // 2, y + height // 2)

    def questions(self):
        """The role and the words of each question or message that stands over the score."""
        def words(window):
            return " ".join(label.get_name() for label in self.editor.showing("label", within=window))
        return [(window.get_role_name(), words(window)) for window in children(self.editor.root())
                if window.get_role_name() in ("dialog", "alert") and screen.is_showing(window)]

    def finish(self):
        """Answers whatever the command asks, until keys come to the score again."""
        def is_over():
            before = len(self.journal())
            self.screen.press(MARKER)
            if any(line.startswith("key f12") for line in self.journal()[before:]):
                return True
            questions = self.questions()
            if questions:
                self.messages.update(words.split("\n")[0].rstrip("0123456789.") for role, words in questions
                                     if role == "alert")
                self.screen.press("Escape")
            return False
        self.editor.wait("the end of the command", is_over)

    def read_the_manual(self):
        """A window of its own, that comes when it likes."""
        self.editor.wait_for_title("Zarn help")
        self.screen.press("Escape")
        self.editor.wait("the end of the manual", lambda: not self.editor.showing("frame", "Zarn help"))

    def take_the_tune(self):
        self.editor.wait_for_title("SelectTune")
        self.screen.press("Down", "Return")

    def choose(self, items):
        """False when the entry is grey."""
        if not items[-1].get_state_set().contains(Atspi.StateType.ENABLED):
            return False
        before = len(self.journal())
        self.click_along(items)
        if items[-1].get_name() == "Help":
            self.read_the_manual()
        elif items[-1].get_name().startswith(RECENT):
            self.take_the_tune()
        self.finish()
        self.assertTrue(any(line.startswith("command ") for line in self.journal()[before:]), items[-1].get_name())
        return True

    def mark_all(self, entries):
        """At both ends of the first line. Menus are no help: the mouse that opens one takes the pointer along."""
        self.choose(entries[KEYBOARD_MODE])
        self.screen.press("Home", "less", "End", "greater")
        self.finish()

    def test_every_entry(self):
        shutil.copy(os.path.join(self.samples, TUNE), self.folder)
        self.editor.start("--journal", "journal", TUNE)
        self.editor.wait_for_title("Cooley's (from file 'cooley.abc')")
        self.messages = set()
        entries = {tuple(item.get_name() for item in items): items for items in self.entries()}
        grey = [name for name, items in entries.items() if name != EXIT and not self.choose(items)]
        for name, items in entries.items():
            if name[0] == "Options" and name[1] != SETTINGS:
                self.choose(items)  # back to what it was: nothing can be marked in right-justified mode
        self.mark_all(entries)
        self.assertEqual([name for name in grey if not self.choose(entries[name])], NEVER)
        self.assertEqual(self.messages, MESSAGES)
        self.click_along(entries[EXIT])
        self.editor.click_on("push button", "No")
        self.expect_a_clean_end()


if __name__ == "__main__":
    screen.main(needs_bus=True)
