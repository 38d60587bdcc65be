def check(run):
    (table,) = run.dump["tables"]
    texts = [cell["text"] for cell in table["cells"][1]]
    assert texts == ["A2", "kept", "also kept", "D2\n"], texts
    assert table["cells"][0][0]["text"] == "by a click"
    assert table["cells"][3][3]["text"] == "D4\n"
    assert table["selection"] == [2, 0, 2, 0]
    selected = run.play(["TABLEIMPORT", "named.csv", "0,200", "@cells A3"])
    assert run.dump["toolbar"]["visible"] == selected["toolbar"]["visible"]
    assert run.dump["open"] == []
