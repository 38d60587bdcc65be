import pathlib
import re

STRINGS = pathlib.Path(__file__).resolve().parents[2] / "module" / "resources" / "strings"
LISTS = {"main": "6209", "merge": "6211", "alignment": "6215", "operation": "6217", "content": "6219",
         "format": "6221", "style": "6223"}
SPACING = 1000


def capitals(word):
    return re.search("[A-Z]+", word).group()


def from_capitals(word):
    return word[word.index(capitals(word)):]


# How a keyword is typed, of its local and its global word.
SPELLINGS = {
    "whole": lambda local, word: local,
    "by its capitals": lambda local, word: capitals(local).lower(),
    "global": lambda local, word: "_" + word,
    "global from its capitals": lambda local, word: "_" + from_capitals(word),
}


def keywords(language):
    """For each menu its global words with the local ones."""
    texts = dict(line.split("\t", 1) for line in (STRINGS / f"{language}.tsv").read_text("utf-8").splitlines())
    menus = {}
    for menu, number in LISTS.items():
        local, words = texts[number].split(" _")
        menus[menu] = dict(zip(words.split(), local.split(), strict=True))
    return menus


def structure(action):
    return [("main", "Operation"), ("operation", action)]


def merged(action):
    return [*structure("Merge"), ("merge", action)]


def formatted(*actions):
    return [("main", "Format"), *actions]


def content(action):
    return [("main", "Content"), ("content", action)]


MERGE = ("B3:C4", merged("mergeAll"))

# Name: cells, keywords, what must be done before, and what the table must be like then.
EDITS = {
    "row above": ("A2", structure("insertABove"), None, lambda t: column(t, 0) == ["No", "", "1", "2", "3", "4"]),
    "row below": ("A2", structure("insertBElow"), None, lambda t: column(t, 0) == ["No", "1", "", "2", "3", "4"]),
    "row gone": ("A2:A3", structure("deleteROw"), None, lambda t: column(t, 0) == ["No", "3", "4"]),
    "column left": ("B1", structure("insertLEft"), None, lambda t: row(t, 0) == ["No", "", "Width", "Height", "Room\n"]),
    "column right": ("B1", structure("insertRIght"), None,
                     lambda t: row(t, 0) == ["No", "Width", "", "Height", "Room\n"]),
    "column gone": ("B1:C1", structure("deleteCOlumn"), None, lambda t: row(t, 0) == ["No", "Room\n"]),
    "merged": (*MERGE, None, lambda t: t["merges"] == [[2, 1, 3, 2]]),
    "merged by rows": ("B3:C4", merged("mergeHorizontal"), None, lambda t: t["merges"] == [[2, 1, 2, 2], [3, 1, 3, 2]]),
    "merged by columns": ("B3:C4", merged("mergeVertical"), None,
                          lambda t: t["merges"] == [[2, 1, 3, 1], [2, 2, 3, 2]]),
    "unmerged": ("B3:C4", structure("Unmerge"), MERGE, lambda t: t["merges"] == []),
    "content locked": ("B2", content("Lock"), None, lambda t: states(t) == {(1, 1): 1}),
    "content unlocked": ("B2", content("Unlock"), ("B2", content("Lock")), lambda t: states(t) == {}),
    "format locked": ("C3", formatted(("format", "Lock")), None, lambda t: states(t) == {(2, 2): 16}),
    "format unlocked": ("C3", formatted(("format", "Unlock")), ("C3", formatted(("format", "Lock"))),
                        lambda t: states(t) == {}),
    "style": ("2:2", [("main", "Style"), ("style", "editcellStyle"), ("text", "_TITLE")], None,
              lambda t: {cell["style"] for cell in t["cells"][1]} == {"_TITLE"}),
}
for number, place in enumerate(["TL", "TC", "TR", "ML", "MC", "MR", "BL", "BC", "BR"], start=1):
    EDITS[f"aligned {place}"] = ("D4", formatted(("format", "ALignment"), ("alignment", place)), None,
                                 lambda t, number=number: t["cells"][3][3]["alignment"] == number)


def row(table, index):
    return [cell["text"] for cell in table["cells"][index]]


def column(table, index):
    return [cells[index]["text"] for cells in table["cells"]]


def states(table):
    return {(r, c): cell["state"] for r, cells in enumerate(table["cells"]) for c, cell in enumerate(cells)
            if cell["state"] != 0}


def command(place, cells, words, menus, spell):
    """The lines of one run of the command on the table at that place."""
    typed = [word if menu == "text" else spell(menus[menu][word], word) for menu, word in words]
    last = [menu for menu, _ in words if menu != "text"][-1]
    return ["EDITTABLECELL", f"{place * SPACING + 10},195", cells, *typed, spell(menus[last]["Quit"], "Quit")]


def imports():
    return [line for place in range(len(EDITS)) for line in ("TABLEIMPORT", "schedule.csv", f"{place * SPACING},200")]


def script(menus, spell, after, before_only=False):
    lines = imports()
    for place, (cells, words, before, _) in enumerate(EDITS.values()):
        if before:
            lines += command(place, *before, menus, spell)
        if not before_only:
            lines += command(place, cells, words, menus, spell) + after
    return lines


def drawing(dump):
    return {key: value for key, value in dump.items() if key != "undoSteps"}


def check_edits(dump):
    for (name, (*_, is_done)), table in zip(EDITS.items(), dump["tables"], strict=True):
        assert is_done(table), (name, table)
        assert table["selection"] is None, name


def check(run):
    assert run.dump["tables"][0]["selection"] is None
    reference = None
    for language in ["en", "zh_CN"]:
        menus = keywords(language)
        arguments = f"--lang {language}"
        for name, spell in SPELLINGS.items():
            edited = run.play(script(menus, spell, []), arguments)
            check_edits(edited)
            reference = reference or drawing(edited)
            assert drawing(edited) == reference, (language, name)
        untouched = run.play(script(menus, spell, [], before_only=True), arguments)
        taken_back = run.play(script(menus, spell, ["U"]), arguments)
        assert drawing(taken_back) == drawing(untouched), language
        done_again = run.play(script(menus, spell, ["U", "REDO"]), arguments)
        assert drawing(done_again) == reference, language
