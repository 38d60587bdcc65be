import json


def check(run):
    assert run.dump["tables"][0]["columnWidths"] == [50.8] * 4, run.dump["tables"][0]["columnWidths"]
    run.play(["TABLE", "@expect IDC_TABLEINSERT_COLUMN_EDIT text 4",
              "@expect IDC_TABLEINSERT_COLUMNWIDTH_EDIT text 50.8", "@click IDCANCEL"])
    store_seven(run.folder)
    dump = run.play(["TABLE", "@click IDC_TABLEINSERT_WINDOW_BUTTON",
                     "@expect IDC_TABLEINSERT_COLUMNWIDTH_BUTTON checked on",
                     "@expect IDC_TABLEINSERT_ROWHEIGHT_BUTTON checked on",
                     "@expect IDC_TABLEINSERT_COLUMN_EDIT text Auto", "@click IDOK", "0,0", "160,-100", "@edit ESC"])
    assert dump["tables"][0]["columns"] == 3, "160 wide, and 50.8 for each column"


def store_seven(folder):
    """Puts 7 in the place of what the dialog stores for what is fixed, which it never does itself."""
    path = next((folder / "settings").rglob("registry.json"))
    registry = json.loads(path.read_text(encoding="utf-8"))
    key = registry["currentUser"]
    for level in ("Software", "KdHost", "Profiles", "Default", "InitSetting", "Dialog", "VqTable:Table"):
        key = key["keys"][level]
    assert key["values"]["AutoOptions"]["data"] == "0a000000", "10: columns and rows"
    key["values"]["AutoOptions"]["data"] = "07000000"
    path.write_text(json.dumps(registry), encoding="utf-8")
