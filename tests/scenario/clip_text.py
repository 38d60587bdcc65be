def check(run):
    cells = run.dump["tables"][0]["cells"]
    shown = [[cell["text"] for cell in row] for row in cells]
    assert shown == [["10", "2", "two words", "two words"], ["3", "4", "12", "12"], ["5", "6", "12", "12"],
                     ["7", "8", "=", "25"]], shown
    fields = [[cell["field"] is not None for cell in row[2:]] for row in cells]
    assert fields == [[False, False], [True, True], [True, True], [False, True]]
    assert run.dump["undoSteps"].count("PasteTable") == 5
    assert run.dump["open"] == []
