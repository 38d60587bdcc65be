def check(run):
    sizes = [(table["columns"], table["rows"]) for table in run.dump["tables"]]
    assert sizes == [(5, 6), (6, 6), (5, 13), (6, 13), (5, 6)], sizes
    widths = [table["columnWidths"][0] for table in run.dump["tables"]]
    assert widths == [60.0, 50.0, 60.0, 50.0, 50.0], widths
    # Heights follow the window where rows are fixed. Two lines of data and their margins are 15 high.
    heights = [table["rowHeights"][-1] for table in run.dump["tables"]]
    assert near(heights[0], 200 / 6) and near(heights[1], 200 / 6), heights
    assert heights[2:] == [15.0, 15.0, 15.0], heights
    assert run.dump["undoSteps"].count("TABLE") == 5, run.dump["undoSteps"]


def near(have, want):
    return abs(have - want) < 1e-9
