def check(run):
    (style,) = run.dump["styles"]
    (was,) = run.play([])["styles"]
    title, header, data, amounts = style["cellStyles"]
    assert amounts["name"] == "Amounts"
    assert (title, data) == (was["cellStyles"][0], was["cellStyles"][2])
    assert {**header, "marginHorz": was["cellStyles"][1]["marginHorz"]} == was["cellStyles"][1]
    assert header["marginHorz"] == 4.0
    assert {**amounts, "name": "_HEADER", "marginHorz": 4.0} == header
    assert amounts["marginHorz"] == 5.0
    assert run.dump["open"] == []
