#!/usr/bin/env python3
"""The page of the host's contract and the headers agree: contract.py [folder of the repository]

Every public operation of the headers has a line in the section of its header, every operation that a line names
stands in that header, every test that a line names is there, and the list at the page's end holds exactly the
operations without a test."""

import re
import sys
from pathlib import Path

ROOT = Path(sys.argv[1]) if len(sys.argv) > 1 else Path(__file__).resolve().parent.parent
INCLUDE = ROOT / "sdk/include"
PAGE = ROOT / "docs/host-contract.md"
FOLDERS = ["kd/rx", "kd/ge", "kd/db", "kd/ed", "kd/ad", "win32"]
SINGLE = ["mfc/file.h", "mfc/stdstr.h", "mfc/resource.h"]

NOISE = re.compile(
    r"""//[^\n]*|/\*.*?\*/|"(?:\\.|[^"\\\n])*"|'(?:\\.|[^'\\\n])*'|^[ \t]*#(?:[^\n]*\\\n)*[^\n]*""", re.S | re.M
)
MACRO = re.compile(r"\b[A-Z][A-Z0-9_]+\([^()]*\)")
TEMPLATE = re.compile(r"\btemplate\s*<[^<>]*>")
CLASS = re.compile(r"^(?:class|struct|union)\s+(\w+)")
NAME = re.compile(r"((?:~|::)?)\b(\w+)\s*\(")
ACCESS = {"public", "protected", "private"}


class Scope:
    """A namespace, where the name is empty, or a class."""

    def __init__(self, name, public):
        self.name = name
        self.public = public


def function_name(declaration, scope):
    """The name of the public operation that a declaration makes, or None."""
    if not scope.public or re.search(r"\boperator\b|^(?:using|friend|typedef|enum)\b", declaration):
        return None
    found = NAME.search(declaration)
    if found is None or found[1] or found[2] == scope.name:
        return None
    return found[2]


def skip_block(text, position):
    """The place behind the block whose opening brace stands right before `position`."""
    depth = 1
    while depth > 0:
        depth += {"{": 1, "}": -1}.get(text[position], 0)
        position += 1
    return position


def operations(text):
    """The public operations of a header as pairs of class (empty for a free function) and name."""
    text = MACRO.sub("", NOISE.sub("", text))
    found = set()
    scopes = [Scope("", True)]
    declaration = ""
    position = 0
    while position < len(text):
        mark = text[position]
        position += 1
        if mark == ":" and declaration.strip() in ACCESS:
            scopes[-1].public = declaration.strip() == "public"
        elif mark == "}":
            scopes.pop()
        elif mark in ";{":
            head = " ".join(TEMPLATE.sub("", declaration).split())
            opened = CLASS.match(head)
            if mark == "{" and head.startswith("namespace"):
                scopes.append(Scope("", True))
            elif mark == "{" and opened:
                scopes.append(Scope(opened[1], scopes[-1].public and not head.startswith("class")))
            else:
                name = function_name(head, scopes[-1])
                if name:
                    found.add((scopes[-1].name, name))
                if mark == "{":
                    position = skip_block(text, position)
        else:
            declaration += mark
            continue
        declaration = ""
    return found


def headers():
    for folder in FOLDERS:
        for path in sorted((INCLUDE / folder).glob("*.h")):
            yield path.relative_to(INCLUDE).as_posix()
    yield from SINGLE


def quoted(text):
    return re.findall(r"`([^`]+)`", text)


def sections(page):
    """The page's tables: for each heading that names a header its rows, each a list of cells."""
    tables = {}
    rows = None
    for line in page.splitlines():
        if line.startswith("#"):
            name = line.lstrip("# ").strip("`")
            rows = tables.setdefault(name, []) if name.endswith(".h") else None
        elif rows is not None and line.startswith("| `"):
            rows.append([cell.strip() for cell in line.strip("| \n").split(" | ")])
    return tables


def complaints_of_header(header, rows):
    """A name that several classes of the header have must be written with its class."""
    declared = operations((INCLUDE / header).read_text(encoding="utf-8"))
    named = {word for row in rows for word in quoted(row[0])}
    classes = {}
    for owner, name in declared:
        classes.setdefault(name, set()).add(owner)
    allowed = {f"{owner}::{name}" if owner else name for owner, name in declared}
    allowed |= {name for name, owners in classes.items() if len(owners) == 1}
    for owner, name in sorted(declared):
        full = f"{owner}::{name}" if owner else name
        if full not in named and (len(classes[name]) > 1 or name not in named):
            yield f"{header}: {full} has no line"
    for word in sorted(named - allowed):
        yield f"{header}: the page names {word}, which the header hasn't"


def complaints_of_row(header, row):
    if len(row) != 4 or not all(row):
        yield f"{header}: not four columns: {row}"
    elif row[3] != "-":
        for place in row[3].split("; "):
            words = quoted(place)
            path = ROOT / "tests" / words[0] if words else None
            text = path.read_text(encoding="utf-8") if path and path.is_file() else ""
            for suite in words[1:] or [""]:
                if not re.search(rf"^(?:TYPED_)?TEST(?:_F|_P)?\({suite or ''}", text, re.M):
                    yield f"{header}: no such test: {place}"


def main():
    page = PAGE.read_text(encoding="utf-8")
    tables = sections(page)
    complaints = []
    untested = []
    for header in headers():
        rows = tables.pop(header, [])
        complaints += complaints_of_header(header, rows)
        for row in rows:
            complaints += complaints_of_row(header, row)
            if row[-1] == "-":
                untested += [f"{header} {word}" for word in quoted(row[0])]
    complaints += [f"{name}: the page describes a header that isn't there" for name in tables]
    last = re.findall(r"^- `([^`]+\.h)`: (.+)$", page, re.M)
    listed = [f"{header} {word}" for header, words in last for word in quoted(words)]
    complaints += [f"the list at the end: {entry}" for entry in sorted(set(listed) ^ set(untested))]
    if complaints:
        sys.exit("\n".join(complaints))
    count = sum(len(operations((INCLUDE / header).read_text(encoding="utf-8"))) for header in headers())
    print(f"{count} operations, {len(untested)} of them without a test of their own")


if __name__ == "__main__":
    main()
