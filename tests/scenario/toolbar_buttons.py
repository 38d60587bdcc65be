def check(run):
    [table] = run.dump["tables"]
    assert (table["rows"], table["columns"]) == (5, 5), table["rows"]
    assert table["merges"] == [[0, 0, 1, 0], [0, 1, 1, 1], [0, 2, 1, 2]], table["merges"]
    column = [row[4] for row in table["cells"]]
    for cell in column[:3]:
        assert (cell["alignment"], cell["background"], cell["state"]) == (9, "aci:1", 1), cell
        assert (cell["dataType"], cell["unitType"]) == (2, 16), cell
    for cell in column[3:]:
        assert (cell["background"], cell["state"]) == ("none", 0), cell
    assert column[4]["text"] == "42"
    steps = run.dump["undoSteps"]
    assert steps == ["TABLEIMPORT", "AboveInsert", "BelowInsert", "LeftInsert", "RightInsert", "DeleteRows",
                     "DeleteColumn", "MergeCell", "UMergeCell", "MergeByColumn", "ChangeCellAlignment",
                     "ChangeCellAlignment", "DataFormat", "BackgroundFill", "EditCellLock", "TABLEDIT"], steps
    assert run.dump["toolbar"]["visible"] is False
    assert run.dump["open"] == []
