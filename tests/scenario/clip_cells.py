# The last field of a line of the file keeps its line end.
def texts(table):
    return [[cell["text"].rstrip("\n") for cell in row] for row in table["cells"]]


def check(run):
    first, second = run.dump["tables"]
    assert texts(first) == [["1", "2", "1", "2"], ["3", "4", "3", "4"], ["", "", "", ""], ["", "", "", ""]], texts(first)
    assert texts(second) == [["5", "6", "5", "6"], ["7", "8", "7", "8"], ["8", "8", "8", ""], ["8", "8", "8", ""]], texts(second)
    assert run.dump["undoSteps"].count("PasteTable") == 4, run.dump["undoSteps"]
    assert run.dump["undoSteps"].count("CutTableCell") == 1
    assert run.dump["open"] == []
    blocks = [name for name in run.dump["blocks"] if not name.startswith("*")]
    assert blocks == [], blocks
    other = run.play([], "--open other.dxf")
    assert texts(other["tables"][0])[2:] == [["5", "6", "5", "6"], ["7", "8", "7", "8"]]
    assert len(list((run.folder / "temporary").glob("*.DWG"))) == 3
