def check(run):
    first, second = run.dump["tables"]
    toolbar = run.dump["toolbar"]
    assert toolbar["visible"] and toolbar["table"] == first["handle"], toolbar
    assert "IDC_TABLEDIT_MERGECELL" in toolbar["enabled"]
    assert toolbar["enabled"][0] == "IDC_TABLEDIT_TOPINSERT"
    assert "IDC_TABLEDIT_COLUMNDELETE" not in toolbar["enabled"]
    assert second["rows"] == 4

    lines = ["TABLEIMPORT", "numbers.csv", "0,250"]
    none = run.play(lines, "")
    assert none["toolbar"] == {"visible": False, "table": None, "enabled": []}
    # Selecting cells writes nothing and makes no step.
    chosen = run.play(lines + ["@cells #0 A1:B2", "@cells #0 A1"], "")
    assert chosen["toolbar"]["visible"] and chosen["toolbar"]["table"] == chosen["tables"][0]["handle"]
    assert chosen["undoSteps"] == none["undoSteps"]
    assert dict(chosen["tables"][0], selection=None) == none["tables"][0]
    off = run.play(["TABLETOOLBAR", "0"] + lines + ["@cells #0 A1:B2"], "")
    assert off["toolbar"] == none["toolbar"]
