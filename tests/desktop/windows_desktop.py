"""The programs for Windows under Wine, on an X display and in a registry of their own, driven as a user does."""

import pathlib
import subprocess

from desktop import DEADLINE, Desktop, expect, wait_for

WINE = "/usr/lib/wine/wine64"
SERVER = "/usr/lib/wine/wineserver64"
# Without what Wine offers to install, and without entries in this system's menus.
OVERRIDES = "mscoree,mshtml,winemenubuilder.exe="


class WindowsDesktop(Desktop):
    """Its program lies where the installer puts it."""

    def __init__(self, size="1280x900"):
        super().__init__("strutwright.exe", size=size, fresh_home=True, installed=True)

    def _environment(self, size):
        environment = super()._environment(size)
        environment.update(WINEPREFIX=str(self.prefix), WINEDEBUG="-all", WINEDLLOVERRIDES=OVERRIDES)
        return environment

    @property
    def prefix(self):
        return self.root / "wine"

    @property
    def drive(self):
        return self.prefix / "drive_c"

    def user_folder(self, *parts):
        """A folder of the only user, by its name on Windows."""
        users = [path for path in (self.drive / "users").iterdir() if path.name != "Public"]
        return users[0].joinpath(*parts)

    def __enter__(self):
        subprocess.run([WINE, "wineboot", "-i"], env=self.environment, check=True, timeout=DEADLINE * 2,
                       stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        # The fonts of Windows are not here; what stands for them should look like them.
        for name in ("Segoe UI", "MS Shell Dlg 2"):
            self.wine("reg", "add", r"HKCU\Software\Wine\Fonts\Replacements", "/v", name, "/d", "DejaVu Sans", "/f")
        self.settle()
        self.program = self.user_folder("AppData", "Local", "Programs", "Strutwright", "strutwright.exe")
        (self.drive / "models").mkdir()
        return self

    def __exit__(self, *failure):
        subprocess.run([SERVER, "-k"], env=self.environment, check=False)
        super().__exit__(*failure)

    def settle(self):
        """Waits until every program has ended, when Wine has written its registry."""
        subprocess.run([SERVER, "-w"], env=self.environment, check=True, timeout=DEADLINE)

    def wine(self, *command, status=0):
        """Runs a Windows program to its end and gives what it prints."""
        done = subprocess.run([WINE, *map(str, command)], env=self.environment, capture_output=True, timeout=DEADLINE)
        expect(done.returncode == status, f"{command} ended with {done.returncode}:\n{done.stdout}{done.stderr}")
        return done.stdout.decode()

    def start(self, *arguments):
        self.process = subprocess.Popen([WINE, str(self.program), *map(str, arguments)], env=self.environment,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)

    def leave(self):
        self.press("alt+F4")
        expect(self.process.wait(timeout=DEADLINE) == 0, f"the program ended with {self.process.returncode}")

    def kill(self):
        """Ends the program at once, as a power cut does."""
        self.wine("taskkill", "/f", "/im", pathlib.Path(self.program).name)
        self.process.wait(timeout=DEADLINE)

    def registry(self):
        """Every value of the user's registry: (key, name) to data."""
        self.settle()
        values, key = {}, None
        for line in (self.prefix / "user.reg").read_text(errors="replace").splitlines():
            if line.startswith("["):
                key = line[1:line.index("]")]
                values[key, None] = ""
            elif key and line.startswith(('"', "@")):
                name, _, data = line.partition("=")
                values[key, name] = data
        return values
