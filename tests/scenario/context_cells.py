import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import context_rows  # noqa: E402
from context_rows import BLOCK, Row, align, data_format, empty, fill, insert_columns, insert_rows, lock, merge  # noqa: E402
from context_rows import row_copied, size_columns, size_rows, text_becomes, unchanged  # noqa: E402
from context_rows import without_columns, without_rows  # noqa: E402

ROWS = [Row(f"IDR_ALIGNMENT_{name}", align(number), "ChangeCellAlignment") for number, name in enumerate(
    ("TOPLEFT", "TOPCENTER", "TOPRIGHT", "MIDDLELEFT", "MIDDLECENTER", "MIDDLERIGHT", "BOTTOMLEFT", "BOTTOMCENTER",
     "BOTTOMRIGHT"), start=1)]
ROWS += [
    Row("IDR_LOCKING_CONTENTLOCKED", lock(1), "EditCellLock"),
    Row("IDR_LOCKING_FORMATLOCKED", lock(16), "EditCellLock"),
    Row("IDR_LOCKING_CONTENTFORMATLOCKED", lock(17), "EditCellLock"),
    Row("IDR_LOCKING_UNLOCKED", lock(0), "EditCellLock", before=["@context B3", "@menu IDR_LOCKING_FORMATLOCKED"]),
    Row("IDR_BYROW_ABOVEINSERT", insert_rows(2, 2, 2), "AboveInsert"),
    Row("IDR_BYROW_BELOWINSERT", insert_rows(4, 3, 2), "BelowInsert"),
    Row("IDR_BYROW_DELETE", without_rows(2, 4), "DeleteRows"),
    Row("IDR_BYROW_SIZEEQUALLY", size_rows(2, 4), "SizeRowsEvenly"),
    Row("IDR_BYCOLUMN_LEFTINSERT", insert_columns(1, 1, 2), "LeftInsert"),
    Row("IDR_BYCOLUMN_RIGHTINSERT", insert_columns(3, 2, 2), "RightInsert"),
    Row("IDR_BYCOLUMN_DELETE", without_columns(1, 3), "DeleteColumn"),
    Row("IDR_BYCOLUMN_SIZEEQUALLY", size_columns(1, 3), "SizeColumnsEvenly"),
    Row("IDR_MERGE_ALL", merge([2, 1, 3, 2]), "MergeCell"),
    Row("IDR_MERGE_BYROW", merge([2, 1, 2, 2], [3, 1, 3, 2]), "MergeByRow"),
    Row("IDR_MERGE_BYCOLUMN", merge([2, 1, 3, 1], [2, 2, 3, 2]), "MergeByColumn"),
    Row("IDR_TABLECELL_UNMERGE", merge(), "UMergeCell", before=["@context B3", "@menu IDR_MERGE_ALL"]),
    Row("IDR_TABLECELL_DELETEALLCONTENT", empty([3, 0, 4, 3]), "DeleteContent", cells="A4:D5", at="A4"),
    Row("IDR_TABLECELL_CUT", empty([4, 0, 4, 3]), "CutTableCell", cells="A5:D5", at="A5"),
    Row("IDR_TABLECELL_COPY", unchanged, None, cells="A5:D5", at="A5"),
    Row("IDR_TABLECELL_PASTE", row_copied(4, 1), "PasteTable",
        cells="A2:D2", at="A2",
        before=["@cells A5:D5", "@context A5", "@menu IDR_TABLECELL_COPY", "@cells #{number} A2:D2"]),
    Row("IDR_TABLECELL_EDITTEXT", text_becomes(1, 1, "typed"), "TableEdit", cells="B2",
        at="B2", after=["@edit TAB typed", "@edit ESC"]),
    Row("IDR_TABLECELL_BACKGROUNDFILL", fill("rgb:1,2,3"), "BackgroundFill", after=["@color 1,2,3"]),
    Row("IDR_TABLECELL_DATAFORMAT", data_format(2, 16), "SetDataFormat",
        after=["@select IDC_DATAFORMAT_TYPE_COMBOBOX #3", "@select IDC_DATAFORMAT_UNIT_COMBOBOX #2", "@click IDOK"]),
    Row("IDR_TABLECELL_BORDERS", unchanged, None),
    Row("IDR_TABLECELL_MATCHCELL", unchanged, None),
]


def check(run):
    table = run.dump["tables"][0]
    assert table["cells"][0][3]["text"] == ""
    assert run.dump["undoSteps"][-1] == "DeleteContent"
    context_rows.check(run, ROWS, BLOCK)
