"""Times Python's own csv module on a file, warm and in process, and prints seconds of processor time, a line each.

    peers.py read FILE TIMES         rows of fields from the file
    peers.py write FILE OUT TIMES    the file's rows, every field quoted, to another file
"""

import csv
import gc
import sys
import time


def read(path):
    with open(path, encoding="utf-8", newline="") as file:
        return list(csv.reader(file))


def write(rows, path):
    with open(path, "w", encoding="utf-8", newline="") as file:
        csv.writer(file, quoting=csv.QUOTE_ALL, lineterminator="\n").writerows(rows)


def report(times, work):
    """The first run warms up and doesn't count; freeing what a run made doesn't either."""
    for run in range(times + 1):
        gc.collect()
        start = time.process_time()
        kept = work()
        seconds = time.process_time() - start
        del kept
        if run > 0:
            print(f"{seconds:.6f}")


def main(arguments):
    if arguments[0] == "read":
        report(int(arguments[2]), lambda: read(arguments[1]))
    else:
        rows = read(arguments[1])
        report(int(arguments[3]), lambda: write(rows, arguments[2]))


if __name__ == "__main__":
    main(sys.argv[1:])
