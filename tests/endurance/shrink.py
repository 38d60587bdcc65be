"""Shortens a journal to what a failure takes: actions are left out, then lines, as long as the failure stays.

    python3 tests/endurance/shrink.py build/release/bin/endurance_tests endurance-1000000.kds

writes the shortened journal beside the given one, as NAME.short.kds."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile

TIMEOUT_SECONDS = 60


def failure_of(program, lines):
    """The first line that tells what went wrong, without numbers; None when all went well."""
    with tempfile.NamedTemporaryFile("w", suffix=".kds", encoding="utf-8") as script:
        script.write("\n".join(lines) + "\n")
        script.flush()
        environment = dict(os.environ, QT_QPA_PLATFORM="offscreen", KD_ENDURANCE_REPLAY=script.name)
        try:
            run = subprocess.run([program, "--gtest_filter=EnduranceJournal.a_journal_is_played_with*"], env=environment,
                                 capture_output=True, text=True, errors="replace", timeout=TIMEOUT_SECONDS, check=False)
        except subprocess.TimeoutExpired:
            return "no end"
    if run.returncode == 0:
        return None
    found = re.search(r"Expected: true\n(.*)", run.stdout)
    return re.sub(r"[0-9]+", "#", found.group(1) if found else f"status {run.returncode}")


def blocks_of(lines):
    """The lines of each action; the head stands for itself."""
    blocks = [[]]
    for line in lines:
        if line.startswith("; action"):
            blocks.append([])
        blocks[-1].append(line)
    return blocks


def shortened(parts, still_fails):
    """Without as many of the parts as can be spared."""
    size = max(len(parts) // 2, 1)
    while True:
        at = 0
        spared = False
        while at < len(parts):
            rest = parts[:at] + parts[at + size:]
            if still_fails(rest):
                parts = rest
                spared = True
            else:
                at += size
        if size == 1 and not spared:
            return parts
        size = max(size // 2, 1)


def main(program, journal):
    path = pathlib.Path(journal)
    lines = path.read_text(encoding="utf-8").splitlines()
    wanted = failure_of(program, lines)
    if wanted is None:
        sys.exit("the journal doesn't fail")
    print("shortens to:", wanted)
    head, *blocks = blocks_of(lines)
    join = lambda parts: head + [line for part in parts for line in part]
    blocks = shortened(blocks, lambda rest: failure_of(program, join(rest)) == wanted)
    rest = shortened([line for part in blocks for line in part if not line.startswith(";")],
                     lambda lines: failure_of(program, head + lines) == wanted)
    short = path.with_suffix(".short.kds")
    short.write_text("\n".join(head + rest) + "\n", encoding="utf-8")
    print("\n".join(head + rest))


if __name__ == "__main__":
    main(*sys.argv[1:])
