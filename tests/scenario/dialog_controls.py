def check(run):
    for name in ("dialog.png", "box.png"):
        assert (run.folder / name).read_bytes().startswith(b"\x89PNG"), name
