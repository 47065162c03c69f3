"""Starts Bracefold from the built program's menu, makes a truss in it, and analyses that truss in the program.

Usage: bracefold_test.py PROGRAM BRACEFOLD PICTURE
PICTURE: where a picture of the screen is kept when the test fails.
"""

import shutil
import sys

from desktop import DEADLINE, Desktop, wait_for

NODES, MEMBERS = 20, 37  # of a Pratt truss of ten bays


def expect(condition, what):
    if not condition:
        raise AssertionError(what)


def make_a_truss(desktop, name):
    """Ten bays instead of eight, saved by keys."""
    window = desktop.focus("^Bracefold$")
    desktop.press("alt+b")
    desktop.type("10")
    desktop.press("ctrl+s")
    desktop.focus("^Save As$")
    desktop.type(name)
    desktop.press("Return")
    saved = desktop.documents / (name + ".stw")
    wait_for("the saved truss", lambda: saved.exists() and saved.stat().st_size > 0)
    desktop.run("xdotool", "windowfocus", "--sync", window)
    desktop.press("ctrl+q")
    wait_for("the end of Bracefold", lambda: desktop.window("^Bracefold$") is None)
    return saved


def open_and_analyse(desktop, name):
    desktop.focus("^Strutwright$")
    desktop.press("ctrl+o")
    desktop.focus("^Open$")
    desktop.type(name + ".stw")
    desktop.press("Return")
    desktop.focus(f"^{name}.stw$")
    desktop.press("F5")
    scratch = desktop.program.parent / "temp_truss.stw"
    wait_for("the analysis", lambda: scratch.exists() and scratch.stat().st_size > 0)
    return scratch


def leave(desktop):
    desktop.press("ctrl+q")
    errors = desktop.process.communicate(timeout=DEADLINE)[1]
    expect(desktop.process.returncode == 0, f"the program ended with status {desktop.process.returncode}\n{errors}")
    expect(errors == "", f"the programs complained:\n{errors}")


def do_the_task(desktop):
    desktop.start()
    desktop.focus("^Strutwright$")
    desktop.press("alt+t", "b")
    saved = make_a_truss(desktop, "bridge").read_bytes()
    counts = [int.from_bytes(saved[at:at + 2], "little") for at in (2, 4)]
    expect(counts == [NODES, MEMBERS], f"the saved truss has {counts} nodes and members")
    expect(open_and_analyse(desktop, "bridge").read_bytes() == saved, "the program analysed something else")
    leave(desktop)


def main(program, bracefold, picture):
    with Desktop(program) as desktop:
        shutil.copy(bracefold, desktop.program.parent)
        try:
            do_the_task(desktop)
        except Exception:
            desktop.save_picture(picture, "1280x900+0+0")
            raise


if __name__ == "__main__":
    main(*sys.argv[1:])
