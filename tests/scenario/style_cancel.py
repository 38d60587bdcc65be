def check(run):
    assert run.dump == run.play(["TABLEIMPORT", "schedule.csv", "0,200"])
