"""A display that nobody sees, with a window manager, and the editor on it as a user has it: real pointer, real keys,
the picture as a monitor shows it, and the names of menus, dialogs and fields as a screen reader is told them.

Nothing here waits for luck: each step looks again and again until what it expects is there, or the deadline is past.
"""
import os
import re
import shutil
import struct
import subprocess
import sys
import tempfile
import time
import unittest

try:
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi, Gio, GLib
except (ImportError, ValueError):
    Atspi = None

TOOLS = ("Xvfb", "openbox", "xdotool", "dbus-daemon")
MANAGER_SETTINGS = "/etc/xdg/openbox/rc.xml"
A11Y_LAUNCHER = "/usr/libexec/at-spi-bus-launcher"
SKIPPED = 77
DEADLINE_S = 15  # for any one step, on a machine that is busy
LOOK_AGAIN_S = 0.02
FIRST_DISPLAY = 1000
DISPLAYS = 10000
SCREEN = (1000, 700)


def own_environment(folder):
    """What a user's session has, without anything of the session that runs the tests, and without its printers."""
    foreign = ("QT_", "XDG_", "DBUS_", "WAYLAND_", "AT_SPI_", "CUPS_", "DISPLAY", "LPDEST", "PRINTER")
    env = {k: os.environ[k] for k in os.environ if not k.startswith(foreign)}
    env.update(HOME=folder, XDG_RUNTIME_DIR=folder, LC_ALL="C.UTF-8", QT_QPA_PLATFORM="xcb",
               CUPS_SERVER=os.path.join(folder, "no-print-service"))
    # No MIDI ports, and a synthesizer that nobody hears.
    env.update(ALSA_CONFIG_PATH=os.devnull, JACK_DEFAULT_SERVER="zarn-none", ZARN_SOUND_DRIVER="none")
    return env


class Bus:
    """A message bus with the service that screen readers use. One serves the whole process: the bindings connect
    once."""

    def __init__(self):
        self.folder = tempfile.mkdtemp(prefix="zarn-bus-")
        env = own_environment(self.folder)
        self.daemon = subprocess.Popen(["dbus-daemon", "--session", "--print-address", "--nofork"], env=env,
                                       stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True)
        self.address = self.daemon.stdout.readline().strip()
        env["DBUS_SESSION_BUS_ADDRESS"] = os.environ["DBUS_SESSION_BUS_ADDRESS"] = self.address
        os.environ.pop("DISPLAY", None)
        os.environ.pop("AT_SPI_BUS_ADDRESS", None)
        self.launcher = subprocess.Popen([A11Y_LAUNCHER, "--launch-immediately"], env=env, stdout=subprocess.DEVNULL,
                                         stderr=subprocess.DEVNULL)
        wait_until("the bus of screen readers", self.is_complete, self.launcher)

    def is_complete(self):
        flags = Gio.DBusConnectionFlags
        connection = Gio.DBusConnection.new_for_address_sync(
            self.address, flags.AUTHENTICATION_CLIENT | flags.MESSAGE_BUS_CONNECTION, None, None)
        answer = connection.call_sync("org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
                                      "NameHasOwner", GLib.Variant("(s)", ("org.a11y.Bus",)), None,
                                      Gio.DBusCallFlags.NONE, -1, None)
        return answer.unpack()[0]

    def end(self):
        for process in (self.launcher, self.daemon):
            process.terminate()
            process.wait()
        self.daemon.stdout.close()
        shutil.rmtree(self.folder)


def manager_settings(folder):
    """A file of the window manager's own settings, but for what it does on a click in a window: it holds the pointer
    until it has looked at the click, and on a busy machine the next move of xdotool takes the click along."""
    with open(MANAGER_SETTINGS, encoding="utf-8") as file:
        settings = file.read()
    name = os.path.join(folder, "manager.xml")
    with open(name, "w", encoding="utf-8") as file:
        file.write(re.sub('<context name="Client">.*?</context>', "", settings, flags=re.DOTALL))
    return name


class Screen:
    """A display; its picture lies in a file."""

    def __init__(self, folder, bus=None, size=SCREEN):
        self.size = size
        self.processes = []
        self.picture_file = os.path.join(folder, "Xvfb_screen0")
        self.env = own_environment(folder)
        if bus:
            self.env.update(DBUS_SESSION_BUS_ADDRESS=bus.address, QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        self.env["DISPLAY"] = self.start_display(folder)
        manager = self.start(["openbox", "--sm-disable", "--config-file", manager_settings(folder)])
        wait_until("the window manager", lambda: self.ask("get_num_desktops") is not None, manager)

    def start_display(self, folder):
        """Under a number of our own: displays that look for a free one can find the same at the same time. It must not
        start anew when a client leaves: whoever is just coming in would be thrown out."""
        first = FIRST_DISPLAY + os.getpid() % DISPLAYS
        for display in (":%d" % (first + attempt * DISPLAYS) for attempt in range(3)):
            read_end, write_end = os.pipe()
            self.start(["Xvfb", "-noreset", "-displayfd", str(write_end), display, "-screen", "0",
                        "%dx%dx24" % self.size, "-fbdir", folder, "-nolisten", "tcp"], pass_fds=[write_end])
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

    def do(self, *words):
        subprocess.run(["xdotool", *map(str, words)], env=self.env, check=True)

    def active_title(self):
        return (self.ask("getactivewindow", "getwindowname") or "").strip()

    def press(self, *keys):
        self.do("key", *keys)

    def click(self, x, y, button=1):
        """At a place of the screen."""
        self.do("mousemove", x, y, "click", "--delay", 0, button)

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


class Editor:
    """The program on a screen, in a folder of its own."""

    def __init__(self, program, folder, bus=None, size=SCREEN):
        self.program = program
        self.folder = folder
        self.screen = Screen(folder, bus, size)
        self.process = None

    def start(self, *words):
        self.process = self.screen.start([self.program, *words], cwd=self.folder)

    def wait(self, what, is_so):
        return wait_until(what, is_so, self.process)

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

    # What a screen reader sees. Its tree is asked anew at each look: a memory of it would be stale.

    def root(self):
        desktop = Atspi.get_desktop(0)
        desktop.clear_cache()
        for i in range(desktop.get_child_count()):
            child = desktop.get_child_at_index(i)
            if child is not None and child.get_process_id() == self.process.pid:
                child.set_cache_mask(Atspi.Cache.NONE)
                return child
        return None

    def showing(self, role, name=None, within=None):
        """The things of that role that show, the nearest to the root first; with that name, if one is given."""
        waiting = [within or self.root()]
        found = []
        while waiting:
            thing = waiting.pop(0)
            try:
                if thing is None or not is_showing(thing):
                    continue
                if thing.get_role_name() == role and name in (None, thing.get_name()):
                    found.append(thing)
                waiting += [thing.get_child_at_index(i) for i in range(thing.get_child_count())]
            except GLib.GError:
                continue  # it went away while we looked
        return found

    def thing(self, role, name=None):
        """Waits until one of that role and name shows."""
        return self.wait("a %s called %r" % (role, name), lambda: (self.showing(role, name) or [None])[0])

    def click_on(self, role, name):
        """In its middle, with the left button, once it is where it stays."""
        place = [None, extents(self.thing(role, name))]

        def stays():
            place.append(extents(self.thing(role, name)))
            return place[-1] == place[-2] and place[-1][2] > 0
        self.wait("a place for " + repr(name), stays)
        x, y, width, height = place[-1]
        self.screen.click(x + width // 2, y + height // 2)

    def choose(self, *names):
        """Clicks along the menus."""
        for name in names:
            self.click_on("menu item", name)


def is_showing(thing):
    return thing.get_state_set().contains(Atspi.StateType.SHOWING)


def extents(thing):
    """Left, top, width and height on the screen."""
    rect = thing.get_extents(Atspi.CoordType.SCREEN)
    return rect.x, rect.y, rect.width, rect.height


class EditorTest(unittest.TestCase):
    """Starts a screen for each test. main() has told the program and the folder of samples."""
    program = samples = bus = None
    size = SCREEN

    def setUp(self):
        self.folder = tempfile.mkdtemp(prefix="zarn-window-")
        self.addCleanup(shutil.rmtree, self.folder)
        self.editor = Editor(self.program, self.folder, self.bus, self.size)
        self.screen = self.editor.screen
        self.addCleanup(self.screen.end)

    def expect_a_clean_end(self):
        try:
            self.assertEqual(self.editor.process.wait(DEADLINE_S), 0)
        except subprocess.TimeoutExpired:
            self.fail("the program doesn't end")


def main(needs_bus):
    """Runs the tests of the calling file: FILE ZARN SAMPLES_FOLDER [TEST...]. Without the tools it says so, with status
    77."""
    missing = [tool for tool in TOOLS if not shutil.which(tool)]
    if not os.path.exists(MANAGER_SETTINGS):
        missing.append(MANAGER_SETTINGS)
    if needs_bus:
        needed = {"gir1.2-atspi-2.0": Atspi, A11Y_LAUNCHER: os.path.exists(A11Y_LAUNCHER)}
        missing += [what for what, is_there in needed.items() if not is_there]
    if missing:
        print("skipped: there is no " + ", no ".join(missing))
        sys.exit(SKIPPED)
    EditorTest.program, EditorTest.samples = map(os.path.abspath, sys.argv[1:3])
    if needs_bus:
        EditorTest.bus = Bus()
    try:
        unittest.main(argv=sys.argv[:1] + sys.argv[3:])
    finally:
        if needs_bus:
            EditorTest.bus.end()
