def check(run):
    read, made, imported = run.dump["tables"]
    assert (read["rows"], read["columns"]) == (5, 3)
    assert read["position"] == [0.0, 0.0, 0.0]
    assert read["cells"] == imported["cells"], "the dialog reads a file as TABLEIMPORT does"
    assert [row[0]["text"] for row in read["cells"]] == ["name", "Ada", 'Grace "G"', "", "李雷"]
    assert (made["rows"], made["columns"]) == (5, 3)
    assert all(cell["text"] == "" for row in made["cells"] for cell in row)
    assert run.dump["undoSteps"].count("TABLE") == 2, run.dump["undoSteps"]
