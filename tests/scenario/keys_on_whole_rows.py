"""What the keys did to the cells."""


def check(run):
    texts = [[cell["text"] for cell in row] for row in run.dump["tables"][0]["cells"]]
    assert texts[1][0] == "changed", texts
    assert [row[2] for row in texts[:4]] == [row[1] for row in texts[:4]], texts
    assert texts[4] == ["", "", ""], texts
