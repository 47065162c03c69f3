"""Unpacks the Debian package, starts the program from there in a fresh home, and analyses an installed example.

Usage: package_test.py PACKAGE PICTURE
PACKAGE: the .deb file.  PICTURE: where a picture of the screen is kept when the test fails.
"""

import os
import pathlib
import subprocess
import sys
import tempfile

from desktop import Desktop, expect, wait_for
from desktop_test import analyse
from settings_test import close_welcome

NOBODY = 65534


def unpack(package, root):
    """The package's files below a root that everybody may read and only its owner may write."""
    subprocess.run(["dpkg-deb", "-x", package, root], check=True)
    pathlib.Path(root).chmod(0o755)
    return pathlib.Path(root) / "usr"


def contents(folder):
    return sorted(str(path.relative_to(folder)) for path in folder.rglob("*"))


def expect_what_a_desktop_looks_for(usr):
    for path in ("bin/strutwright", "bin/strutwright-cli", "bin/bracefold", "share/applications/strutwright.desktop",
                 "share/mime/packages/strutwright.xml", "share/icons/hicolor/scalable/apps/strutwright.svg",
                 "share/metainfo/org.strutwright.strutwright.metainfo.xml", "share/doc/strutwright/copyright",
                 "share/strutwright/examples/fink_roof.stw", "share/doc/strutwright/manual/index.html"):
        expect((usr / path).is_file(), f"the package has no {path}")
    for program in (usr / "bin").iterdir():
        expect((usr / f"share/man/man1/{program.name}.1.gz").is_file(), f"{program.name} has no manual page")


def analyse_on_the_command_line(usr):
    example = usr / "share/strutwright/examples/fink_roof.stw"
    done = subprocess.run([usr / "bin/strutwright-cli", "analyse", example], capture_output=True, text=True, check=True)
    expect(done.stdout.startswith(f"{example}: ok\n"), f"strutwright-cli says\n{done.stdout}{done.stderr}")


def expect_registration(desktop, model):
    """The desktop knows type and program while the first run still welcomes its user."""
    query = ("env", "XDG_CURRENT_DESKTOP=GNOME", "xdg-mime", "query")
    wait_for("the type of model files",
             lambda: desktop.run(*query, "filetype", model) == b"application/x-strutwright\n")
    default = desktop.run(*query, "default", "application/x-strutwright")
    expect(default == b"strutwright.desktop\n", f"model files are opened by {default}")
    entry = (desktop.data / "applications/strutwright.desktop").read_text()
    expect(f"\nExec={desktop.program} --open %f\n" in entry, f"the entry starts something else:\n{entry}")
    icon = desktop.data / "icons/hicolor/scalable/mimetypes/application-x-strutwright.svg"
    expect(icon.is_file(), "model files have no icon")


def analyse_in_the_window(usr, picture):
    """As a user who may not write where the program is installed: that is root's alone."""
    index = (usr / "share/strutwright/examples/index.txt").read_text().splitlines()
    examples = [line.split(" | ")[0] + ".stw" for line in index]
    user = NOBODY if os.geteuid() == 0 else None
    with Desktop(usr / "bin/strutwright", fresh_home=True, installed=True, user=user) as desktop:
        try:
            desktop.start()
            expect_registration(desktop, usr / "share/strutwright/examples" / examples[0])
            close_welcome(desktop)
            analyse(desktop, examples.index("fink_roof.stw"))
            desktop.leave()
            kept = desktop.data / "strutwright" / "temp_truss.stw"
            expect(kept.is_file(), "the scratch copy is not among the user's data")
        except Exception:
            desktop.save_picture(picture, "1280x900+0+0")
            raise


def main(package, picture):
    with tempfile.TemporaryDirectory(prefix="strutwright-package-") as root:
        usr = unpack(package, root)
        expect_what_a_desktop_looks_for(usr)
        before = contents(usr)
        analyse_on_the_command_line(usr)
        analyse_in_the_window(usr, picture)
        expect(contents(usr) == before, "the program has written into its own folder")


if __name__ == "__main__":
    main(*sys.argv[1:])
