EDGES = ("1", "2", "4", "8", "16", "32")


def check(run):
    before = run.play(["TABLEIMPORT", "schedule.csv", "0,200"])
    (was,) = before["styles"]
    (style,) = run.dump["styles"]
    title, header, data = style["cellStyles"]
    assert style["flow"] == was["flow"]
    assert title == was["cellStyles"][0]
    assert {**data, "format": ""} == {
        **was["cellStyles"][2],
        "background": "aci:2",
        "alignment": 4,
        "class": 1,
        "dataType": 2,
        "unitType": 16,
        "format": "",
        "marginHorz": 0.0,
        "marginVert": 2.5,
        "mergeAll": True,
        "textHeight": 3.0,
        "color": "rgb:1,2,3",
        "rotation": data["rotation"],
        "textStyle": "Fine",
    }
    assert abs(data["rotation"] - 0.5235987755982988) < 1e-12
    assert data["format"] != ""
    assert {**header, "grid": None} == {**was["cellStyles"][1], "grid": None}
    assert [edge for edge in EDGES if header["grid"][edge]["visible"]] == ["1", "2", "4"]
    for edge in ("1", "2", "4"):
        line = header["grid"][edge]
        assert line["color"] == ("aci:1" if edge == "1" else "aci:3")
        assert (line["style"], line["weight"], line["spacing"]) == (2, 50, 0.5)
        assert line["linetype"] == "Continuous"
    for edge in ("8", "16", "32"):
        line = header["grid"][edge]
        assert line == {**was["cellStyles"][1]["grid"][edge], "visible": False, "linetype": "ByBlock"}
    assert run.dump["variables"]["LWDISPLAY"] == before["variables"]["LWDISPLAY"]
    assert run.dump["open"] == []
    # All of it is one step.
    (script,) = run.folder.glob("style_edit_pages*.kds")
    lines = [line for line in script.read_text(encoding="utf-8").splitlines() if line != "QUIT"]
    back = run.play(lines + ["U"], "--lang zh_CN" if script.stem.endswith("_zh") else "")
    assert back["styles"] == before["styles"]
    assert back["tables"] == before["tables"]
