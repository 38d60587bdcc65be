def check(run, title="Title", header="Header", copy="Copy of ", numbered="Copy ({}) of "):
    (style,) = run.dump["styles"]
    made = {cell_style.pop("name"): cell_style for cell_style in style["cellStyles"]}
    starts = {
        copy + title: "_TITLE",
        numbered.format(2) + title: "_TITLE",
        numbered.format(3) + title: "_TITLE",
        copy + header: "_HEADER",
        f"X {copy}Y": "_DATA",
        copy.strip(): "_TITLE",
    }
    assert list(made) == ["_TITLE", "_HEADER", "_DATA", *starts]
    for name, start in starts.items():
        assert made[name] == made[start], name
    assert run.dump["undoSteps"] == ["TABLEIMPORT"] + ["CreateCellStyle"] * len(starts)
