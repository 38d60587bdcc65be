"""The program as it is installed: it starts from its link, finds its module and its help, draws, and takes a module that
was built outside of the tree.

    installed.py BUILD_FOLDER SOURCE_FOLDER
"""
import json
import os
import pathlib
import subprocess
import sys
import tempfile

SCRIPT = """TABLE
@set IDC_TABLEINSERT_COLUMN_EDIT 2
@click IDOK
0,0
@edit ESC
NUMBERROWS
5,-5
@message line Rows numbered: 3
NUMBERROWS
900,900
"""


def run(*words, **more):
    done = subprocess.run([str(word) for word in words], capture_output=True, text=True, **more)
    assert done.returncode == 0, f"{words}: {done.stdout}{done.stderr}"
    return done.stdout


def check_folders(prefix):
    """What belongs to an installation lies where Debian's rules want it, and links lead to it from within."""
    link = prefix / "bin/kdhost"
    assert link.is_symlink() and not os.path.isabs(os.readlink(link)), link
    assert (prefix / "lib/kdhost/docs/help/en/index.md").is_file()
    assert (prefix / "lib/kdhost/docs/guide/first-steps.md").is_file()
    for file in ("applications/kdhost.desktop", "icons/hicolor/scalable/apps/kdhost.svg", "man/man1/kdhost.1",
                 "metainfo/kdhost.metainfo.xml", "doc/kdhost/docs/sdk-guide.md", "doc/kdhost/examples/module/numbering.cpp"):
        assert (prefix / "share" / file).is_file(), file


def main():
    build, source = map(pathlib.Path, sys.argv[1:])
    with tempfile.TemporaryDirectory() as name:
        folder = pathlib.Path(name)
        prefix = folder / "usr"
        run("cmake", "--install", build, "--prefix", prefix)
        check_folders(prefix)

        example = folder / "example"
        run("cmake", "-S", source / "examples/module", "-B", example, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={prefix}",
            "-DCMAKE_BUILD_TYPE=Release", "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wconversion -Werror")
        run("cmake", "--build", example)
        run("cmake", "--install", example)

        config = folder / "config"
        config.mkdir(mode=0o700)
        environment = {key: value for key, value in os.environ.items() if key != "KDHOST_DOCS"}
        environment.update(XDG_CONFIG_HOME=str(config), XDG_RUNTIME_DIR=str(config), LD_LIBRARY_PATH="")
        script = folder / "run.kds"
        script.write_text(SCRIPT)
        run(prefix / "bin/kdhost", "--headless", "--load", "TvxTable.tvx", "--load", "Numbering.tvx", "--script", script,
            "--dump", folder / "dump.json", "--render", folder / "picture.png", env=environment, cwd=folder)
        table = json.loads((folder / "dump.json").read_text())["tables"][0]
        assert [row[0]["text"] for row in table["cells"]] == ["", "", "1", "2", "3"], table["cells"]
        assert (folder / "picture.png").stat().st_size > 1000

        # The help shows the page that it shows out of the source folder.
        script.write_text("TABLE\n@click IDHELP\n@shot help.png\n@close\n@close\n")
        shown = []
        for more in ({}, {"KDHOST_DOCS": str(source.resolve() / "docs")}):
            run(prefix / "bin/kdhost", "--headless", "--script", script, env=environment | more, cwd=folder)
            shown.append((folder / "help.png").read_bytes())
        assert shown[0] == shown[1] and len(shown[0]) > 10000, [len(picture) for picture in shown]

        # In the other language the command has another name.
        script.write_text("行编号\n@expect prompt 选择表格：\n@key ESC\n", encoding="utf-8")
        run(prefix / "bin/kdhost", "--headless", "--lang", "zh_CN", "--load", "Numbering.tvx", "--script", script,
            env=environment, cwd=folder)
    print("The installed program runs, and takes a module from outside.")


if __name__ == "__main__":
    main()
