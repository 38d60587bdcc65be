"""Makes the example drawings by their scripts, or looks whether they still are what the scripts make.

    make.py KDHOST             writes NAME.dxf beside each NAME.kds
    make.py KDHOST --check     fails, with a line for each drawing, where they differ"""

import json
import os
import pathlib
import subprocess
import sys
import tempfile

EXAMPLES = pathlib.Path(__file__).resolve().parent


def run(kdhost, folder, arguments):
    """A run among the examples, with settings and temporary files of its own."""
    environment = dict(os.environ, XDG_CONFIG_HOME=str(folder / "settings"), TMPDIR=str(folder))
    command = [kdhost, "--headless", "--lang", "en"] + [str(argument) for argument in arguments]
    done = subprocess.run(command, cwd=EXAMPLES, env=environment, capture_output=True, encoding="utf-8", timeout=120)
    if done.returncode != 0:
        sys.exit(f"{' '.join(command)}: {done.stderr}")


def made(kdhost, folder, script):
    """The drawing that the script makes, in the folder."""
    drawing = folder / f"{script.stem}.dxf"
    run(kdhost, folder, ["--script", script, "--save", drawing])
    return drawing


def content(kdhost, folder, drawing):
    """All that the drawing holds."""
    dump = folder / "dump.json"
    run(kdhost, folder, ["--open", drawing, "--dump", dump])
    return json.loads(dump.read_text(encoding="utf-8"))


def main():
    kdhost = str(pathlib.Path(sys.argv[1]).resolve())
    check = sys.argv[2:] == ["--check"]
    others = []
    for script in sorted(EXAMPLES.glob("*.kds")):
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            drawing = made(kdhost, folder, script)
            kept = script.with_suffix(".dxf")
            if not check:
                kept.write_bytes(drawing.read_bytes())
            elif content(kdhost, folder, kept) != content(kdhost, folder, drawing):
                others.append(f"{kept.name} is not what {script.name} makes")
    if others:
        sys.exit("\n".join(others))


if __name__ == "__main__":
    main()
