import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).parent))
import context_rows  # noqa: E402
from context_rows import BLOCK, Row, align, data_format, fill, insert_columns, insert_rows, lock, merge  # noqa: E402
from context_rows import unchanged, without_columns, without_rows  # noqa: E402

FORMATS = {"ANGLE": (2, 2), "CURRENCY": (2, 16), "DATE": (8, 0), "DECIMAL": (2, 0), "GENERAL": (512, 0),
           "PERCENTAGE": (2, 32), "POINT": (32, 0), "TEXT": (4, 0), "WHOLE": (1, 0)}


def button(name, change, step, before=(), after=()):
    return Row(None, change, step, at=None, before=[*before, f"@click IDC_TABLEDIT_{name}"], after=after)


def dropped(name, item, change, step, before=(), after=()):
    return Row(item, change, step, at=None, before=[*before, f"@drop IDC_TABLEDIT_{name}"], after=after)


def chosen(name, row, change, step, after=()):
    return Row(None, change, step, at=None, before=[f"@select IDC_TABLEDIT_{name} {row}"], after=after)


MERGED = ["@drop IDC_TABLEDIT_MERGECELL", "@menu IDR_MERGE_ALL"]
ROWS = [dropped("ALIGNMENT", f"IDR_ALIGNMENT_{name}", align(number), "ChangeCellAlignment") for number, name in enumerate(
    ("TOPLEFT", "TOPCENTER", "TOPRIGHT", "MIDDLELEFT", "MIDDLECENTER", "MIDDLERIGHT", "BOTTOMLEFT", "BOTTOMCENTER",
     "BOTTOMRIGHT"), start=1)]
ROWS += [dropped("DATAFORMAT", f"IDR_FORMAT_{name}", data_format(*pair), "DataFormat") for name, pair in FORMATS.items()]
ROWS += [
    dropped("DATAFORMAT", "IDR_FORMAT_CUSTOMFORMAT", data_format(2, 16), "SetDataFormat",
            after=["@select IDC_DATAFORMAT_TYPE_COMBOBOX #3", "@select IDC_DATAFORMAT_UNIT_COMBOBOX #2", "@click IDOK"]),
    dropped("LOCKING", "IDR_LOCKING_CONTENTLOCKED", lock(1), "EditCellLock"),
    dropped("LOCKING", "IDR_LOCKING_FORMATLOCKED", lock(16), "EditCellLock"),
    dropped("LOCKING", "IDR_LOCKING_CONTENTFORMATLOCKED", lock(17), "EditCellLock"),
    dropped("LOCKING", "IDR_LOCKING_UNLOCKED", lock(0), "EditCellLock",
            before=["@click IDC_TABLEDIT_LOCKING", "@menu IDR_LOCKING_FORMATLOCKED"]),
    dropped("MERGECELL", "IDR_MERGE_ALL", merge([2, 1, 3, 2]), "MergeCell"),
    dropped("MERGECELL", "IDR_MERGE_BYROW", merge([2, 1, 2, 2], [3, 1, 3, 2]), "MergeByRow"),
    dropped("MERGECELL", "IDR_MERGE_BYCOLUMN", merge([2, 1, 3, 1], [2, 2, 3, 2]), "MergeByColumn"),
    button("UNMERGECELL", merge(), "UMergeCell", before=MERGED),
    button("TOPINSERT", insert_rows(2, 2, 2), "AboveInsert"),
    button("BOTTOMINSERT", insert_rows(4, 3, 2), "BelowInsert"),
    button("ROWDELETE", without_rows(2, 4), "DeleteRows"),
    button("LEFTINSERT", insert_columns(1, 1, 2), "LeftInsert"),
    button("RIGHTINSERT", insert_columns(3, 2, 2), "RightInsert"),
    button("COLUMNDELETE", without_columns(1, 3), "DeleteColumn"),
    button("ALIGNMENT", align(2), "ChangeCellAlignment"),
    button("DATAFORMAT", unchanged, None, after=["@click IDCANCEL"]),
    button("CELLBORDER", unchanged, None, after=["@click IDCANCEL"]),
    button("MERGECELL", unchanged, None, after=["@menu CANCEL"]),
    button("LOCKING", unchanged, None, after=["@menu CANCEL"]),
    button("FORMULA", unchanged, None, after=["@menu CANCEL"]),
    chosen("COLORCOMBO", "#3", fill("aci:1"), "BackgroundFill"),
    chosen("CELLSTYLECOMBO", "#1", unchanged, None),
]


def check(run):
    assert run.dump["undoSteps"] == ["TABLEIMPORT"], run.dump["undoSteps"]
    assert run.dump["toolbar"]["visible"], run.dump["toolbar"]
    context_rows.check(run, ROWS, BLOCK)
