from pathlib import Path


def check(run):
    dump = run.dump
    assert dump["blocks"] == ["a part"]
    assert [(entity["class"], entity["layer"], entity["extents"]) for entity in dump["entities"]] == [
        ("KdDbBlockReference", "0", [[90, 105, 0], [100, 125, 0]]),
        ("KdDbBlockReference", "outer walls", [[0, 0, 0], [10, 5, 0]]),
    ]
    assert dump["undoSteps"] == ["LINE", "BLOCK", "UCS", "INSERT", "UCS", "UCS", "LAYER", "INSERT"]

    script = Path(__file__).with_suffix(".kds").read_text(encoding="utf-8")
    lines = [line for line in script.splitlines() if not line.startswith(("@message", "@expect", ";"))]
    assert run.play(lines, "--lang zh_CN") == dump
