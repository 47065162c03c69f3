"""Installs the program for Windows under Wine, does in its window what a student does, and removes it.

Usage: windows_test.py FOLDER BUILD PICTURES
FOLDER: where tools/windows has put the installer.  BUILD: the folder of this system's build, whose programs must show the
same texts and give the same digits.  PICTURES: the folder for pictures of the screen, to look at.
"""

import pathlib
import shutil
import statistics
import subprocess
import sys
import time

from desktop import DEADLINE, Desktop, expect, wait_for
from settings_test import close_welcome
from windows_desktop import WINE, WindowsDesktop

TREE = pathlib.Path(__file__).resolve().parent.parent.parent
EXAMPLES = TREE / "examples"
MODELS = TREE / "tests" / "data" / "reference"
SCREEN = "1280x900+0+0"
EXAMPLE = "fink_roof.stw"
SHOW_GLOBAL_K = (958, 92)
MATRIX = "200x180+720+262"  # where its cells show on the screen
STARTS = 5
READY = 2  # s; a window shows before it is drawn and takes keys, and a click is done before it is passed on
JOINTS_DATA = (16, 498)  # the button of the grid of joints, in the window
FIRST_CELL = (140, 558)
RIDGE = (330, 196)  # node 4 of the example in the display, and where the drawing grid has the point (5, 4)
ABOVE_THE_RIDGE = (356, 145)
FROM_A_SPREADSHEET = "1\t2\r\n3\t4\r\n"  # x and y of the first two nodes
GRIDS = {"j": "the joints", "m": "the members", "u": "the results of joints", "l": "the results of members"}


class Course:
    """The steps, in order, with a picture of the screen where there is something to look at."""

    def __init__(self, desktop, pictures):
        self.desktop = desktop
        self.pictures = pictures
        self.before = desktop.registry()

    def picture(self, name):
        time.sleep(READY)
        self.desktop.save_picture(self.pictures / f"windows-{name}.png", SCREEN)

    @property
    def folder(self):
        return self.desktop.program.parent

    def look_at_the_installer(self, setup):
        """Its first page, and away again."""
        with subprocess.Popen([WINE, setup], env=self.desktop.environment, stderr=subprocess.DEVNULL) as installer:
            self.desktop.focus("^Strutwright .* Setup")
            wait_for("the first page", lambda: self.desktop.pixels(SCREEN).count((255, 255, 255)) > 20000)
            self.picture("setup")
            self.desktop.press("Escape")
            installer.wait(timeout=DEADLINE)

    def install(self, setup):
        self.desktop.wine(setup, "/S")
        for name in ("strutwright.exe", "Bracefold.exe", "strutwright-cli.exe", "Qt6Core.dll", "manual/index.html",
                     "examples/index.txt", "licences/LICENSE", "platforms/qwindows.dll"):
            expect((self.folder / name).is_file(), f"the installer has not brought {name}")

    def expect_open_command(self):
        """A double click starts the program with --open, also after the first run."""
        command = self.desktop.wine("reg", "query", "HKCU\\Software\\Classes\\Strutwright.File\\shell\\open\\command", "/ve")
        expect('strutwright.exe" --open "%1"' in command, f"a double click starts {command}")

    def use_the_command_line(self):
        version = self.desktop.wine(self.folder / "strutwright-cli.exe", "--version")
        expect(version.startswith("strutwright-cli "), f"the command line says {version}")
        report = self.desktop.drive / "models" / "report.pdf"
        self.desktop.wine(self.folder / "strutwright-cli.exe", "analyse", self.folder / "examples" / EXAMPLE, "--report",
                          r"C:\models\report.pdf")
        expect(report.read_bytes().startswith(b"%PDF"), "the report is no PDF")

    def compare_results(self, program):
        """Every model gives the same digits, or is refused with the same words."""
        models = sorted(model.name for model in MODELS.glob("*.stw"))
        found, expected = (
            subprocess.run([*command, "analyse", "--format", "json", *models], env=self.desktop.environment, cwd=MODELS,
                           capture_output=True, timeout=DEADLINE)
            for command in ([WINE, self.folder / "strutwright-cli.exe"], [program]))
        expect(len(found.stdout.splitlines()) == len(models), f"the command line says {found.stderr}")
        expect((found.returncode, found.stderr) == (expected.returncode, expected.stderr), f"it says {found.stderr}")
        for there, here in zip(found.stdout.splitlines(), expected.stdout.splitlines()):
            expect(there == here, f"the results are\n{there}\nand not\n{here}")
        print(f"{len(models)} models give the same digits")

    def compare_grids(self, expected):
        analyse_example(self.desktop, self.folder / "examples")
        found = read_grids(self.desktop)
        self.picture("analysed")
        for key, what in GRIDS.items():
            expect(found[key] == expected[key], f"{what} are\n{found[key]!r}\nand not\n{expected[key]!r}")

    def save_as(self, name):
        self.desktop.press("ctrl+shift+s")
        self.desktop.focus("^Save As$")
        time.sleep(READY)
        self.desktop.press("Home", "shift+End")
        self.desktop.type("C:\\models\\" + name)
        self.desktop.press("Return")

    def save(self):
        self.save_as("my roof.stw")
        self.desktop.focus("^my roof.stw$")
        saved = self.desktop.drive / "models" / "my roof.stw"
        expect(saved.read_bytes() == (self.folder / "examples" / EXAMPLE).read_bytes(), "the saved model is another")

    def save_over_a_read_only_file(self):
        kept = self.desktop.drive / "models" / "kept.stw"
        kept.write_bytes(b"kept")
        self.desktop.wine("attrib", "+r", r"C:\models\kept.stw")
        self.save_as("kept.stw")
        time.sleep(READY)
        self.desktop.press("Return")  # yes, replace it
        wait_for("the message", lambda: self.desktop.windows("^Strutwright$"))
        self.picture("read-only")
        self.desktop.focus("^Strutwright$")
        self.desktop.press("Return")
        expect(kept.read_bytes() == b"kept", "the file that is read-only was written")
        self.desktop.focus("^my roof.stw$")

    def kill_and_restore(self):
        """What was typed and not saved comes back after the program was ended at once."""
        window = self.desktop.focus("^my roof.stw$")
        for place in (JOINTS_DATA, FIRST_CELL):
            self.desktop.click(window, *place)
            time.sleep(READY)
        self.desktop.press("9", "Return")
        left = self.desktop.user_folder("AppData", "Roaming", "strutwright")
        model = (self.desktop.drive / "models" / "my roof.stw").read_bytes()
        wait_for("the copy of the unsaved model",
                 lambda: any(copy.read_bytes() not in (b"", model) for copy in left.glob("unsaved-*.stw")))
        self.desktop.kill()
        self.desktop.start()
        self.desktop.focus("^Strutwright$")
        self.picture("after-a-kill")
        self.desktop.press("alt+f", "r")
        self.desktop.focus("^Restored model$")
        self.desktop.press("alt+j", "Tab", "ctrl+a", "ctrl+c")
        wait_for("the number that was typed", lambda: self.desktop.clipboard().startswith("9\t"))
        self.desktop.kill()

    def open_a_file(self):
        """As the file manager does at a double click."""
        self.desktop.start("--open", r"C:\models\my roof.stw")
        window = self.desktop.focus("^my roof.stw$")
        self.desktop.press("F5")
        self.desktop.press("alt+a", "r")
        self.desktop.focus("Report")
        self.picture("report")
        self.desktop.press("Escape")
        self.desktop.focus("^my roof.stw$")
        wait_for("the stiffness matrix", lambda: self.shows_matrix(window))
        self.picture("equations")
        self.desktop.leave()

    def shows_matrix(self, window):
        """Whether it does after another click; a window that was just closed may take the first."""
        self.desktop.click(window, *SHOW_GLOBAL_K)
        time.sleep(READY)
        return any(sum(colour) < 200 for colour in self.desktop.pixels(MATRIX))

    def drag_and_paste(self):
        """A node by the mouse; cells that another program has copied."""
        self.desktop.start("--open", r"C:\models\my roof.stw")
        window = self.desktop.focus("^my roof.stw$")
        time.sleep(READY)
        self.desktop.press("F12")
        self.desktop.drag(window, RIDGE, ABOVE_THE_RIDGE)
        wait_for("the node that was dragged", lambda: "\r5\t4\t" in copied(self.desktop, "j"))
        self.desktop.copy(FROM_A_SPREADSHEET)
        self.desktop.press("Home", "ctrl+Home", "ctrl+v")
        wait_for("the cells that were pasted", lambda: copied(self.desktop, "j").startswith("1\t2\t"))
        expect("\r3\t4\t" in self.desktop.clipboard(), f"pasted was {self.desktop.clipboard()!r}")
        self.picture("dragged-and-pasted")
        self.desktop.kill()

    def open_from_a_share(self):
        """On a server, as home folders are; Wine has its shares in a folder."""
        share = self.desktop.prefix / "dosdevices" / "unc" / "server" / "models"
        share.mkdir(parents=True)
        shutil.copyfile(self.folder / "examples" / EXAMPLE, share / "shared.stw")
        self.desktop.start("--open", r"\\server\models\shared.stw")
        self.desktop.focus("^shared.stw$")
        self.desktop.kill()

    def make_a_truss(self):
        """In Bracefold, from the menu: ten bays, saved by keys."""
        self.desktop.start()
        self.desktop.focus("^Strutwright$")
        self.desktop.press("alt+t", "b")
        self.desktop.focus("^Bracefold$")
        self.picture("bracefold")
        self.desktop.press("alt+b")
        self.desktop.type("10")
        self.desktop.press("ctrl+s")
        self.desktop.focus("^Save As$")
        time.sleep(READY)
        self.desktop.press("Home", "shift+End")
        self.desktop.type(r"C:\models\bridge.stw")
        self.desktop.press("Return")
        saved = self.desktop.drive / "models" / "bridge.stw"
        wait_for("the saved truss", lambda: saved.exists() and saved.stat().st_size > 0)
        counts = [int.from_bytes(saved.read_bytes()[at:at + 2], "little") for at in (2, 4)]
        expect(counts == [20, 37], f"the saved truss has {counts} nodes and members")
        self.desktop.wine("taskkill", "/f", "/im", "Bracefold.exe")
        self.desktop.kill()

    def uninstall(self):
        """Nothing of the installer is left; what the user made is.  While a program runs, all of it stays."""
        self.desktop.start()
        self.desktop.focus("^Strutwright$")
        self.desktop.wine(self.folder / "uninstall.exe", "/S")
        time.sleep(READY)
        self.expect_open_command()
        expect((self.folder / "Qt6Core.dll").exists(), "the uninstaller has removed what was in use")
        self.desktop.kill()
        self.desktop.wine(self.folder / "uninstall.exe", "/S")
        wait_for("the end of the uninstaller", lambda: not self.desktop.program.exists())
        after = self.desktop.registry()
        left = {key: value for key, value in after.items()
                if self.before.get(key) != value and "strutwright" in f"{key} {value}".lower()}
        print("keys that the installer has left:", left or "none")
        expect(not left, f"the registry still has {left}")
        expect((self.desktop.drive / "models" / "my roof.stw").is_file(), "the uninstaller has removed a model")
        files = sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*"))
        expect(files in ([], ["temp_truss.stw"]), f"the uninstaller has left {files}")


def analyse_example(desktop, examples):
    names = [line.split(" | ")[0] + ".stw" for line in (examples / "index.txt").read_text().splitlines()]
    desktop.start()
    close_welcome(desktop)
    desktop.open_example(names.index(EXAMPLE))
    desktop.press("F5")


def read_grids(desktop):
    """The texts of the four grids by the keys that show them."""
    texts = {}
    for key in GRIDS:
        before = desktop.clipboard()
        wait_for(f"the copy of {GRIDS[key]}", lambda key=key, last=before: copied(desktop, key) not in ("", last))
        texts[key] = desktop.clipboard()
    return texts


def copied(desktop, key):
    desktop.press(f"alt+{key}", "Tab", "ctrl+a", "ctrl+c")
    time.sleep(READY / 4)
    return desktop.clipboard()


def print_start(desktop, where):
    """How long the frame takes to show, to 0.05 s, and the memory that the program then holds: medians."""
    seconds, megabytes = [], []
    for _ in range(STARTS):
        began = time.monotonic()
        desktop.start()
        wait_for("the frame", lambda: desktop.window("^Strutwright$"))
        seconds.append(time.monotonic() - began)
        time.sleep(READY)
        status = pathlib.Path(f"/proc/{desktop.process.pid}/status").read_text()
        megabytes.append(int(status.split("VmRSS:")[1].split()[0]) / 1000)
        desktop.kill()
    print(f"{where}: {statistics.median(seconds):.2f} s to the frame, {statistics.median(megabytes):.0f} MB")


def grids_here(program):
    """What the program of this system shows."""
    with Desktop(program, fresh_home=True) as desktop:
        shutil.copytree(EXAMPLES, desktop.root / "share" / "strutwright" / "examples", dirs_exist_ok=True)
        analyse_example(desktop, EXAMPLES)
        grids = read_grids(desktop)
        desktop.kill()
        print_start(desktop, "here")
        return grids


def main(folder, build, pictures):
    programs = pathlib.Path(build).resolve() / "src"
    setup = next(pathlib.Path(folder).resolve().glob("*-setup.exe"))
    pathlib.Path(pictures).mkdir(parents=True, exist_ok=True)
    expected = grids_here(programs / "app" / "strutwright")
    with WindowsDesktop() as desktop:
        course = Course(desktop, pathlib.Path(pictures))
        try:
            course.look_at_the_installer(setup)
            course.install(setup)
            course.use_the_command_line()
            course.compare_results(programs / "cli" / "strutwright-cli")
            course.compare_grids(expected)
            course.expect_open_command()
            course.save()
            course.save_over_a_read_only_file()
            course.kill_and_restore()
            course.open_a_file()
            course.drag_and_paste()
            course.open_from_a_share()
            course.make_a_truss()
            print_start(desktop, "on Windows")
            course.uninstall()
        except Exception:
            course.picture("failed")
            raise


if __name__ == "__main__":
    main(*sys.argv[1:])
