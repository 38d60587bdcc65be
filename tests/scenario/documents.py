def check(run):
    assert [entity["extents"][0] for entity in run.dump["entities"]] == [[5, 5, 0], [7, 7, 0]]
