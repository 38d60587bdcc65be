import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import context_rows  # noqa: E402
from context_rows import Row, align, empty, insert_columns, insert_rows, lock, size_columns  # noqa: E402
from context_rows import size_rows, unchanged, without_columns, without_rows  # noqa: E402


def on_table(item, change, step, **more):
    """An item of the menu of the table, on which no cell is selected."""
    return Row(item, change, step, cells=None, at="table", **more)


def on_row(item, change, step):
    return Row(item, change, step, cells="A1", at="row 3")


def on_column(item, change, step):
    return Row(item, change, step, cells="A1", at="column B")


ROWS = [
    on_table("IDR_BYCOLUMN_SIZEEQUALLY", size_columns(0, 4), "SizeColumnsEvenly"),
    on_table("IDR_BYROW_SIZEEQUALLY", size_rows(0, 5), "SizeRowsEvenly"),
    on_table("IDR_TABLESTYLE_SAVESTYLE", unchanged, None),
    on_table("IDR_TABLESTYLE_SETCURRENTSTYLE", unchanged, None),
    on_table("IDR_TABLESTYLE_REMOVEOVERRIDES", unchanged, "ClearTableOverride",
             before=["@cells B3:C4", "@context B3", "@menu IDR_ALIGNMENT_BOTTOMRIGHT", "@cells none"]),
    on_table("IDR_TABLESTYLE_EXPORT", unchanged, None, after=["@file {language}.csv"]),
    on_table("IDR_TABLESTYLE_INDICATORCOLOR", unchanged, None, after=["@color 11,22,33"]),
    on_row("IDR_BYROW_ABOVEINSERT", insert_rows(2, 2, 1), "AboveInsert"),
    on_row("IDR_BYROW_BELOWINSERT", insert_rows(3, 2, 1), "BelowInsert"),
    on_row("IDR_BYROW_DELETE", without_rows(2, 3), "DeleteRows"),
    on_row("IDR_TABLECELL_DELETEALLCONTENT", empty([2, 0, 2, 3]), "DeleteContent"),
    on_row("IDR_ALIGNMENT_MIDDLERIGHT", align(6, [2, 0, 2, 3]), "ChangeCellAlignment"),
    on_row("IDR_LOCKING_FORMATLOCKED", lock(16, [2, 0, 2, 3]), "EditCellLock"),
    on_column("IDR_BYCOLUMN_LEFTINSERT", insert_columns(1, 1, 1), "LeftInsert"),
    # It asks about rows, which a column that its indicator has selected doesn't have.
    on_column("IDR_BYCOLUMN_RIGHTINSERT", unchanged, None),
    on_column("IDR_BYCOLUMN_DELETE", without_columns(1, 2), "DeleteColumn"),
    on_column("IDR_TABLECELL_DELETEALLCONTENT", empty([0, 1, 4, 1]), "DeleteContent"),
    on_column("IDR_ALIGNMENT_BOTTOMLEFT", align(7, [0, 1, 4, 1]), "ChangeCellAlignment"),
]


def check(run):
    assert run.dump["undoSteps"] == ["TABLEIMPORT"], run.dump["undoSteps"]
    context_rows.check(run, ROWS, [-1, 1, -1, 1])
    for language in context_rows.LANGUAGES:
        text = (run.folder / f"{language}.csv").read_text(encoding="utf-8")
        assert "Kitchen" in text, text
