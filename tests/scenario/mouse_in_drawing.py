def check(run):
    table = run.dump["tables"][0]
    texts = [[cell["text"] for cell in row] for row in table["cells"]]
    assert "changed" not in [text for row in texts for text in row], "typed over, then emptied"
    assert texts[1][1] == "", texts
    assert table["selection"] is None
    before = run.play(["TABLEIMPORT", "people.csv", "10,200", "@pick 12,198", "@pick 12,198"])["tables"][0]
    assert before["selection"] == [0, 0, 0, 0]
    moved = run.play(["TABLEIMPORT", "people.csv", "10,200", "@pick 12,198", "@pick 12,198", "@key RIGHT",
                      "@key DOWN"])["tables"][0]
    assert moved["selection"] == [1, 1, 1, 1], moved["selection"]
    typed = run.play(["TABLEIMPORT", "people.csv", "10,200", "@cells B2", "@key x", "@edit ENTER", "@edit ESC"])
    assert typed["tables"][0]["cells"][1][1]["text"] == "x"
