def check(run):
    [table] = run.dump["tables"]
    fields = [row[2]["field"] is not None for row in table["cells"]]
    assert fields == [True] * 4, [row[2] for row in table["cells"]]
    assert table["cells"][3][0]["field"] is not None
    assert sum(cell["field"] is not None for row in table["cells"] for cell in row) == 5
    assert run.dump["open"] == []
