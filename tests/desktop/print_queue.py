#!/usr/bin/env python3
"""The program prints: into a queue of a print service of our own, which keeps each job as it came, and into a PDF.

    print_queue.py ZARN SAMPLES_FOLDER
"""
import glob
import os
import shutil
import subprocess
import tempfile

import screen

QUEUE = "TESTPDF"
TOOLS = ("cupsd", "lp", "lpadmin", "cupsreject", "cupsaccept", "pdfinfo", "pdftotext")
SERVICE_FOLDERS = "/usr/sbin:/sbin"  # where a user's path doesn't lead
LINES = 24  # of music
PAGES = 3  # that they need
TUNE = "long.abc"
TITLE = "A Long Reel"
COPIES = "Enter number of copies"
MESSAGE = "Zarn Message"


class PrintService:
    """A cupsd on a socket of its own. Nothing of the system's is touched."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="zarn-cups-")
        for name in ("run", "spool", "spool/tmp", "cache", "state", "ppd"):
            os.mkdir(os.path.join(self.folder, name))
        self.socket = os.path.join(self.folder, "run", "sock")
        self.write("cupsd.conf", "Listen %s\nLogLevel warn\nBrowsing Off\nDefaultAuthType None\n"
                   "<Location />\n  Order allow,deny\n  Allow all\n</Location>\n"
                   "<Location /admin>\n  Order allow,deny\n  Allow all\n</Location>\n"
                   "<Policy default>\n<Limit All>\n  Order allow,deny\n  Allow all\n</Limit>\n</Policy>\n" % self.socket)
        places = "".join("%s %s/%s\n" % (what, self.folder, where) for what, where in (
            ("ServerRoot", ""), ("RequestRoot", "spool"), ("TempDir", "spool/tmp"), ("CacheDir", "cache"),
            ("StateDir", "state"), ("ErrorLog", "error"), ("AccessLog", "access"), ("PageLog", "page")))
        self.write("cups-files.conf", places + "FileDevice Yes\nSystemGroup root\n")
        self.env = dict(os.environ, CUPS_SERVER=self.socket, HOME=self.folder, LC_ALL="C.UTF-8")
        self.env["PATH"] += ":" + SERVICE_FOLDERS
        self.log = open(os.path.join(self.folder, "output"), "w")
        self.daemon = subprocess.Popen(["cupsd", "-f", "-c", self.folder + "/cupsd.conf",
                                        "-s", self.folder + "/cups-files.conf"], env=self.env,
                                       stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log)

    def write(self, name, text):
        with open(os.path.join(self.folder, name), "w", encoding="utf-8") as file:
            file.write(text)

    def wait_until_it_answers(self):
        screen.wait_until("the print service", lambda: os.path.exists(self.socket) and self.tell("lpstat", "-r"),
                          self.daemon)

    def tell(self, *words):
        """True when the service took it."""
        return subprocess.run(words, env=self.env, stdin=subprocess.DEVNULL, stdout=self.log, stderr=self.log,
                              check=False).returncode == 0

    def make_queue(self):
        assert self.tell("lpadmin", "-p", QUEUE, "-E", "-v", "file:///dev/null", "-m", "raw")
        assert self.tell("lpadmin", "-d", QUEUE)

    def jobs(self):
        """The documents as they came, in the order in which they came."""
        return sorted(glob.glob(os.path.join(self.folder, "spool", "d*-*")))

    def end(self):
        self.daemon.terminate()
        self.daemon.wait()
        self.log.close()
        shutil.rmtree(self.folder)


def pdf_facts(path):
    told = subprocess.run(["pdfinfo", path], capture_output=True, text=True, check=False).stdout
    return dict(line.split(":", 1) for line in told.splitlines() if ":" in line)


def pdf_pages(path):
    """The words on each page."""
    text = subprocess.run(["pdftotext", path, "-"], capture_output=True, text=True, check=True).stdout
    return text.split("\f")[:-1]


def is_gone(thing):
    try:
        return not screen.is_showing(thing)
    except screen.GLib.GError:
        return True


class PrintQueue(screen.EditorTest):
    def setUp(self):
        super().setUp()
        self.service = PrintService()
        self.addCleanup(self.service.end)
        self.service.wait_until_it_answers()
        self.screen.env["CUPS_SERVER"] = self.service.socket

    def open_tune(self, *before):
        """With words ahead of the program's own."""
        bars = "".join('"line%02d"CDEF GABc|cBAG FEDC|\n' % line for line in range(1, LINES + 1))
        with open(os.path.join(self.folder, TUNE), "w", encoding="utf-8") as file:
            file.write("X:1\nT:%s\nM:4/4\nL:1/8\nK:C\n%s\n" % (TITLE, bars))
        self.editor.process = self.screen.start([*before, self.program, TUNE], cwd=self.folder)
        self.title = "%s (from file '%s')" % (TITLE, TUNE)
        self.editor.wait_for_title(self.title)

    def print_copies(self, copies=None):
        self.screen.press("ctrl+p")
        self.editor.wait_for_title(COPIES)
        if copies is not None:
            self.screen.press("ctrl+a", *str(copies))
        self.screen.press("Return")

    def job(self, number=1):
        jobs = self.editor.wait("job %d" % number, lambda: len(self.service.jobs()) >= number and self.service.jobs())
        return self.editor.wait("a whole PDF", lambda: "Pages" in pdf_facts(jobs[number - 1]) and jobs[number - 1])

    def expect_score(self, path, copies=1):
        """Each line of music once in each copy."""
        pages = pdf_pages(path)
        self.assertGreater(len(pages), copies)
        self.assertEqual(len(pages) % copies, 0)
        for line in range(1, LINES + 1):
            word = "line%02d" % line
            self.assertEqual(sum(word in page for page in pages), copies, word)

    def expect_message(self, *parts):
        self.editor.wait_for_title(MESSAGE)
        words = [label.get_name() for label in self.editor.showing("label")]
        for part in parts:
            self.assertTrue(any(part in text for text in words), words)
        self.editor.click_on("push button", "OK")
        self.editor.wait_for_title(self.title)

    def close(self):
        self.screen.press("alt+F4")
        self.expect_a_clean_end()

    def test_a_score_is_printed_page_by_page(self):
        self.service.make_queue()
        self.open_tune()
        self.print_copies()
        one = self.job(1)
        self.assertEqual(pdf_facts(one)["Title"].strip(), "Zarn")
        self.expect_score(one)
        self.editor.wait_for_title(self.title)
        self.print_copies(3)
        three = self.job(2)
        self.expect_score(three, 3)
        self.assertEqual(int(pdf_facts(three)["Pages"]), 3 * int(pdf_facts(one)["Pages"]))
        self.editor.wait_for_title(self.title)
        self.close()

    def test_cancel_prints_nothing_and_the_window_works_on(self):
        self.service.make_queue()
        self.open_tune()
        self.print_copies(10000)
        self.editor.wait_for_title("Printing...")
        self.editor.thing("label", "Now Printing: ")
        self.editor.click_on("push button", "Cancel")
        self.editor.wait_for_title(self.title)
        self.assertEqual(self.service.jobs(), [])
        self.print_copies(0)
        self.editor.wait_for_title(self.title)
        self.print_copies(1)
        self.expect_score(self.job(1))
        self.close()

    def test_without_a_printer_the_user_is_told(self):
        self.open_tune()
        self.print_copies()
        self.expect_message("Zarn Print: Couldn't get a printer DC.\nNo printer set up?  Try control panel.")
        self.close()

    def test_a_queue_that_takes_no_jobs_says_so(self):
        self.service.make_queue()
        self.assertTrue(self.service.tell("cupsreject", QUEUE))
        self.open_tune()
        self.print_copies()
        self.expect_message("EndDoc failed.\n", "not accepting jobs")
        self.assertTrue(self.service.tell("cupsaccept", QUEUE))
        self.print_copies()
        self.expect_score(self.job(1))
        self.close()

    def test_without_lp_the_systems_own_way_prints(self):
        self.service.make_queue()
        self.open_tune("env", "PATH=" + self.folder)
        self.print_copies(2)
        path = self.job(1)
        self.expect_score(path, 2)
        self.assertEqual(pdf_facts(path)["Title"].strip(), "Zarn")
        self.close()

    def test_waiting_for_each_page_asks_after_every_one(self):
        self.service.make_queue()
        self.open_tune()
        self.editor.choose("Options", "Settings", "Wait for each page")
        self.print_copies()
        for _ in range(PAGES):
            box = self.editor.thing("alert", "Printing")
            self.assertEqual(self.service.jobs(), [])
            self.screen.press("Return")
            self.editor.wait("the end of the question", lambda: is_gone(box))
        self.assertEqual(int(pdf_facts(self.job(1))["Pages"]), PAGES)
        self.editor.wait_for_title(self.title)
        self.close()

    def test_the_preview_shows_the_pages_and_prints_them(self):
        self.service.make_queue()
        self.open_tune()
        self.editor.choose("File", "Print preview...")
        self.editor.wait_for_title("Print preview")
        self.editor.thing("label", "Page 1 of %d" % PAGES)
        first = self.editor.still_picture()
        self.screen.press("Next")
        self.editor.thing("label", "Page 2 of %d" % PAGES)
        self.editor.wait_for_other_picture(first)
        self.screen.press("Prior")
        self.editor.thing("label", "Page 1 of %d" % PAGES)
        self.editor.wait_for_picture(first)
        self.editor.click_on("check box", "Continuous")
        self.editor.wait_for_other_picture(first)
        self.screen.press("Escape")
        self.editor.wait_for_title(self.title)
        self.assertEqual(self.service.jobs(), [])
        self.editor.choose("File", "Print preview...")
        self.editor.click_on("push button", "Print")
        self.expect_score(self.job(1))
        self.editor.wait_for_title(self.title)
        self.close()

    def test_a_pdf_is_saved_without_any_printer(self):
        self.open_tune()
        self.editor.choose("File", "Save as PDF...")
        self.editor.wait_for_title("Save as PDF")
        self.screen.press("Return")  # the name that is offered
        path = os.path.join(self.folder, "long.pdf")
        self.editor.wait("the PDF", lambda: os.path.exists(path))
        self.expect_score(path)
        self.editor.wait_for_title(self.title)
        self.close()


if __name__ == "__main__":
    os.environ["PATH"] += ":" + SERVICE_FOLDERS
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if missing:
        print("skipped: there is no " + ", no ".join(missing))
        raise SystemExit(screen.SKIPPED)
    screen.main(needs_bus=True)
