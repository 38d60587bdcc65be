def check(run):
    first, turned, third = run.dump["tables"]
    assert first["position"] == [100.0, 200.0, 0.0]
    assert first["cells"][0][0]["text"] == "Parts list"
    assert (first["rows"], first["columns"]) == (5, 3)
    assert first["columnWidths"] == [63.5] * 3
    assert first["merges"] == [[0, 0, 0, 2]]
    assert all(cell["type"] == 1 for row in first["cells"] for cell in row)
    assert near(turned["position"], [400.0, 30.0, 0.0]), turned["position"]
    assert near(turned["direction"], [0.0, 1.0, 0.0]), turned["direction"]
    assert third["position"] == [0.0, -100.0, 0.0], "Enter asks for the point again"
    assert run.dump["undoSteps"].count("TABLE") == 3, run.dump["undoSteps"]


def near(have, want):
    return all(abs(a - b) < 1e-9 for a, b in zip(have, want))
