def check(run):
    assert run.dump["variables"]["FILEDIA"] == 0
    assert (run.folder / "typed.csv").read_bytes().startswith(b"\"name\",\"age\",\"city\n")
