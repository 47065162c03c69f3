"""Starts the built program on a model, as a file manager does, and out of Bracefold.

Usage: open_test.py PROGRAM BRACEFOLD EXAMPLE PICTURE
PICTURE: where a picture of the screen is kept when the test fails.
"""

import pathlib
import shutil
import sys

from desktop import Desktop, expect, wait_for
from desktop_test import GREEN, RED, has_ink


def open_a_model(desktop, example):
    """The model is drawn and saved to its own file without a question."""
    model = desktop.documents / "my roof.stw"
    shutil.copy(example, model)
    desktop.start("--open", str(model))
    desktop.focus("^my roof.stw$")
    wait_for("the loads and supports of the model", lambda: has_ink(desktop, RED, GREEN))
    model.chmod(0o600)
    before = model.stat().st_ino
    desktop.press("ctrl+s")
    wait_for("the saved model", lambda: model.stat().st_ino != before)
    desktop.leave()
    expect(f"1={model}".replace(" ", "%20") in desktop.settings.read_text().replace(" ", "%20"),
           f"the model is not the first recent file:\n{desktop.settings.read_text()}")


def ignore_a_bare_path(desktop, example):
    desktop.start(example)
    desktop.focus("^Strutwright$")
    desktop.leave()


def save_and_open(desktop):
    """From Bracefold, which lies beside the program."""
    desktop.start("--open")  # as a desktop does that has no file to pass
    desktop.focus("^Strutwright$")
    desktop.press("alt+t", "b")
    window = desktop.focus("^Bracefold$")
    desktop.press("alt+p")
    desktop.focus("^Save As$")
    desktop.type("bridge")
    desktop.press("Return")
    desktop.focus("^bridge.stw$")
    wait_for("the loads and supports of the truss", lambda: has_ink(desktop, RED, GREEN))
    desktop.press("ctrl+q")
    wait_for("the end of the program that Bracefold started", lambda: desktop.window("^bridge.stw$") is None)
    desktop.focus_window(window)
    desktop.press("ctrl+q")
    wait_for("the end of Bracefold", lambda: desktop.window("^Bracefold$") is None)
    desktop.focus("^Strutwright$")
    desktop.leave()


def main(program, bracefold, example, picture):
    with Desktop(program) as desktop:
        shutil.copy(bracefold, desktop.program.parent)
        try:
            open_a_model(desktop, example)
            ignore_a_bare_path(desktop, pathlib.Path(example))
            save_and_open(desktop)
        except Exception:
            desktop.save_picture(picture, "1280x900+0+0")
            raise


if __name__ == "__main__":
    main(*sys.argv[1:])
