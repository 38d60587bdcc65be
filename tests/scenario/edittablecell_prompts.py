def check(run):
    (table,) = run.dump["tables"]
    assert (table["rows"], table["columns"]) == (5, 5)
    assert table["merges"] == [[2, 1, 3, 2]]
    assert table["selection"] is None
    for row in table["cells"][2:4]:
        for cell in row[1:3]:
            assert (cell["style"], cell["alignment"]) == ("_HEADER", 5)
    assert all(cell["background"] == "none" for row in table["cells"] for cell in row)
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "ChangeCellAlignment", "SetCellStyle", "MergeCell", "LeftInsert",
                                     "LAYER"]
    assert run.dump["open"] == []
