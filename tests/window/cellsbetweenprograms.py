"""Cells go from one running program to another through the clipboard of a display.

    cellsbetweenprograms.py KDHOST
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

from wholerun import PATIENCE, Display, until

COPY = """TABLEIMPORT
numbers.csv
0,250
@cells #0 A1:B2
@key CTRL+C
@cells none
LINE 0,0 1,1

"""
PASTE = """TABLEIMPORT
numbers.csv
0,250
@cells #0 C3
@key CTRL+V
@cells none
QUIT
"""


class Program:
    """A program with a window that carries a script out, in a folder of its own, and dumps its drawing at the end."""

    def __init__(self, kdhost, folder, display, script):
        folder.mkdir()
        (folder / "runtime").mkdir(mode=0o700)
        (folder / "numbers.csv").write_text("1,2,,\n3,4,,\n5,6,,\n7,8,,\n")
        (folder / "script.kds").write_text(script)
        self.dump = folder / "dump.json"
        environment = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb", TMPDIR=str(folder),
                           XDG_CONFIG_HOME=str(folder / "config"), XDG_RUNTIME_DIR=str(folder / "runtime"))
        self.process = subprocess.Popen(
            [kdhost, "--lang", "en", "--script", "script.kds", "--dump", "dump.json"], cwd=folder, env=environment)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.process.kill()
        self.process.wait()

    def texts(self):
        cells = json.loads(self.dump.read_text(encoding="utf-8"))["tables"][0]["cells"]
        return [[cell["text"].rstrip("\n") for cell in row] for row in cells]


def whole(path):
    """Whether the file holds a whole dump."""
    try:
        json.loads(path.read_text(encoding="utf-8"))
    except (OSError, ValueError):
        return False
    return True


def main():
    kdhost = pathlib.Path(sys.argv[1]).resolve()
    with tempfile.TemporaryDirectory() as name, Display() as display:
        folder = pathlib.Path(name)
        # The first program stays open, as the owner of what it has put on the clipboard.
        with Program(kdhost, folder / "one", display.name, COPY) as one:
            until("the copy", lambda: whole(one.dump))
            assert one.process.poll() is None, "the first program ended with its script"
            with Program(kdhost, folder / "other", display.name, PASTE) as other:
                assert other.process.wait(PATIENCE) == 0
                expected = [["1", "2", "", ""], ["3", "4", "", ""], ["5", "6", "1", "2"], ["7", "8", "3", "4"]]
                assert other.texts() == expected, other.texts()
    print("The cells arrived.")


if __name__ == "__main__":
    main()
