"""The pages of docs/ hold what they promise: links lead somewhere, pictures are those that the walk of the guide makes, the
walk goes as the guide tells, and the man page knows the options of the program.

    pages.py KDHOST SOURCE_FOLDER
"""
import os
import pathlib
import re
import subprocess
import sys
import tempfile

LINK = re.compile(r"!?\[[^\]]*\]\(([^)\s]+)\)")
PICTURE_BYTES = 200_000  # a page is to open at once


def anchors(page):
    """The anchors of a page's headings, as they are made of these."""
    headings = re.findall(r"^#+ (.*)$", page.read_text(encoding="utf-8"), re.M)
    return {re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-") for heading in headings}


def without_code(text):
    return re.sub(r"```.*?```|`[^`\n]*`", "", text, flags=re.S)


def check_links(pages):
    links = 0
    for page in pages:
        for target in LINK.findall(without_code(page.read_text(encoding="utf-8"))):
            if target.startswith(("http:", "https:")):
                continue
            links += 1
            path, _, anchor = target.partition("#")
            file = (page.parent / path).resolve() if path else page
            assert file.exists(), f"{page}: {target} is not there"
            assert not anchor or anchor in anchors(file), f"{page}: {target} has no such heading"
    assert links > 40, links


def check_pictures(guide, walked):
    named = set()
    for page in guide.glob("*.md"):
        named |= {pathlib.Path(target).name for target in LINK.findall(page.read_text(encoding="utf-8"))
                  if target.endswith(".png")}
    kept = {file.name for file in (guide / "pictures").iterdir()}
    assert named == kept == walked, (named ^ kept, kept ^ walked)
    for name in kept:
        content = (guide / "pictures" / name).read_bytes()
        assert content.startswith(b"\x89PNG") and len(content) < PICTURE_BYTES, name


def walk(kdhost, script):
    """The names of the pictures that the walk makes."""
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, XDG_CONFIG_HOME=folder, XDG_RUNTIME_DIR=folder)
        done = subprocess.run([kdhost, "--headless", "--script", script], cwd=folder, env=environment,
                              capture_output=True, text=True)
        assert done.returncode == 0 and not done.stderr, done.stderr
        return {file.name for file in pathlib.Path(folder).glob("*.png")}


def check_manual(kdhost, manual):
    usage = subprocess.run([kdhost, "--help"], capture_output=True, text=True, check=True).stdout
    page = manual.read_text(encoding="utf-8").replace("\\-", "-").replace("\\fR", "").replace("\\fP", "")
    options = set(re.findall(r"--[a-z][a-z-]*", usage)) | {"--help"}
    told = set(re.findall(r"^\.(?:BI?) (--[a-z-]+)", page, re.M))
    assert told == options, told ^ options
    for option, value in re.findall(r"\[(--[a-z-]+) ([^\] ]+)", usage):
        entry = re.search(rf'^\.BI {option} "? ?([^"\n]*)', page, re.M)
        assert entry and entry[1].strip() == value, (option, value, entry and entry[1])
    for status in re.findall(r"(?<=[:;] )\d(?= )", usage[usage.index("Exit status"):]):
        assert f"\n.B {status}\n" in page, status


def main():
    kdhost, source = pathlib.Path(sys.argv[1]).resolve(), pathlib.Path(sys.argv[2]).resolve()
    guide = source / "docs/guide"
    check_links([source / "README.md", source / "examples/README.md", *sorted((source / "docs").rglob("*.md"))])
    check_pictures(guide, walk(kdhost, guide / "pictures.kds"))
    check_manual(kdhost, source / "packaging/kdhost.1")
    print("The pages hold what they promise.")


if __name__ == "__main__":
    main()
