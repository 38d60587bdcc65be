def check(run):
    (table,) = run.dump["tables"]
    row = table["cells"][0]
    assert row[0]["text"] == "a{\\Lb}\\S1/2;{\\H8;cx}", row[0]["text"]
    assert row[1]["text"] == "{\\LB1!}", row[1]["text"]
    assert row[2]["text"] == "{\\fDejaVu Sans|b1|i0;2m}", row[2]
