"""Sizes and place after the drags, and what one of them alone did."""

TABLE = ["TABLEIMPORT", "people.csv", "10,200", "@pick 12,198"]


def table_of(dump):
    return dump["tables"][0]


def check(run):
    table = table_of(run.dump)
    assert table["position"] == [110, 250, 0], table["position"]
    assert table["columnWidths"][0] == 75, table["columnWidths"]
    assert table["rowHeights"][0] == 20, table["rowHeights"]
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "GRIP_EDIT", "GRIP_EDIT", "GRIP_EDIT"], run.dump["undoSteps"]
    assert table_of(run.play([*TABLE, "@drag 12,198 60,180"]))["selection"] == [0, 0, 1, 1]
    narrowed = table_of(run.play([*TABLE, "@drag 55,200 11,200"]))
    assert 1 < narrowed["columnWidths"][0] < 45, narrowed["columnWidths"]
