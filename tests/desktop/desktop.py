"""An X display of its own with the program on it, which keyboard and mouse drive as a user does."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import time

DEADLINE = 90  # s; generous, for sanitizers on a busy machine
KEPT_VARIABLES = ("PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS")


def wait_for(what, probe):
    """The first true value that probe() gives; fails after the deadline."""
    end = time.monotonic() + DEADLINE
    while not (value := probe()):
        if time.monotonic() > end:
            raise TimeoutError(f"waited {DEADLINE} s in vain for {what}")
        time.sleep(0.05)
    return value


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


class Desktop:
    """Holds an X server without a window manager and a scratch folder with an installed copy of the program.

    The copy keeps what the program writes beside itself out of the build, and offers the examples that are named.
    Its user has opened a file before, so that no box welcomes the user, unless this is a fresh home.
    A program that is installed already is started where it lies; user: as whom, by number, where the caller is root.
    """

    def __init__(self, program, examples=(), size="1280x900", fresh_home=False, installed=False, user=None):
        self.root = pathlib.Path(tempfile.mkdtemp(prefix="strutwright-desktop-"))
        self.documents = self.root / "home" / "Documents"
        self.data = self.root / "home" / "data"
        for folder in (self.documents, self.root / "run"):
            folder.mkdir(parents=True)
        (self.root / "run").chmod(0o700)
        self.program = pathlib.Path(program) if installed else self._install(program, examples)
        self.settings = self.root / "home" / "config" / "strutwright.ini"
        if not fresh_home:
            self.settings.parent.mkdir()
            self.settings.write_text("[Recent%20Files]\n1=/models/earlier.stw\n")
        self.user = user
        if user is not None:
            self._give_to_user()
        self.process = None
        self.server = None
        self.environment = self._environment(size)

    def _install(self, program, examples):
        copy = self.root / "bin" / "strutwright"
        copy.parent.mkdir()
        shutil.copy(program, copy)
        models = self.root / "share" / "strutwright" / "examples"
        models.mkdir(parents=True)
        for example in examples:
            shutil.copy(example, models)
        return copy

    def _give_to_user(self):
        self.root.chmod(0o755)
        for path in (self.root / "run", self.root / "home", *(self.root / "home").rglob("*")):
            os.chown(path, self.user, self.user)

    def __enter__(self):
        return self

    def __exit__(self, *failure):
        for process in (self.process, self.server):
            if process is not None and process.poll() is None:
                process.kill()
                process.wait()
        shutil.rmtree(self.root)

    def _environment(self, size):
        environment = {name: os.environ[name] for name in KEPT_VARIABLES if name in os.environ}
        home = self.root / "home"
        environment.update(
            DISPLAY=self._start_server(size), HOME=str(home), LANG="C.UTF-8", XDG_RUNTIME_DIR=str(self.root / "run"),
            XDG_CONFIG_HOME=str(home / "config"), XDG_DATA_HOME=str(self.data), XDG_CACHE_HOME=str(home / "cache"))
        return environment

    def _start_server(self, size):
        """Starts the server on the first free display and gives its name once it takes connections."""
        ready, report = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(report), "-screen", "0", f"{size}x24", "-nolisten", "tcp", "-noreset"],
            pass_fds=[report], stderr=subprocess.DEVNULL)
        os.close(report)
        with os.fdopen(ready) as line:
            number = line.readline().strip()
        if not number:
            raise RuntimeError("Xvfb did not start")
        return f":{number}"

    def start(self, *arguments):
        self.process = subprocess.Popen([self.program, *arguments], env=self.environment, stderr=subprocess.PIPE, text=True,
                                        user=self.user, group=self.user)

    def leave(self):
        """Leaves the program, whose window has the keyboard, and expects that it had nothing to complain of."""
        self.press("ctrl+q")
        errors = self.process.communicate(timeout=DEADLINE)[1]
        expect(self.process.returncode == 0, f"the program ended with status {self.process.returncode}\n{errors}")
        expect(errors == "", f"the program complained:\n{errors}")

    def kill(self):
        """Ends the program at once, as a power cut does."""
        self.process.kill()
        self.process.communicate()

    def run(self, *command):
        """The output of a command on this display; None when it fails."""
        done = subprocess.run(command, env=self.environment, capture_output=True, timeout=DEADLINE)
        return done.stdout if done.returncode == 0 else None

    def windows(self, title):
        """The identifiers of the visible windows with a title that matches."""
        found = self.run("xdotool", "search", "--onlyvisible", "--name", title)
        return found.decode().split() if found else []

    def window(self, title):
        """The identifier of the visible window with a title that matches, or None."""
        return next(iter(self.windows(title)), None)

    def area(self, window):
        """How many pixels a window has."""
        geometry = self.run("xdotool", "getwindowgeometry", "--shell", window).decode().split()
        sizes = dict(line.split("=") for line in geometry)
        return int(sizes["WIDTH"]) * int(sizes["HEIGHT"])

    def focus(self, title):
        """Gives a window the keyboard once it is there, as a window manager does."""
        return self.focus_window(wait_for(f"the window {title}", lambda: self.window(title)))

    def focus_window(self, window):
        wait_for("the keyboard", lambda: self.run("xdotool", "windowfocus", "--sync", window) is not None)
        return window

    def press(self, *keys):
        self.run("xdotool", "key", "--delay", "40", *keys)

    def type(self, text):
        self.run("xdotool", "type", "--delay", "40", text)

    def click(self, window, x, y):
        self.run("xdotool", "mousemove", "--window", window, str(x), str(y), "click", "1")

    def drag(self, window, start, end):
        """With the left button, by way of the middle: a drag begins with its first move."""
        self.run("xdotool", "mousemove", "--window", window, *map(str, start), "mousedown", "1")
        for part in (0.5, 1):
            x, y = (round(a + (b - a) * part) for a, b in zip(start, end))
            self.run("xdotool", "mousemove", "--window", window, str(x), str(y))
            time.sleep(0.1)
        self.run("xdotool", "mouseup", "1")

    def copy(self, text):
        """Puts a text into the clipboard, as another program does."""
        subprocess.run(["xclip", "-selection", "clipboard", "-i"], env=self.environment, input=text.encode(), check=True,
                       timeout=DEADLINE, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def clipboard(self):
        """The text that was copied last."""
        return (self.run("xclip", "-o", "-selection", "clipboard") or b"").decode()

    def open_example(self, position=0):
        """Chooses it by its position in the File menu, whose title stands in the window's upper left corner."""
        self.open_file_menu(self.focus("^Strutwright$"))
        self.press("e", *["Down"] * position, "Return")
        return self.focus(r"\.stw$")

    def open_file_menu(self, window):
        self.click(window, 20, 10)

    def pixels(self, area):
        """The colours (red, green, blue) of an area "WxH+X+Y" of the screen, row by row."""
        data = self.run("import", "-silent", "-window", "root", "-crop", area, "-depth", "8", "rgb:-")
        return list(zip(data[0::3], data[1::3], data[2::3])) if data else []

    def save_picture(self, path, area):
        self.run("import", "-silent", "-window", "root", "-crop", area, "+repage", str(path))
