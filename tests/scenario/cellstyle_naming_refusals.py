def check(run):
    (style,) = run.dump["styles"]
    names = [cell_style["name"] for cell_style in style["cellStyles"]]
    assert names == ["_TITLE", "_HEADER", "_DATA", "kK", "n" * 255]
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "CreateCellStyle", "CreateCellStyle"]
