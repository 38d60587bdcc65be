def check(run):
    assert run.dump["styles"] == run.play([])["styles"]
    assert run.dump["variables"]["CTABLESTYLE"] == "Standard"
    # Esc ends the dialog, and takes back nothing that was done in it.
    assert run.dump["undoSteps"] == ["TABLESTYLE", "TABLESTYLE"]
