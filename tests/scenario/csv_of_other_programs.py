import csv
import random
import re
import sqlite3
import subprocess

# Separators, quotes, codes and letters of many scripts; the last column holds no comma, so that what it must come to is
# plain from its line.
LETTERS = list("ab,\"; '=%1.\t轴Øé🙂עش")
LAST = list("xyz\" 9轴")

DIALECTS = {
    "spreadsheet": dict(dialect="excel"),
    "unix": dict(dialect="unix"),
    "line_feeds": dict(lineterminator="\n"),
    "words_in_quotes": dict(quoting=csv.QUOTE_NONNUMERIC),
}


def check(run):
    choose = random.Random(7)
    for name, dialect in DIALECTS.items():
        for encoding in ("utf-8", "utf-8-sig"):
            rows = table_of(choose)
            path = run.folder / f"{name}.csv"
            with open(path, "w", newline="", encoding=encoding) as file:
                csv.writer(file, **dialect).writerows(rows)
            check_file(run, path, encoding)
    path = run.folder / "database.csv"
    rows = table_of(choose)
    with sqlite3.connect(run.folder / "parts.db") as database:
        database.execute(f"create table parts({', '.join('abcdefgh'[:len(rows[0])])})")
        database.executemany(f"insert into parts values({', '.join('?' * len(rows[0]))})", rows)
    database.close()
    path.write_bytes(subprocess.check_output(["sqlite3", "-csv", run.folder / "parts.db", "select * from parts"]))
    check_file(run, path, "utf-8")


def table_of(choose):
    """Rows of one length, none of which begins empty or holds a line end."""
    def text(letters, least):
        return "".join(choose.choice(letters) for _ in range(choose.randint(least, 6)))

    columns = choose.randint(2, 5)
    return [[text(LETTERS, 1)] + [text(LETTERS, 0) for _ in range(columns - 2)] + [text(LAST, 0)]
            for _ in range(choose.randint(1, 5))]


def check_file(run, path, encoding):
    text = path.read_bytes().decode(encoding)
    read = list(csv.reader(text.splitlines(True)))
    exported = run.folder / "exported.csv"
    exported.unlink(missing_ok=True)
    dump = run.play(["TABLEIMPORT", path.name, "0,200", "TABLEEXPORT", "@cells #0 A1", f"@file {exported}"])
    cells = [[cell["text"] for cell in row] for row in dump["tables"][0]["cells"]]
    # The last field of a line is taken as it stands there, its line end included.
    expected = [row[:-1] + [line.split(",")[-1]] for row, line in zip(read, re.findall("[^\n]*\n", text))]
    assert cells == expected, (path.name, cells, expected)
    assert read_back(exported) == [[shown(cell) for cell in row] for row in cells], path.name


def read_back(path):
    """The rows of an exported file, its escapes resolved, as another program reads them."""
    lines = path.read_bytes().decode("cp936").splitlines(True)
    return [[re.sub(r"\\U\+([0-9A-F]{4})", lambda escape: chr(int(escape[1], 16)), field) for field in row]
            for row in csv.reader(lines)]


def shown(text):
    """A cell as it is exported: empty ones as a blank, a carriage return as nothing, what has no escape as a mark."""
    return text.replace("\r", "").replace("🙂", "?") or " "
