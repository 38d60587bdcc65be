def check(run):
    assert (run.folder / "other.csv").read_bytes() == (run.folder / "people.csv").read_bytes()
    assert (run.folder / "people.csv").read_bytes().startswith(b"\"name\",\"age\",\"city\n")
