def check(run):
    [style] = [style for style in run.dump["styles"] if style["name"] == "Standard"]
    assert [cell["name"] for cell in style["cellStyles"]] == ["_TITLE", "_HEADER", "_DATA", "我的样式"]
    assert run.dump["undoSteps"][-1] == "CreateCellStyle", run.dump["undoSteps"]
    assert all(cell["style"] != "_TITLE" or row == 0
               for row, cells in enumerate(run.dump["tables"][0]["cells"]) for cell in cells)
