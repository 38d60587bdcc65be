def check(run):
    widths = [table["columnWidths"] for table in run.dump["tables"]]
    assert widths == [[10.0] * 3, [254.0] * 3], widths
