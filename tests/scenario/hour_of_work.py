"""The hour's end: the drawing as it was before it was saved, its numbers, its file of values, its picture, and the parts
in the second drawing. In Chinese the same hour leaves the same."""

import pathlib
import xml.etree.ElementTree as xml

SVG = "{http://www.w3.org/2000/svg}"
SCRIPT = pathlib.Path(__file__).with_suffix(".kds")

# The last field of a line of the file keeps its line end.
TEXTS = [
    ["Pump station 泵站", "", "", "", ""],
    ["Part", "Pieces", "Mass", "Together", "Note\n"],
    ["Bolt M12", "16", "0.055", "0.88", "\n"],
    ["Shaft 轴", "2", "1.54", "3.08", "\"turned, h6\"\n"],
    ["Bearing seat", "4", "0.92", "3.68", "cast\n"],
    ["Sum", "22", "", "7.64", ""],
]
FORMULAS = {(2, 3): "B3*C3", (3, 3): "B4*C4", (4, 3): "B5*C5", (5, 1): "Sum(B3:B5)", (5, 3): "Sum(D3:D5)"}
STYLES = ["_TITLE", "_HEADER", "_DATA", "_DATA", "_DATA", "_DATA"]
LOCKED = {(row, column) for row in (2, 3, 4) for column in (0, 1, 2)}
STEPS = ["TABLESTYLE", "TABLE", "AboveInsert", "BelowInsert", "RightInsert", "MergeCell", "SetCellStyle", "SetCellStyle",
         "TABLEDIT", "TABLEDIT", "CopyTableCell", "PasteTable", "TABLEDIT", "EDITTABLECELL", "CellBorder", "CellBorder",
         "EditCellLock", "CopyTableCell"]

RED, BLACK, YELLOW = "#ff0000", "#000000", "#ffff00"


def cells(table):
    return {(row, column): cell for row, line in enumerate(table["cells"]) for column, cell in enumerate(line)}


def texts(table):
    return [[cell["text"] for cell in row] for row in table["cells"]]


def formulas(table):
    return {place: cell["field"] for place, cell in cells(table).items() if cell["field"] is not None}


def coded(places):
    return {place: f"\\AcExpr ({code})" for place, code in places.items()}


def edge(table, row, column, line):
    grid = cells(table)[row, column]["grid"][str(line)]
    return grid["visible"], grid["style"], grid["weight"], grid["color"], grid["spacing"]


def check_table(table):
    assert texts(table) == TEXTS, texts(table)
    assert formulas(table) == coded(FORMULAS), formulas(table)
    assert [[cell["style"] for cell in row] for row in table["cells"]] == [[style] * 5 for style in STYLES]
    assert {place for place, cell in cells(table).items() if cell["state"] == 1} == LOCKED
    assert {cell["state"] for cell in cells(table).values()} == {0, 1}
    assert table["style"] == "Workshop 车间"
    assert table["merges"] == [[0, 0, 0, 4]], table["merges"]
    assert table["columnWidths"] == [45.0] * 5 and table["rowHeights"] == [15.0, 15.0, 15.0, 21.0, 21.0, 21.0]
    check_borders(table)


def check_borders(table):
    plain, heavy = (True, 1, -2, "byblock", 1.125), (True, 1, 50, "aci:1", 1.125)
    for column in range(5):
        for line in (1, 4, 8, 32):
            assert edge(table, 1, column, line) == heavy, (column, line)
        for line in (2, 16):
            assert edge(table, 1, column, line) == plain, (column, line)
        # The line inside goes with the bottom one, and stays as it is where it is only shown.
        for line in (2, 4):
            assert edge(table, 5, column, line) == (True, 2, -2, "byblock", 2.0), (column, line)
        for line in (1, 8, 16, 32):
            assert edge(table, 5, column, line) == plain, (column, line)


def check_second(drawing):
    [table] = drawing["tables"]
    assert table["style"] == "Standard"
    assert texts(table) == [[""] * 4] + [row[:4] for row in TEXTS[1:]], texts(table)
    assert formulas(table) == coded(FORMULAS), formulas(table)
    assert edge(table, 1, 0, 1)[3] == "aci:1" and edge(table, 5, 0, 4)[1] == 2, "borders are copied"
    # A paste brings the style of what it reads along, though its cells take the table's.
    assert [style["name"] for style in drawing["styles"]] == ["Standard", "Workshop 车间"]


def check_file(file):
    lines = file.read_bytes().decode("gbk").split("\n")
    assert lines[0] == '"Pump station 泵站", , , , ', lines[0]
    assert lines[1:3] == ['"Part","Pieces","Mass","Together","Note', '"'], lines[1:3]
    assert '"Shaft 轴","2","1.54","3.08","""turned, h6""' in lines
    assert '"Sum","22", ,"7.64", ' in lines


class Picture:
    """What stands in an SVG file, in the drawing's own coordinates: the table's first corner is the origin."""

    def __init__(self, file, width):
        self.lines, self.fills, self.texts = set(), set(), []
        groups = list(xml.parse(file).iter(SVG + "g"))
        shapes = [(group, shape) for group in groups for shape in group if shape.tag != SVG + "g"]
        drawn = [(group, shape.get("points")) for group, shape in shapes if shape.tag == SVG + "polyline"]
        points = [[tuple(map(float, point.split(","))) for point in text.split()] for _, text in drawn]
        self.left = min(x for line in points for x, _ in line)
        self.top = min(y for line in points for _, y in line)
        self.scale = (max(x for line in points for x, _ in line) - self.left) / width
        for (group, _), line in zip(drawn, points):
            self.lines.add((group.get("stroke"), *(self.place(*point) for point in line)))
        for group, shape in shapes:
            if shape.tag == SVG + "path":
                corners = [tuple(map(float, corner[1:].split(","))) for corner in shape.get("d").split()]
                self.fills.add((group.get("fill"), self.place(*min(corners)), self.place(*max(corners))))
            elif shape.tag == SVG + "text":
                scale, _, _, _, x, y = map(float, group.get("transform")[len("matrix("):-1].split(","))
                self.texts.append((shape.text, self.place(x + scale * float(shape.get("x")), y)))

    def place(self, x, y):
        return round((x - self.left) / self.scale, 2), round((self.top - y) / self.scale, 2)


def level(color, y, left=0, right=225):
    return color, (left, y), (right, y)


def upright(color, x, top, bottom):
    return color, (x, top), (x, bottom)


def check_picture(file):
    picture = Picture(file, 225)
    ends = [0, -15, -30, -45, -66, -87, -108]
    # The double line stands 2 wide about the table's edge.
    wanted = {level(BLACK, y) for y in (0, -45, -66, -87, -107, -109)} | {level(RED, y) for y in (-15, -30)}
    wanted |= {upright(BLACK, x, 0, -15) for x in (0, 225)}
    wanted |= {upright(RED, x, -15, -30) for x in range(0, 226, 45)}
    # The table's sides close it; the lines between columns end at its near line.
    wanted |= {upright(BLACK, x, -30, -109 if x in (0, 225) else -107) for x in range(0, 226, 45)}
    assert picture.lines == wanted, picture.lines ^ wanted
    assert picture.fills == {(YELLOW, (x, -15), (x + 45, -30)) for x in range(0, 225, 45)}, picture.fills
    # Each text begins in its own cell, the title in the middle of its row; what is too wide is broken.
    shown = {}
    for text, (x, y) in picture.texts:
        row = next(row for row in range(6) if ends[row] > y > ends[row + 1])
        place = (row, 0 if row == 0 else int(x // 45))
        shown[place] = shown.get(place, []) + text.split()
    assert shown == {(row, column): text.split() for row, line in enumerate(TEXTS)
                     for column, text in enumerate(line) if text.strip()}, shown


CHINESE_ROWS = {"Header": "表头", "Data": "数据", "Yellow": "黄", "Red": "红", "0.50 mm": "0.50 毫米", "Middle Center": "正中"}
MADE = ("first.dxf", "first.csv", "second.dxf")


def work_again(run, lines, arguments=""):
    """The dump after these lines of the hour, as if it were worked for the first time."""
    for name in MADE:
        (run.folder / name).unlink()
    return run.play(lines, arguments)


def in_chinese(line):
    command, _, rest = line.partition(" ")
    box, _, row = rest.partition(" ")
    return f"@select {box} {CHINESE_ROWS.get(row, row)}" if command == "@select" else line


def check_unsaved(run, lines, table):
    dump = work_again(run, lines[:lines.index("@file first.dxf") - 1])
    [unsaved] = dump["tables"]
    assert unsaved == table, "saving and opening change nothing"
    assert dump["undoSteps"] == STEPS, dump["undoSteps"]


def check(run):
    lines = SCRIPT.read_text(encoding="utf-8").splitlines()
    [table] = run.dump["tables"]
    check_table(table)
    check_file(run.folder / "first.csv")
    check_picture(run.folder / "hour.svg")
    check_second(run.play([], "--open second.dxf"))
    assert run.dump["open"] == [] and run.dump["undoSteps"] == []

    made = {name: (run.folder / name).read_bytes() for name in MADE + ("hour.svg",)}
    chinese = work_again(run, map(in_chinese, lines), "--lang zh_CN --render hour.svg")
    assert chinese == run.dump
    for name, content in made.items():
        assert (run.folder / name).read_bytes() == content, name
    check_unsaved(run, lines, table)
