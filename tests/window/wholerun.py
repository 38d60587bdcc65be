"""One whole run by mouse and keyboard, from outside the program: from an empty drawing to a table that is filled,
formatted and exported. Events come from the X server, as a person's do.

    wholerun.py KDHOST [FOLDER FOR PICTURES]
"""
import csv
import json
import os
import pathlib
import subprocess
import sys
import tempfile
import time

PATIENCE = 60.0  # seconds; each wait ends as soon as what it waits for is there


def until(what, test):
    """Waits until the test gives something true, and gives that."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        found = test()
        if found:
            return found
        time.sleep(0.05)
    raise AssertionError(f"{what} did not come")


class Display:
    """An X server without a screen to look at."""

    def __enter__(self):
        read, write = os.pipe()
        self.server = subprocess.Popen(
            ["Xvfb", "-displayfd", str(write), "-nolisten", "tcp", "-screen", "0", "1400x900x24"],
            pass_fds=[write], stderr=subprocess.DEVNULL)
        os.close(write)
        self.name = ":" + os.fdopen(read).readline().strip()
        return self

    def __exit__(self, *_):
        self.server.terminate()
        self.server.wait()


class Person:
    """Somebody at a keyboard and a mouse, at a person's pace. The server keeps events in order, so a slow program only
    falls behind."""

    def __init__(self, display):
        self.environment = dict(os.environ, DISPLAY=display)

    def do(self, *words):
        done = subprocess.run(["xdotool", *map(str, words)], env=self.environment, capture_output=True, text=True)
        assert done.returncode == 0, f"xdotool {words}: {done.stderr}"
        return done.stdout.strip()

    def type(self, text):
        self.do("type", "--delay", "20", text)

    def key(self, *names):
        for name in names:
            self.do("key", name)
            time.sleep(0.15)

    def command(self, line):
        self.type(line)
        self.key("Return")
        time.sleep(0.3)

    def click(self, x, y, button=1, times=1):
        self.do("mousemove", x, y)
        time.sleep(0.1)
        self.do("click", "--repeat", times, "--delay", 80, button)
        time.sleep(0.3)

    def drag(self, x, y, to_x, to_y):
        self.do("mousemove", x, y, "mousedown", 1)
        for step in range(1, 5):
            self.do("mousemove", x + (to_x - x) * step // 4, y + (to_y - y) * step // 4)
            time.sleep(0.05)
        self.do("mouseup", 1)
        time.sleep(0.3)

    def picture(self, path):
        if path:
            subprocess.run(["import", "-window", "root", str(path)], env=self.environment, check=True)


def main():
    kdhost = pathlib.Path(sys.argv[1]).resolve()
    pictures = pathlib.Path(sys.argv[2]).resolve() if len(sys.argv) > 2 else None
    with tempfile.TemporaryDirectory() as name, Display() as display:
        run(kdhost, pathlib.Path(name), display.name, pictures)
    print("The whole run went well.")


def run(kdhost, folder, display, pictures):
    log = folder / "said.txt"
    environment = dict(os.environ, DISPLAY=display, QT_QPA_PLATFORM="xcb", XDG_CONFIG_HOME=name_of(folder / "config"),
                       XDG_RUNTIME_DIR=name_of(folder / "runtime"), HOME=name_of(folder / "home"))
    with open(log, "w", encoding="utf-8") as out:
        program = subprocess.Popen([kdhost, "--lang", "en", "--dump", folder / "dump.json"], env=environment, stdout=out,
                                   stderr=subprocess.STDOUT, cwd=folder)
        try:
            act(Person(display), folder, pictures)
            assert program.wait(PATIENCE) == 0, log.read_text()
        finally:
            program.kill()
            program.wait()
    check(folder)


def name_of(path):
    path.mkdir(mode=0o700)
    return str(path)


def act(person, folder, pictures):
    window = until("the window", lambda: windows(person)).split()[-1]
    person.do("windowfocus", "--sync", window)
    person.do("windowsize", "--sync", window, 1300, 850)
    person.do("windowmove", "--sync", window, 20, 20)
    time.sleep(0.5)

    # A table of three columns, as the dialog proposes, is placed by a pick; its first cell opens by itself.
    person.type("TABLE")
    person.key("Return")
    time.sleep(1.0)
    shot(person, pictures, "dialog")
    person.key("Return")
    time.sleep(0.5)
    person.do("mousemove", 300, 200)
    person.do("mousemove", 420, 260)
    time.sleep(0.3)
    shot(person, pictures, "jig")
    person.click(420, 260)
    time.sleep(0.8)
    person.type("Parts list")
    shot(person, pictures, "editor")
    for cell in ("Part", "Count", "Price", "Bolt M8", "12", "1.5", "Nut M8", "20", "0.5", "Sum"):
        person.key("Tab")
        person.type(cell)
    person.key("Return")
    person.key("Escape")
    person.command("ZOOM")
    person.command("Extents")
    shot(person, pictures, "filled")

    # A click selects the table, another one a cell; what is typed then begins to edit it.
    person.click(*TITLE)
    person.click(*COUNT_SUM)
    shot(person, pictures, "cell")
    person.type("=")
    time.sleep(0.5)
    person.type("B3+B4")
    person.key("Return", "Escape")
    person.click(*TITLE)
    person.drag(*COUNT_SUM, *BOLT_PRICE)
    shot(person, pictures, "cells")
    person.key("Escape")

    # The figures go to the right.
    person.command("EDITTABLECELL")
    person.click(*TITLE)
    for line in ("B3:C5", "Format", "ALignment", "MR", "Quit"):
        person.command(line)
    shot(person, pictures, "formatted")

    # A row too many goes by the command, and comes back by undo.
    person.command("EDITTABLECELL")
    person.click(*TITLE)
    for line in ("3", "Operation", "deleteROw", "Quit", "U"):
        person.command(line)
    shot(person, pictures, "undone")

    person.command("FILEDIA")
    person.command("0")
    person.command("TABLEEXPORT")
    person.click(*TITLE)
    person.command(str(folder / "parts.csv"))

    # The drawing has no file: its loss is asked about, and Cancel leaves everything as it was.
    person.command("QUIT")
    shot(person, pictures, "question")
    person.key("Escape")
    person.command("QUIT")
    person.key("alt+n")


# Places in the table of five rows and three columns once it fills the view.
TITLE = (300, 300)
COUNT_SUM = (669, 541)
BOLT_PRICE = (1090, 422)


def windows(person):
    done = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "Drawing1"], env=person.environment,
                          capture_output=True, text=True)
    return done.stdout.strip()


def shot(person, pictures, name):
    if pictures:
        pictures.mkdir(parents=True, exist_ok=True)
        person.picture(pictures / f"wholerun-{name}.png")


def check(folder):
    table = json.loads((folder / "dump.json").read_text())["tables"][0]
    texts = [[cell["text"] for cell in row] for row in table["cells"]]
    assert texts == [["Parts list", "", ""], ["Part", "Count", "Price"], ["Bolt M8", "12", "1.5"],
                     ["Nut M8", "20", "0.5"], ["Sum", "32", ""]], texts
    field = table["cells"][4][1]["field"]
    assert "B3+B4" in field, field
    alignments = [[cell["alignment"] for cell in row] for row in table["cells"]]
    assert [row[1:] for row in alignments[2:]] == [[6, 6]] * 3, alignments
    assert [row[0] for row in alignments[2:]] == [2] * 3, alignments
    with open(folder / "parts.csv", encoding="utf-8-sig", newline="") as exported:
        rows = [[text.strip() for text in row] for row in csv.reader(exported)]  # an empty cell is a blank
    assert rows == texts, rows



if __name__ == "__main__":
    main()
