def check(run):
    assert run.dump["tables"][0]["selection"] == [1, 0, 2, 2]
    assert "KdDbTable" in run.output
