"""What the scenarios of context menus and of the toolbar share: an item is chosen on an imported table, and the dump
compared with what it is told to do to the table."""

import copy
from types import SimpleNamespace

SPACING = 1000
LANGUAGES = ("en", "zh_CN")
# The cells that most items are chosen on: B3:C4.
BLOCK = [2, 1, 3, 2]
CELL_PROPERTIES = ("text", "alignment", "state", "background", "dataType", "unitType")


def Row(item, change, step, cells="B3:C4", at="B3", before=(), after=()):
    """An item, the function that changes a table as it should, and the step of undo; lines that come before the right
    button and after the choice, in which {number} is the table's place in the dump and {language} that of the run.
    Without a place `at` no right button is pressed, and without an item nothing is chosen."""
    return SimpleNamespace(item=item, change=change, step=step, cells=cells, at=at, before=before, after=after)


def look(table):
    """What the rows are compared by."""
    shown = {name: table[name] for name in ("rowHeights", "columnWidths", "merges")}
    shown["cells"] = [[{name: cell[name] for name in CELL_PROPERTIES} for cell in row] for row in table["cells"]]
    return copy.deepcopy(shown)


def place(number):
    return number * SPACING + 200


def in_place(lines, number, language):
    return (line.format(number=number, language=language) for line in lines)


def lines_for(row, number, language):
    yield from ("TABLEIMPORT", "schedule.csv", f"0,{place(number)}")
    if row.cells:
        yield f"@cells {row.cells}"
    yield from in_place(row.before, number, language)
    at = f"10,{place(number) - 5}" if row.at == "table" else row.at
    if at:
        yield f"@context {at}"
    if row.item:
        yield f"@menu {row.item}"
    yield from in_place(row.after, number, language)


def cells_in(table, area):
    top, left, bottom, right = area
    return [cell for row in table["cells"][top:bottom + 1] for cell in row[left:right + 1]]


def set_cells(area, **values):
    def change(table):
        for cell in cells_in(table, area):
            cell.update(values)
    return change


def align(number, area=BLOCK):
    return set_cells(area, alignment=number)


def lock(state, area=BLOCK):
    return set_cells(area, state=state)


def empty(area):
    return set_cells(area, text="")


def fill(color, area=BLOCK):
    return set_cells(area, background=color)


def data_format(data_type, unit_type, area=BLOCK):
    return set_cells(area, dataType=data_type, unitType=unit_type)


def unchanged(_):
    pass


def merge(*merges):
    return lambda table: table.update(merges=list(merges))


def row_copied(source, target):
    def change(table):
        table["cells"][target] = copy.deepcopy(table["cells"][source])
    return change


def text_becomes(row, column, text):
    return lambda table: table["cells"][row][column].update(text=text)


def fresh(cell):
    """An inserted cell inherits all but the content."""
    return dict(cell, text="")


def insert_rows(at, origin, count):
    def change(table):
        heights, cells = table["rowHeights"], table["cells"]
        new = [[fresh(cell) for cell in cells[origin]] for _ in range(count)]
        heights[at:at] = [heights[origin]] * count
        cells[at:at] = new
    return change


def insert_columns(at, origin, count):
    def change(table):
        widths = table["columnWidths"]
        widths[at:at] = [widths[origin]] * count
        for row in table["cells"]:
            row[at:at] = [fresh(row[origin]) for _ in range(count)]
    return change


def without_rows(first, end):
    def change(table):
        del table["rowHeights"][first:end]
        del table["cells"][first:end]
    return change


def without_columns(first, end):
    def change(table):
        del table["columnWidths"][first:end]
        for row in table["cells"]:
            del row[first:end]
    return change


def size_columns(first, end):
    def change(table):
        widths = table["columnWidths"]
        widths[first:end] = [sum(widths[first:end]) / (end - first)] * (end - first)
    return change


def size_rows(first, end):
    """A row counts only when it is higher than the total so far."""
    def change(table):
        heights = table["rowHeights"]
        total = 0.0
        for height in heights[first:end]:
            total += height if height > total else 0.0
        heights[first:end] = [total / (end - first)] * (end - first)
    return change


def check(run, rows, selection):
    """`selection` is that of the last table, which no later command has given up."""
    imported = look(run.play(["TABLEIMPORT", "schedule.csv", "0,200"])["tables"][0])
    for language in LANGUAGES:
        lines = [line for number, row in enumerate(rows) for line in lines_for(row, number, language)]
        dump = run.play(lines, f"--lang {language}")
        assert len(dump["tables"]) == len(rows)
        assert dump["tables"][-1]["selection"] == selection, dump["tables"][-1]["selection"]
        for row, table in zip(rows, dump["tables"]):
            expected = copy.deepcopy(imported)
            row.change(expected)
            found = look(table)
            for name, value in expected.items():
                assert found[name] == value, f"{language} {row.item}: {name} is {found[name]}, not {value}"
        for step in {row.step for row in rows if row.step}:
            wanted = sum(row.step == step for row in rows)
            assert dump["undoSteps"].count(step) >= wanted, f"{language}: {step} in {dump['undoSteps']}"
