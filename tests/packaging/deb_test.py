#!/usr/bin/env python3
"""The Debian package: what it holds, and that it installs, works and goes away in a root of its own.

    deb_test.py BUILD_FOLDER

The root has no other package, so what the program needs comes from the machine; clean_root.sh tries the whole thing. A
check whose tool is missing is skipped, with a word.
"""
import os
import shutil
import subprocess
import sys
import tempfile
import unittest

HERE = os.path.dirname(os.path.abspath(__file__))
TOP = os.path.join(HERE, "..", "..")
sys.path.insert(0, os.path.join(HERE, "..", "desktop"))
sys.dont_write_bytecode = True
import screen  # noqa: E402

SOUND = "usr/lib/zarn/libzarn_sound.so"
SCORE, ABC, MIDI = "application/x-zarn", "text/vnd.abc", "audio/midi"
CONTENTS = """
usr/bin/zarn
usr/share/applications/zarn.desktop
usr/share/doc/zarn/changelog.Debian.gz
usr/share/doc/zarn/changelog.gz
usr/share/doc/zarn/copyright
usr/share/icons/hicolor/16x16/apps/zarn.png
usr/share/icons/hicolor/32x32/apps/zarn.png
usr/share/icons/hicolor/48x48/apps/zarn.png
usr/share/icons/hicolor/128x128/apps/zarn.png
usr/share/icons/hicolor/scalable/apps/zarn.svg
usr/share/man/man1/zarn.1.gz
usr/share/metainfo/zarn.metainfo.xml
usr/share/mime/packages/zarn.xml
""".split()


def run(*words, **options):
    """Gives what the command printed; its complaints stand in the failure."""
    done = subprocess.run(words, capture_output=True, text=True, check=False, **options)
    if done.returncode:
        raise AssertionError("%s: status %d\n%s%s" % (" ".join(words), done.returncode, done.stdout, done.stderr))
    return done.stdout


def needs(*tools):
    missing = [tool for tool in tools if not shutil.which(tool)]
    return unittest.skipIf(missing, "there is no " + ", no ".join(missing))


def files_under(folder):
    return sorted(os.path.relpath(os.path.join(place, name), folder)
                  for place, _, names in os.walk(folder) for name in names)


def files_of(folder, *endings):
    """Of the sources, those that the package must hold."""
    return sorted(name for name in os.listdir(os.path.join(TOP, folder)) if name.endswith(endings))


class DebTest(unittest.TestCase):
    """The package of the program as it is built. Each test has an empty folder."""
    build = None

    @classmethod
    def setUpClass(cls):
        cls.out = tempfile.mkdtemp(prefix="zarn-package-")
        cls.addClassCleanup(shutil.rmtree, cls.out)
        run("cpack", "-G", "DEB", "-B", cls.out, cwd=cls.build)
        cls.deb, = [os.path.join(cls.out, name) for name in os.listdir(cls.out) if name.endswith(".deb")]
        cls.inside = os.path.join(cls.out, "inside")
        run("dpkg-deb", "-x", cls.deb, cls.inside)

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="zarn-root-")
        self.addCleanup(shutil.rmtree, self.folder)


class Package(DebTest):
    """What it holds."""

    def field(self, name):
        return run("dpkg-deb", "-f", self.deb, name).strip()

    def test_it_holds_the_program_its_manual_and_what_a_desktop_needs(self):
        held = files_under(self.inside)
        modules = [name for name in held if name.startswith("usr/lib/zarn/")]
        self.assertIn("usr/lib/zarn/libzarn_desktop.so", modules)
        manual = ["usr/share/zarn/docs/" + name for name in files_of("docs", ".html", ".png")]
        samples = ["usr/share/zarn/samples/" + name for name in files_of("samples", ".abc", ".zrn", ".mid")]
        self.assertEqual(held, sorted(CONTENTS + modules + manual + samples))

    def test_everything_is_roots_and_can_be_read_by_all(self):
        for line in run("dpkg-deb", "-c", self.deb).splitlines():
            mode, owner = line.split()[:2]
            self.assertEqual(owner, "root/root", line)
            allowed = ("drwxr-xr-x", "lrwxrwxrwx", "-rwxr-xr-x" if line.endswith("./usr/bin/zarn") else "-rw-r--r--")
            self.assertIn(mode, allowed, line)

    def test_it_depends_on_the_libraries_of_its_modules_and_on_what_they_load(self):
        depends = self.field("Depends")
        if os.path.exists(os.path.join(self.inside, SOUND)):
            self.assertIn("timgm6mb-soundfont", depends)
            self.assertIn("libfluidsynth", depends)
        for name in ("libc6", "libstdc++6", "libqt6gui6", "libqt6widgets6", "fonts-dejavu-core", "shared-mime-info"):
            self.assertIn(name, depends)
        self.assertEqual(self.field("Version").split("-")[0], run(os.path.join(self.inside, "usr/bin/zarn"),
                                                                 "--version").split()[1])

    @needs("desktop-file-validate")
    def test_the_menu_entry_is_valid(self):
        entry = os.path.join(self.inside, "usr/share/applications/zarn.desktop")
        self.assertEqual(run("desktop-file-validate", entry), "")

    @needs("appstreamcli")
    def test_the_description_for_software_centres_is_valid(self):
        # The name has no domain: the program has none.
        run("appstreamcli", "validate", "--no-net", "--override=cid-desktopapp-is-not-rdns=info",
            os.path.join(self.inside, "usr/share/metainfo/zarn.metainfo.xml"))

    @needs("lintian")
    def test_the_packages_examiner_has_no_complaint_but_the_known_ones(self):
        # The first package is nobody's wish in Debian's list; the host part of the address is for a publisher to set.
        known = ("initial-upload-closes-no-bugs", "bogus-mail-host")
        words = subprocess.run(["lintian", "--allow-root", "--fail-on", "none", self.deb], capture_output=True,
                               text=True, check=True).stdout
        self.assertEqual([line for line in words.splitlines() if not any(name in line for name in known)], [])

    @needs("man")
    def test_the_page_of_the_command_has_no_slip(self):
        done = subprocess.run(["man", "--warnings", "-l", os.path.join(self.inside, "usr/share/man/man1/zarn.1.gz")],
                              capture_output=True, text=True, check=True, env=dict(os.environ, LC_ALL="C.UTF-8"))
        self.assertEqual(done.stderr, "")
        self.assertIn("zarn - editor and converter", done.stdout)

    def test_the_page_of_the_command_tells_every_option(self):
        page = run("gzip", "-dc", os.path.join(self.inside, "usr/share/man/man1/zarn.1.gz")).replace("\\-", "-")
        words = run(os.path.join(self.inside, "usr/bin/zarn"), "--help").replace(",", " ").replace("]", " ").split()
        options = {word.lstrip("[") for word in words if word.lstrip("[").startswith("-") and len(word) > 1}
        self.assertGreater(len(options), 15)
        self.assertEqual([option for option in sorted(options) if option not in page], [])


class Installed(DebTest):
    """In an empty root."""

    def dpkg(self, *words):
        run("dpkg", "--root=" + self.root, "--force-not-root", "--force-depends", "--log=/dev/null", *words)

    def setUp(self):
        super().setUp()
        self.root = os.path.join(self.folder, "root")
        admin = os.path.join(self.root, "var/lib/dpkg")
        for name in ("info", "updates", "triggers"):
            os.makedirs(os.path.join(admin, name))
        for name in ("status", "available"):
            open(os.path.join(admin, name), "w", encoding="ascii").close()
        self.dpkg("-i", self.deb)
        self.share = os.path.join(self.root, "usr/share")
        self.program = os.path.join(self.root, "usr/bin/zarn")
        self.samples = os.path.join(self.share, "zarn/samples")

    def in_the_root(self):
        home = os.path.join(self.folder, "home")
        path = os.path.join(self.root, "usr/bin") + ":" + os.environ["PATH"]
        return dict(os.environ, PATH=path, HOME=home, XDG_CONFIG_HOME=home, XDG_DATA_HOME=home, XDG_CONFIG_DIRS=home,
                    XDG_DATA_DIRS=self.share)

    def test_a_removal_leaves_no_file(self):
        self.dpkg("-P", "zarn")
        self.assertEqual([name for name in files_under(self.root) if not name.startswith("var/lib/dpkg/")], [])
        self.assertFalse(os.path.exists(os.path.join(self.root, "usr")))

    def test_it_converts(self):
        tune = os.path.join(self.samples, "cooley.abc")
        outputs = {"tune.pdf": b"%PDF", "tune.png": b"\x89PNG", "tune.svg": b"<?xml", "tune.mid": b"MThd",
                   "tune.abc": b"X:"}
        if os.path.exists(os.path.join(self.root, SOUND)):
            outputs["tune.wav"] = b"RIFF"
        for name, beginning in outputs.items():
            out = os.path.join(self.folder, name)
            run(self.program, "-q", "-o", out, tune, env=self.in_the_root())
            with open(out, "rb") as file:
                self.assertEqual(file.read(len(beginning)), beginning, name)

    @needs("update-mime-database", "update-desktop-database", "gio")
    def test_a_double_click_on_a_score_or_a_tune_opens_it(self):
        run("update-mime-database", os.path.join(self.share, "mime"))
        run("update-desktop-database", os.path.join(self.share, "applications"))
        score = os.path.join(self.folder, "score")
        shutil.copy(os.path.join(self.samples, "specimen.zrn"), score)
        shutil.copy(score, score + ".ZRN")
        tune = os.path.join(self.samples, "cooley.abc")
        unnamed = os.path.join(self.folder, "tune")
        shutil.copy(tune, unnamed)
        for path, kind in ((score, SCORE), (score + ".ZRN", SCORE), (tune, ABC), (unnamed, ABC)):
            told = run("gio", "info", "-a", "standard::content-type", path, env=self.in_the_root())
            self.assertIn("standard::content-type: %s\n" % kind, told, path)
        for kind in (SCORE, ABC, MIDI):
            told = run("gio", "mime", kind, env=dict(self.in_the_root(), LC_ALL="C.UTF-8"))
            self.assertIn("Default application for “%s”: zarn.desktop" % kind, told)

    @needs(*screen.TOOLS)
    def test_it_opens_its_window_a_sample_and_its_manual(self):
        editor = screen.Editor(self.program, self.folder)
        self.addCleanup(editor.screen.end)
        editor.start(os.path.join(self.samples, "cooley.abc"))
        editor.wait("the tune", lambda: editor.screen.active_title().startswith("Cooley's"))
        editor.screen.press("F1")
        editor.wait_for_title("Zarn help")
        editor.screen.press("Escape")
        editor.wait("the tune", lambda: editor.screen.active_title().startswith("Cooley's"))
        editor.screen.press("alt+F4")
        self.assertEqual(editor.process.wait(screen.DEADLINE_S), 0)


def main():
    missing = [tool for tool in ("cpack", "dpkg", "dpkg-deb", "dpkg-shlibdeps", "file") if not shutil.which(tool)]
    if missing:
        print("skipped: there is no " + ", no ".join(missing))
        sys.exit(screen.SKIPPED)
    DebTest.build = os.path.abspath(sys.argv[1])
    unittest.main(argv=sys.argv[:1] + sys.argv[2:])


if __name__ == "__main__":
    main()
