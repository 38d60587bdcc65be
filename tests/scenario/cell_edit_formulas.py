def check(run):
    here, there = run.dump["tables"]
    cells = here["cells"]
    shown = [[row[2]["text"], row[3]["text"]] for row in cells]
    assert shown == [["4", "10"], ["5", "8"], ["=", "70"], ["5", "81"]], shown
    assert all(row[3]["field"] is not None for row in cells)
    assert [row[2]["field"] is None for row in cells] == [False, False, True, False]
    assert all(cell["field"] is None for row in there["cells"] for cell in row)
    assert run.dump["open"] == []
