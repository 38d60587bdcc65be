def check(run):
    (line,) = run.dump["entities"]
    assert line["class"] == "KdDbLine"
    assert run.dump["undoSteps"] == ["LINE"]
