def before(run):
    """The drawing without any of the dialogs."""
    return run.play(["TABLEIMPORT", "schedule.csv", "0,200"])


def check(run):
    standard, windows = run.dump["styles"]
    assert standard == before(run)["styles"][0]
    assert windows["name"] == "Windows"
    assert windows["flow"] == 1
    assert [style["name"] for style in windows["cellStyles"]] == ["_TITLE", "_HEADER", "_DATA", "Notes"]
    assert {**windows["cellStyles"][3], "name": "_DATA"} == windows["cellStyles"][2]
    assert run.dump["variables"]["CTABLESTYLE"] == "Windows"
    assert run.dump["tables"] == before(run)["tables"]
    # The first dialog left no trace, not even a step.
    assert run.dump["undoSteps"] == ["TABLEIMPORT", "TABLESTYLE", "TABLESTYLE"]
    (script,) = run.folder.glob("style_table_mouse*.kds")
    lines = script.read_text(encoding="utf-8").splitlines()
    back = run.play(lines + ["U", "U"], "--lang zh_CN" if script.stem.endswith("_zh") else "")
    assert back["styles"] == before(run)["styles"]
