"""Runs the built program several times in a fresh home: the welcome, the recent files and their limit.

Usage: settings_test.py PROGRAM EXAMPLES PICTURE
EXAMPLES: the folder of the example models.  PICTURE: where a picture of the screen is kept when the test fails.
"""

import configparser
import pathlib
import sys

from desktop import Desktop, expect, wait_for

FRAME = "^Strutwright$"  # the title of a frame without a file, and of every box


def stored(desktop):
    """The settings file: sections of keys, as they are written."""
    settings = configparser.RawConfigParser()
    settings.optionxform = str
    settings.read(desktop.settings)
    return {section: dict(settings[section]) for section in settings.sections()}


def recent_files(desktop):
    """The names of the stored files that have one, the most recent first."""
    paths = stored(desktop).get("Recent%20Files", {})
    return [pathlib.Path(paths[key]).name for key in sorted(paths, key=int) if paths[key]]


def close_welcome(desktop):
    """Waits for the box over the shown frame, and closes it; the frame has the keyboard then."""
    wait_for("the welcome over the frame", lambda: len(desktop.windows(FRAME)) == 2)
    box, frame = sorted(desktop.windows(FRAME), key=desktop.area)
    desktop.focus_window(box)
    desktop.press("Return")
    wait_for("the end of the welcome", lambda: desktop.windows(FRAME) == [frame])
    desktop.focus_window(frame)


def open_example(desktop, number, name):
    """Chooses an example, counted from 0, in the File menu."""
    desktop.open_file_menu(desktop.focus(r"^Strutwright$|\.stw$"))
    desktop.press("e", *["Down"] * number, "Return")
    desktop.focus(f"^{name}$")
    wait_for(f"{name} at the top of the list", lambda: recent_files(desktop)[:1] == [name])


def lower_limit(desktop, limit):
    desktop.press("alt+t", "o")
    desktop.focus("^Options$")
    desktop.type(str(limit))
    desktop.press("Return")
    wait_for("the new limit", lambda: stored(desktop)["Config"]["MAX_FILES"] == str(limit))
    desktop.focus(r"\.stw$")


def do_the_runs(desktop, names):
    desktop.start()
    close_welcome(desktop)
    desktop.leave()
    expect(stored(desktop) == {"Config": {"MAX_FILES": "3", "noRUF": "0"}}, f"a first run stored {stored(desktop)}")

    desktop.start("/models/bridge.stw")  # as the desktop does for a file that is double-clicked
    close_welcome(desktop)
    for number, name in enumerate(names):
        open_example(desktop, number, name)
    desktop.leave()
    expect(recent_files(desktop) == names[::-1], f"the list holds {recent_files(desktop)}")

    desktop.start()
    desktop.open_file_menu(desktop.focus(FRAME))
    desktop.press("3")
    desktop.focus(f"^{names[0]}$")
    lower_limit(desktop, 2)
    expect(recent_files(desktop) == names[:0:-1], f"the shorter list holds {recent_files(desktop)}")
    desktop.leave()
    expect(stored(desktop)["Config"] == {"MAX_FILES": "2", "noRUF": "2"}, f"{stored(desktop)['Config']} is left")

    desktop.start()
    desktop.open_file_menu(desktop.focus(FRAME))
    desktop.press("2")
    desktop.focus(f"^{names[1]}$")
    desktop.leave()


def main(program, examples, picture):
    models = sorted(pathlib.Path(examples).glob("*.stw"))[:3]
    with Desktop(program, models, fresh_home=True) as desktop:
        try:
            do_the_runs(desktop, [model.name for model in models])
        except Exception:
            desktop.save_picture(picture, "1280x900+0+0")
            raise


if __name__ == "__main__":
    main(*sys.argv[1:])
