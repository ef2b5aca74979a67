#!/usr/bin/env python3
"""What one start of the program leaves to the next: work that a crash took away, the files that were open last, and the
window that a later start hands its file to.

    files_between_starts.py ZARN SAMPLES_FOLDER
"""
import glob
import os
import shutil
import signal

import screen

COOLEY = "cooley.abc"
OTHER = "kesh.abc"
QUESTION = "Zarn Message"


class FilesBetweenStarts(screen.EditorTest):
    def setUp(self):
        super().setUp()
        self.screen.env["ZARN_AUTOSAVE_SECONDS"] = "1"
        for name in (COOLEY, OTHER):
            shutil.copy(os.path.join(self.samples, name), self.folder)

    def copies(self):
        return glob.glob(os.path.join(self.folder, ".local/state/zarn/*"))

    def wait_for_title_with(self, words):
        self.editor.wait("a window with %r in its title" % words, lambda: words in self.screen.active_title())

    def open(self, name):
        self.editor.start(name)
        self.wait_for_title_with(name)
        self.editor.still_picture()

    def enter_a_note(self):
        """The title tells of it."""
        self.screen.press("Escape", "4")
        self.editor.wait("the mark of unsaved work", lambda: self.screen.active_title().endswith("*"))

    def leave_without_saving(self):
        self.screen.press("alt+F4")
        self.editor.wait_for_title(QUESTION)
        self.screen.press("alt+n")
        self.expect_a_clean_end()

    def take_the_tune(self):
        self.editor.wait_for_title("SelectTune")
        self.screen.press("Down", "Return")

    def crash(self):
        self.editor.wait("a safety copy", lambda: any(name.endswith(".zrn") for name in self.copies()))
        self.editor.process.kill()
        self.editor.process.wait()

    def test_work_that_a_crash_took_away_comes_back(self):
        self.open(COOLEY)
        self.enter_a_note()
        self.crash()
        self.editor.start()
        self.editor.wait_for_title(QUESTION)
        self.screen.press("alt+y")
        self.wait_for_title_with(COOLEY)
        self.editor.wait("the mark of unsaved work", lambda: self.screen.active_title().endswith("*"))
        self.leave_without_saving()
        self.assertEqual(self.copies(), [])

    def test_work_that_is_not_wanted_back_is_not_offered_again(self):
        self.open(COOLEY)
        self.enter_a_note()
        self.crash()
        self.editor.start(COOLEY)
        self.editor.wait_for_title(QUESTION)
        self.screen.press("alt+n")
        self.wait_for_title_with(COOLEY)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()
        self.assertEqual(self.copies(), [])

    def test_a_file_that_was_open_is_in_the_menu_of_the_next_start(self):
        self.open(COOLEY)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()
        self.open(OTHER)
        self.screen.press("alt+f", "2")
        self.take_the_tune()
        self.wait_for_title_with(COOLEY)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_a_later_start_hands_its_file_to_the_window_that_stands(self):
        self.open(COOLEY)
        later = self.screen.start([self.program, OTHER], cwd=self.folder)
        self.assertEqual(later.wait(screen.DEADLINE_S), 0)
        self.take_the_tune()
        self.wait_for_title_with(OTHER)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def expect_a_window_of_its_own(self, first):
        self.editor.start(OTHER)
        self.wait_for_title_with(OTHER)
        self.assertNotEqual(self.editor.process, first)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()
        self.editor.process = first

    def test_over_a_question_nothing_is_handed(self):
        self.open(COOLEY)
        self.screen.press("ctrl+o")
        self.editor.wait_for_title("Open file")
        self.expect_a_window_of_its_own(self.editor.process)
        self.editor.wait_for_title("Open file")
        self.screen.press("Escape")
        self.wait_for_title_with(COOLEY)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_a_window_that_does_not_answer_is_not_waited_for(self):
        self.open(COOLEY)
        first = self.editor.process
        first.send_signal(signal.SIGSTOP)
        try:
            self.expect_a_window_of_its_own(first)
        finally:
            first.send_signal(signal.SIGCONT)
        self.wait_for_title_with(COOLEY)
        self.screen.press("alt+F4")
        self.expect_a_clean_end()


if __name__ == "__main__":
    screen.main(needs_bus=False)
