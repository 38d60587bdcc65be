"""Gathers the lists that the programs of bench/ end with into one table: table.py OUTPUT ...

A line that compares an operation with itself on fewer cells tells its growth, every other one its ratio to a peer."""

import pathlib
import re
import sys

HEADING = ["operation", "cells", "time", "ratio", "verdict", "goal", "stretch", "peer"]
COLUMNS = ["program", "operation", "cells", "time", "ratio", "growth", "goal", "stretch", "", "peer"]
SIZE = re.compile(r"(_on_ten_times_the_cells|_on_a_tenth_of_the_cells|/\d+)+$")
TO_THE_RIGHT = {"cells", "time", "ratio", "growth", "goal", "stretch"}


def rows(path):
    """The program's lines below the heading."""
    lines = [re.split(r"\s{2,}", line.strip()) for line in path.read_text(encoding="utf-8").splitlines()]
    if HEADING not in lines:
        return
    for fields in lines[lines.index(HEADING) + 1:]:
        if len(fields) == len(HEADING):
            yield dict(zip(HEADING, fields))


def shown(program, row):
    operation, peer = SIZE.sub("", row["operation"]), SIZE.sub("", row["peer"])
    # Figures of files tell their operation in words, and their smaller sibling by name.
    grows = operation == peer or operation.split()[0] == peer.split("_")[0]
    return [program, operation.removesuffix("/real_time"), grouped(row["cells"]), row["time"],
            "" if grows else row["ratio"], row["ratio"] if grows else "", row["goal"], row["stretch"], row["verdict"],
            "itself on fewer cells" if grows else row["peer"].removesuffix("/real_time")]


def grouped(number):
    return f"{int(number):,}" if number.isdigit() else number


def main(paths):
    table = [COLUMNS]
    for path in map(pathlib.Path, paths):
        found = [shown(path.stem, row) for row in rows(path)]
        table += found or [[path.stem, "no figures"] + [""] * (len(COLUMNS) - 2)]
    widths = [max(len(row[column]) for row in table) for column in range(len(COLUMNS))]
    for row in table:
        print("  ".join(text.rjust(width) if name in TO_THE_RIGHT else text.ljust(width)
                        for name, text, width in zip(COLUMNS, row, widths)).rstrip())
    goals = [row for row in table[1:] if row[8] not in ("", "-")]
    missed = sum(row[8] == "MISSED" for row in goals)
    print(f"\n{len(goals)} goals, {missed} missed.")


if __name__ == "__main__":
    main(sys.argv[1:])
