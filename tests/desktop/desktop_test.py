"""Does a whole task in the built program: opens an example, analyses it, looks at it, saves it and leaves.

Usage: desktop_test.py PROGRAM EXAMPLE PICTURE
PICTURE: where a picture of the screen is kept when the test fails.
"""

import pathlib
import sys

from desktop import Desktop, expect, wait_for

DISPLAY_AREA = "700x380+10+85"  # of the truss display, well inside its window
RED, GREEN, BLUE = (255, 0, 0), (0, 255, 0), (0, 0, 255)


def ink(desktop):
    """How many pixels of the truss display are red, green and blue."""
    seen = desktop.pixels(DISPLAY_AREA)
    return {colour: seen.count(colour) for colour in (RED, GREEN, BLUE)}


def has_ink(desktop, *colours):
    counts = ink(desktop)
    return all(counts[colour] >= 20 for colour in colours)


def analyse(desktop, position=0):
    desktop.open_example(position)
    wait_for("the loads and supports of the example", lambda: has_ink(desktop, RED, GREEN))
    expect(ink(desktop)[BLUE] == 0, "there are member forces before the analysis")
    desktop.press("F5")
    wait_for("the member forces", lambda: has_ink(desktop, RED, GREEN, BLUE))


def save(desktop, name):
    desktop.press("ctrl+shift+s")
    desktop.focus("^Save As$")
    desktop.type(name)
    desktop.press("Return")
    desktop.focus(f"^{name}$")
    return desktop.documents / name


def do_the_task(desktop, example):
    desktop.start()
    analyse(desktop)
    saved = save(desktop, "saved.stw")
    desktop.leave()
    model = example.read_bytes()
    expect(saved.read_bytes() == model, "the saved model is not the example")
    expect((desktop.program.parent / "temp_truss.stw").read_bytes() == model, "the scratch copy is not the example")


def main(program, example, picture):
    with Desktop(program, [example]) as desktop:
        try:
            do_the_task(desktop, pathlib.Path(example))
        except Exception:
            desktop.save_picture(picture, "1280x900+0+0")
            raise


if __name__ == "__main__":
    main(*sys.argv[1:])
