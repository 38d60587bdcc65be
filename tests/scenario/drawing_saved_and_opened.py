def content(dump):
    return {key: value for key, value in dump.items() if key != "undoSteps"}


def check(run):
    again = run.play([], "--open plan.dxf --save copy.dxf")
    assert content(again) == content(run.dump)
    assert again["undoSteps"] == []
    assert (run.folder / "plan.dxf").read_bytes() == (run.folder / "copy.dxf").read_bytes()
