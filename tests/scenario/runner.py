"""Runs one scenario; README.md tells what a scenario is."""

import contextlib
import json
import os
import pathlib
import runpy
import shutil
import subprocess
import sys
import tempfile
from types import SimpleNamespace

TIMEOUT_SECONDS = 120
# How long the program waits for an answer to a window once the script has no more lines.
IDLE_MILLISECONDS = 300


def directives(script):
    """The values of the `; name: value` lines at the head of a script."""
    values = {}
    for line in script.read_text(encoding="utf-8").splitlines():
        if not line.startswith(";"):
            break
        name, colon, value = line[1:].partition(":")
        if colon:
            values[name.strip()] = value.strip()
    return values


def expected_error(script, wanted):
    """What standard error must read for the value of a `fails` line."""
    line, colon, text = wanted.partition(":")
    if colon and line.isdigit():
        return f"{script.name}:{line}:{text}"
    return wanted


def environment(folder, more=""):
    """What the program finds in its environment: settings and a place for temporary files of its own, little
    patience, and `NAME=VALUE`s."""
    temporary = folder / "temporary"
    temporary.mkdir(exist_ok=True)
    values = dict(os.environ, XDG_CONFIG_HOME=str(folder / "settings"), TMPDIR=str(temporary),
                  KDHOST_IDLE_MILLISECONDS=str(IDLE_MILLISECONDS))
    values.update(value.split("=", 1) for value in more.split())
    return values


@contextlib.contextmanager
def screen():
    """The name of an X display that nobody sees, while it lasts."""
    read, write = os.pipe()
    # The server chooses a free number and tells it.
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-nolisten", "tcp", "-screen", "0", "1280x1024x24"],
                              pass_fds=[write], stderr=subprocess.DEVNULL)
    os.close(write)
    try:
        with os.fdopen(read) as told:
            number = told.readline().strip()
        assert number, "Xvfb, which packages.txt names, did not start"
        yield ":" + number
    finally:
        server.terminate()
        server.wait()


def start(kdhost, folder, name, arguments, variables):
    """A run of NAME.kds in the folder, which writes NAME.json."""
    command = [kdhost, "--script", f"{name}.kds", "--dump", f"{name}.json"] + arguments
    return subprocess.run(command, cwd=folder, env=variables, capture_output=True, encoding="utf-8",
                          timeout=TIMEOUT_SECONDS)


def play(kdhost, folder, lines, arguments):
    """The dump after a good run of these script lines in the folder."""
    (folder / "play.kds").write_text("".join(line + "\n" for line in lines), encoding="utf-8")
    done = start(kdhost, folder, "play", ["--headless"] + arguments.split(), environment(folder))
    assert done.returncode == 0, f"status {done.returncode}: {done.stderr}"
    return json.loads((folder / "play.json").read_text(encoding="utf-8"))


def run_on_screen(kdhost, folder, name, arguments, variables):
    """The same with a window, which closes at the end of the script."""
    with open(folder / f"{name}.kds", "a", encoding="utf-8") as script:
        script.write("QUIT\n")
    runtime = folder / "runtime"
    runtime.mkdir(mode=0o700)
    with screen() as display:
        variables.update(DISPLAY=display, QT_QPA_PLATFORM="xcb", XDG_RUNTIME_DIR=str(runtime))
        return start(kdhost, folder, name, arguments, variables)


def run(kdhost, script, folder, on_screen):
    expected = directives(script)
    plugins = str(pathlib.Path(kdhost).parent.parent / "test_plugins")
    shutil.copytree(script.parent / "inputs", folder, dirs_exist_ok=True)
    shutil.copy(script, folder)
    arguments = expected.get("arguments", "").replace("TEST_PLUGINS", plugins).split()
    variables = environment(folder, expected.get("environment", ""))
    if on_screen:
        done = run_on_screen(kdhost, folder, script.stem, arguments, variables)
    else:
        done = start(kdhost, folder, script.stem, ["--headless"] + arguments, variables)
    print(done.stdout, end="")

    fails = expected.get("fails")
    status = 0 if fails is None else 1
    error = "" if fails is None else expected_error(script, fails)
    assert done.returncode == status, f"status {done.returncode}, not {status}: {done.stderr}"
    assert done.stderr.strip() == error, f"standard error reads {done.stderr!r}, not {error!r}"

    dump = folder / f"{script.stem}.json"
    return SimpleNamespace(
        folder=folder, output=done.stdout,
        play=lambda lines, arguments="": play(kdhost, folder, lines, arguments),
        dump=json.loads(dump.read_text(encoding="utf-8")) if dump.exists() else None)


def check(script, result):
    path = script.with_suffix(".py")
    if not path.exists():
        return
    runpy.run_path(str(path))["check"](result)


def main():
    kdhost, script, on_screen = sys.argv[1], pathlib.Path(sys.argv[2]).resolve(), "--screen" in sys.argv[3:]
    with tempfile.TemporaryDirectory() as folder:
        check(script, run(str(pathlib.Path(kdhost).resolve()), script, pathlib.Path(folder), on_screen))


if __name__ == "__main__":
    main()
