def check(run):
    (table,) = run.dump["tables"]
    assert (table["rows"], table["columns"]) == (5, 3)
    assert table["position"] == [10, 200, 0]
    assert table["style"] == "Standard"
    texts = [[cell["text"] for cell in row] for row in table["cells"]]
    # The line end stays in the last field of a line.
    assert texts == [
        ["name", "age", "city\n"],
        ["Ada", "36", "\"London, UK\"\n"],
        ["Grace \"G\"", "85", "New York\n"],
        ["", "1", "nobody\n"],
        ["李雷", "20", "北京\n"],
    ], texts
    assert [entity["class"] for entity in run.dump["entities"]] == ["KdDbTable"]
    assert run.dump["open"] == []
    lines = (run.folder / "out.csv").read_bytes().decode("gbk").split("\n")
    assert lines[0] == "\"name\",\"age\",\"city", lines[0]
    assert "\"李雷\",\"20\",\"北京" in lines
