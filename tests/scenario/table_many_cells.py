def check(run):
    sizes = [(table["columns"], table["rows"]) for table in run.dump["tables"]]
    assert sizes == [(1, 2001), (2, 1002)], sizes
