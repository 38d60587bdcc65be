def check(run):
    assert {layer["name"]: layer["locked"] for layer in run.dump["layers"]} == {"0": False, "walls and doors": True}
    assert [(entity["layer"], entity["extents"]) for entity in run.dump["entities"]] == [
        ("walls and doors", [[0, 0, 0], [10, 0, 0]]),
        ("walls and doors", [[10, 0, 0], [10, 5, 0]]),
    ]
