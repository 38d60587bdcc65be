"""Walks of the cell editor over a table of five rows and four columns, with a block across columns (B2:C2), one
across rows (D3:D4), one across both (A4:B5), and a locked cell (C3). Another one holds a block."""


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


PART = ["LINE 0,0 10,0 10,5 C", "BLOCK", "part", "0,0", "ALL", ""]


def with_block(text, number, name):
    """The text of a drawing's file whose table's cell of that number, counted row by row, holds the block."""
    lines = text.splitlines()
    tags = list(zip([line.strip() for line in lines[::2]], lines[1::2]))
    table = tags.index(("0", "ACAD_TABLE"), tags.index(("2", "ENTITIES")))
    cell = [place for place in range(table, len(tags)) if tags[place][0] == "171"][number]
    tags[cell] = ("171", "2")
    records = [place for place, tag in enumerate(tags) if tag == ("0", "BLOCK_RECORD")]
    record = next(place for place in records if ("2", name) in tags[place:place + 10])
    handle = next(value for code, value in tags[record:] if code == "5")
    rotation = next(place for place in range(cell, len(tags)) if tags[place][0] == "145")
    tags[rotation + 1:rotation + 1] = [("340", handle), ("144", "1.0")]
    return "\n".join(line for tag in tags for line in tag) + "\n"


def check_block_cell(run):
    """A cell that holds a block gets no editor and no message. The walk comes to it; Esc leaves it its block."""
    run.play([*PART, "TABLEIMPORT", "named.csv", "0,200", "SAVEAS", "@file plain.dxf"])
    text = (run.folder / "plain.dxf").read_text(encoding="utf-8")
    (run.folder / "blocks.dxf").write_text(with_block(text, 5, "part"), encoding="utf-8")
    dump = run.play(["OPEN", "@file blocks.dxf",
                     "@cells #0 B2", "TABLEDIT", "", "@expect prompt Command:", "@message line",
                     "@cells #0 A2", "TABLEDIT", "", "@expect editor A2", "@edit TAB", "@expect editor", "@edit ESC"])
    (table,) = dump["tables"]
    assert table["cells"][1][1]["block"]["name"] == "part", table["cells"][1][1]
    texts = [cell["text"].strip() for cell in table["cells"][1]]
    assert texts[0] == "A2" and texts[2:] == ["C2", "D2"], texts
    assert dump["open"] == []


def check(run):
    check_block_cell(run)
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
