# Texts of an imported file keep the ends of its lines.
NAMED = [f"{column}{row}" + ("\n" if column == "D" else "") for row in range(1, 6) for column in "ABCD"]


def check(run):
    (table,) = run.dump["tables"]
    texts = [cell["text"] for row in table["cells"] for cell in row]
    assert texts == ["xy", "z", "", "D1\n"] + NAMED[4:], texts
    assert table["selection"] == [0, 2, 0, 2]

    # Where each word leads.
    for word, start, end in [("*TAB", "B2", [1, 2, 1, 2]), ("*TAB", "D2", [2, 0, 2, 0]),
                             ("*SHIFTTAB", "A3", [1, 3, 1, 3]), ("*UP", "B2", [0, 1, 0, 1]),
                             ("*PGDN", "C2", [4, 2, 4, 2])]:
        dump = run.play(["TABLEIMPORT", "named.csv", "0,200", "@cells " + start, "TABLEDIT " + word,
                         "@expect prompt Command:"])
        assert dump["tables"][0]["selection"] == end, (word, start, dump["tables"][0]["selection"])
