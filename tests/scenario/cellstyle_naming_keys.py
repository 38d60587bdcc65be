def check(run):
    (style,) = run.dump["styles"]
    names = [cell_style["name"] for cell_style in style["cellStyles"]]
    assert names == ["_TITLE", "_HEADER", "_DATA", "Keys"]
    data, keys = style["cellStyles"][2:]
    assert {**keys, "name": "_DATA"} == data
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "CreateCellStyle"]
