"""Walks of the cell editor over a table of five rows and four columns, with a block across columns (B2:C2), one
across rows (D3:D4), one across both (A4:B5), and a locked cell (C3)."""


def edit_cells(cells, *words):
    return ["EDITTABLECELL", "10,195", cells, *words, "Quit"]


def merge(cells):
    return edit_cells(cells, "Operation", "Merge", "mergeAll", "@answer YES")


def shown(cell):
    """Texts of an imported file keep the ends of its lines."""
    return cell + ("\\n" if cell.startswith("D") else "")


TABLE = ["TABLEIMPORT", "named.csv", "0,200", *merge("B2:C2"), *merge("D3:D4"), *merge("A4:B5"),
         *edit_cells("C3", "Content", "Lock")]

FORWARD = ["A1", "B1", "C1", "D1", "A2", "B2", "D2", "A3", "B3", "D3", "A4", "C4", "C5", "D5"]


def walk(key, cells):
    """The editor is on these cells one after another, each left by the key; it then is where the last one tells."""
    lines = ["@cells " + cells[0], "TABLEDIT", ""]
    for cell in cells:
        lines += ["@expect editor " + shown(cell), "@edit " + key]
    return lines


def ends(key, cells):
    return walk(key, cells) + ["@expect prompt Command:"]


def stays(key, cells):
    """At the border the same cell is edited again."""
    return walk(key, cells + cells[-1:]) + ["@expect editor " + shown(cells[-1]), "@edit OUTSIDE", "@expect prompt Command:"]


DOWN = [["C1", "B2", "B3", "A4"], ["D1", "D2", "D3", "D5"], ["C4", "C5"]]
UP = [["D5", "D3", "D2", "D1"], ["C5", "C4", "B2", "B1"], ["A4", "A3", "A2", "A1"]]


def check(run):
    (table,) = run.dump["tables"]
    assert table["cells"][0][1]["text"] == "first\\Psecond"
    assert table["selection"] is None and not run.dump["toolbar"]["visible"]

    lines = list(TABLE)
    lines += ends("TAB", FORWARD) + stays("RIGHT", FORWARD)
    lines += ends("SHIFTTAB", FORWARD[::-1]) + stays("LEFT", FORWARD[::-1])
    for cells in DOWN:
        lines += ends("ENTER", cells) + stays("DOWN", cells)
    for cells in UP:
        lines += ends("SHIFTENTER", cells) + stays("UP", cells)
    dump = run.play(lines)
    (table,) = dump["tables"]
    assert table["merges"] == [[1, 1, 1, 2], [2, 3, 3, 3], [3, 0, 4, 1]], table["merges"]
    texts = [cell["text"].strip() for row in table["cells"] for cell in row if cell["text"]]
    assert sorted(texts) == sorted(FORWARD + ["C3"]), texts
    assert table["selection"] is None and dump["open"] == []
