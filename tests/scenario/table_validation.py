def check(run):
    (made,) = run.dump["tables"]
    assert (made["columns"], made["rows"]) == (6, 9), "the last good figures"
    assert made["columnWidths"] == [40.0] * 6, made["columnWidths"]
