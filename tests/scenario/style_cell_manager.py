def check(run):
    (style,) = run.dump["styles"]
    names = [cell_style["name"] for cell_style in style["cellStyles"]]
    assert names[:4] == ["_TITLE", "_HEADER", "_DATA", "Windows"]
    assert len(names) == 5
    header, windows = style["cellStyles"][1], style["cellStyles"][3]
    assert {**windows, "name": "_HEADER"} == header
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "ManCellStyle", "ManCellStyle"]
    assert run.dump["open"] == []
