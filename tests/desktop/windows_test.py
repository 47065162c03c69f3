"""Installs the program on Windows, as Wine is, does in its window what a student does, and removes it.

Usage: windows_test.py FOLDER PROGRAM PICTURES
FOLDER: where tools/windows has put the installer.  PROGRAM: the desktop program of this system, whose grids must show the
same texts.  PICTURES: the folder for pictures of the screen, to look at.
"""

import pathlib
import stat
import sys

from desktop import Desktop, expect, wait_for
from settings_test import close_welcome
from windows_desktop import WindowsDesktop

SCREEN = "1280x900+0+0"
EXAMPLE = 2  # its position in the menu: three bars, worked by hand
GRIDS = ((640, 600), 4)


def pictured(desktop, pictures, name):
    desktop.save_picture(pictures / f"windows-{name}.png", SCREEN)


def install(desktop, setup):
    """Without a question, as an administrator of a class room does; gives the registry before and after."""
    before = desktop.registry()
    desktop.wine(setup, "/S")
    expect(desktop.program.is_file(), "the installer has not put the program where a user's programs are")
    for name in ("Bracefold.exe", "strutwright-cli.exe", "Qt6Core.dll", "manual/index.html", "examples/index.txt",
                 "licences/LICENSE", "platforms/qwindows.dll"):
        expect((desktop.program.parent / name).is_file(), f"the installer has not brought {name}")
    return before


def expect_open_command(desktop):
    command = desktop.wine("reg", "query", r"HKCU\Software\Classes\Strutwright.File\shell\open\command", "/ve")
    expect('strutwright.exe" --open "%1"' in command, f"a double click starts {command}")


def read_grids(desktop):
    """The texts of the four grids, copied one after the other."""
    texts = []
    for key in ("j", "m", "r", "e"):
        desktop.press(f"alt+{key}")
        desktop.press("ctrl+a", "ctrl+c")
        texts.append(desktop.clipboard())
    return texts


def analyse_example(desktop):
    desktop.start()
    close_welcome(desktop)
    desktop.open_example(EXAMPLE)
    desktop.press("F5")
    wait_for("the analysis", lambda: any(desktop.scratch_copies()))


def uninstall(desktop, before):
    """Nothing of the installer is left; what the user made is."""
    desktop.wine(desktop.program.parent / "uninstall.exe", "/S")
    wait_for("the end of the uninstaller", lambda: not desktop.program.exists())
    after = desktop.registry()
    ours = {key: value for key, value in after.items() if before.get(key) != value and "trutwright" in str(key) + value}
    expect(not ours, f"the registry still has {ours}")
