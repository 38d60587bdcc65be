import pathlib
import re

STRINGS = pathlib.Path(__file__).resolve().parents[2] / "module" / "resources" / "strings"
LISTS = {"main": "6209", "merge": "6211", "formula": "6213", "alignment": "6215", "operation": "6217",
         "content": "6219", "format": "6221", "style": "6223"}
# The keywords that lead to each menu.
ROADS = {
    "main": [],
    "operation": [("main", "Operation")],
    "merge": [("main", "Operation"), ("operation", "Merge")],
    "formula": [("main", "Operation"), ("operation", "insertFOrmula")],
    "content": [("main", "Content")],
    "format": [("main", "Format")],
    "alignment": [("main", "Format"), ("format", "ALignment")],
    "style": [("main", "Style")],
}
# The prompt of the program itself.
COMMAND_PROMPTS = {"en": "Command:", "zh_CN": "命令:"}
SPACING = 1000
# A line of the script between keywords stands under this name.
LINE = "line"


def capitals(word):
    return re.search("[A-Z]+", word).group()


def from_capitals(word):
    return word[word.index(capitals(word)):]


def begun(word):
    """The capitals and one letter more."""
    return from_capitals(word)[:len(capitals(word)) + 1]


# How a keyword is typed, of its local and its global word.
SPELLINGS = {
    "whole": lambda local, word: local,
    "from its capitals": lambda local, word: from_capitals(local),
    "by its capitals": lambda local, word: capitals(local).lower(),
    "global": lambda local, word: "_" + word,
    "global in capitals": lambda local, word: "_" + word.upper(),
    "global from its capitals": lambda local, word: "_" + from_capitals(word),
    "global, begun": lambda local, word: "_" + begun(word),
}


def keywords(language):
    """For each menu its global words with the local ones."""
    texts = dict(line.split("\t", 1) for line in (STRINGS / f"{language}.tsv").read_text("utf-8").splitlines())
    menus = {}
    for menu, number in LISTS.items():
        local, words = texts[number].split(" _")
        menus[menu] = dict(zip(words.split(), local.split(), strict=True))
    return menus


def structure(action, *lines):
    return [*ROADS["operation"], ("operation", action), *[(LINE, line) for line in lines]]


def merged(action):
    return [*ROADS["merge"], ("merge", action)]


def formula(action, *lines):
    return [*ROADS["formula"], ("formula", action), *[(LINE, line) for line in lines]]


def content(action):
    return [*ROADS["content"], ("content", action)]


def formatted(action, *lines):
    return [*ROADS["format"], ("format", action), *[(LINE, line) for line in lines]]


def aligned(action):
    return [*ROADS["alignment"], ("alignment", action)]


def styled(action, *lines):
    return [*ROADS["style"], ("style", action), *[(LINE, line) for line in lines]]


MERGE = ("B3:C4", merged("mergeAll"))
RED_BORDERS = ("@select IDC_CELLBORDERPROP_COLOR_COMBOBOX #2", "@click IDC_CELLBORDERPROP_ALLBORDER_BUTTON", "@click IDOK")
NEW_STYLE = ("@set IDC_CREATECELLSTYLE_NEWNAME_EDIT Totals", "@click IDOK")

# Name: cells, keywords, what must be done before, and what the table must be like then.
EDITS = {
    "row above": ("A2", structure("insertABove"), None, lambda t: column(t, 0) == ["No", "", "1", "2", "3", "4"]),
    "row below": ("A2", structure("insertBElow"), None, lambda t: column(t, 0) == ["No", "1", "", "2", "3", "4"]),
    "row gone": ("A2:A3", structure("deleteROw"), None, lambda t: column(t, 0) == ["No", "3", "4"]),
    "column left": ("B1", structure("insertLEft"), None, lambda t: rows(t)[0] == ["No", "", "Width", "Height", "Room\n"]),
    "column right": ("B1", structure("insertRIght"), None,
                     lambda t: rows(t)[0] == ["No", "Width", "", "Height", "Room\n"]),
    "column gone": ("B1:C1", structure("deleteCOlumn"), None, lambda t: rows(t)[0] == ["No", "Room\n"]),
    "merged": (*MERGE, None, lambda t: t["merges"] == [[2, 1, 3, 2]]),
    "merged by rows": ("B3:C4", merged("mergeHorizontal"), None, lambda t: t["merges"] == [[2, 1, 2, 2], [3, 1, 3, 2]]),
    "merged by columns": ("B3:C4", merged("mergeVertical"), None,
                          lambda t: t["merges"] == [[2, 1, 3, 1], [2, 2, 3, 2]]),
    "unmerged": ("B3:C4", structure("Unmerge"), MERGE, lambda t: t["merges"] == []),
    "borders": ("B3:C4", structure("BOrder", *RED_BORDERS), None,
                lambda t: red_cells(t) == {(2, 1), (2, 2), (3, 1), (3, 2)}),
    "content locked": ("B2", content("Lock"), None, lambda t: states(t) == {(1, 1): 1}),
    "content unlocked": ("B2", content("Unlock"), ("B2", content("Lock")), lambda t: states(t) == {}),
    "format locked": ("C3", formatted("Lock"), None, lambda t: states(t) == {(2, 2): 16}),
    "format unlocked": ("C3", formatted("Unlock"), ("C3", formatted("Lock")), lambda t: states(t) == {}),
    "style": ("2:2", styled("editcellStyle", "_TITLE"), None,
              lambda t: {cell["style"] for cell in t["cells"][1]} == {"_TITLE"}),
    "sum": ("B2", formula("Sum", "@cells #PLACE A2:A5", "@expect editor =Sum(A2:A5)", "@edit OUTSIDE"), None,
            lambda t: rows(t)[1][:3] == ["1", "10", ""]),
    "average": ("B2", formula("Average", "@cells #PLACE A2:A5", "@edit OUTSIDE"), None,
                lambda t: rows(t)[1][:3] == ["1", "2.5", ""]),
    "count": ("C2", formula("Count", "@cells #PLACE A2:A5", "@edit OUTSIDE"), None,
              lambda t: rows(t)[1][:3] == ["1", "", "4"]),
    "cell": ("B2", formula("Cell", "@cells #PLACE C5", "@expect editor =C5", "@edit OUTSIDE"), None,
             lambda t: rows(t)[1][:3] == ["1", "200", ""]),
    "equation": ("B2", formula("Equation", "@expect editor =", "@edit OUTSIDE =A5*2"), None,
                 lambda t: rows(t)[1][:3] == ["1", "8", ""]),
}
for number, place in enumerate(["TL", "TC", "TR", "ML", "MC", "MR", "BL", "BC", "BR"], start=1):
    EDITS[f"aligned {place}"] = ("D4", aligned(place), None,
                                 lambda t, number=number: t["cells"][3][3]["alignment"] == number)

# Keywords that leave the table as it is: what they ask is asked all the same. The formula comes last: a cell editor that
# is left by Esc gives its cell back to the toolbar, whose cells the command then works on.
QUESTIONS = {
    "border": ("B2", structure("BOrder", "@click IDCANCEL")),
    "background": ("B2", formatted("BGcolor", "255,0,0")),
    "cell styles": ("B2", styled("Edittablestyle", "@click IDCANCEL")),
    "new cell style": ("B2", styled("Newtablestyle", *NEW_STYLE)),
    "sum": ("B2", formula("Sum", "@cells #PLACE A2:A5", "@edit ESC")),
}


def rows(table):
    return [[cell["text"] for cell in cells] for cells in table["cells"]]


def red_cells(table):
    """The cells whose six lines are red."""
    return {(r, c) for r, cells in enumerate(table["cells"]) for c, cell in enumerate(cells)
            if "grid" in cell and {edge["color"] for edge in cell["grid"].values()} == {"aci:1"}}


def column(table, index):
    return [cells[index] for cells in rows(table)]


def states(table):
    return {(r, c): cell["state"] for r, cells in enumerate(table["cells"]) for c, cell in enumerate(cells)
            if cell["state"] != 0}


class User:
    """Types keywords of one language in one way, and keeps which."""

    def __init__(self, language, spell):
        self.menus, self.spell, self.typed = keywords(language), spell, set()
        self.expect_end = f"@expect prompt {COMMAND_PROMPTS[language]}"

    def word(self, menu, word):
        self.typed.add((menu, word))
        return self.spell(self.menus[menu][word], word)

    def words(self, place, words):
        return [word.replace("PLACE", str(place)) if menu == LINE else self.word(menu, word) for menu, word in words]

    def command(self, place, cells, words):
        """One run of the command on the table at that place, ended in the menu that it came to."""
        last = [menu for menu, _ in words if menu != LINE][-1]
        return ["EDITTABLECELL", f"{place * SPACING + 10},195", cells, *self.words(place, words),
                self.word(last, "Quit"), self.expect_end]

    def one_action(self, place, cells, words):
        """The same, ended by its one action; a merge leaves the user in its menu."""
        back = [self.word("merge", "BAck")] if ("operation", "Merge") in words else []
        return ["EDITTABLECELL", f"{place * SPACING + 10},195", cells, self.word("main", "ExecuteOneAction"),
                *self.words(place, words), *back, self.expect_end]

    def climb(self, place):
        """Into each menu and back to the main one."""
        lines = ["EDITTABLECELL", f"{place * SPACING + 10},195", "A1"]
        for menu, road in ROADS.items():
            lines += self.words(place, road) + [self.word(step, "BAck") for step, _ in [*road, (menu, "")][:0:-1]]
        return [*lines, self.word("main", "Quit"), self.expect_end]


def imports():
    """A table for each edit, one for the questions, and one that is never touched."""
    return [line for place in range(len(EDITS) + 2)
            for line in ("TABLEIMPORT", "schedule.csv", f"{place * SPACING},200")]


def script(run_of, after=(), before_only=False):
    """Each edit on a table of its own; `run_of` makes the lines of one run of the command."""
    lines = imports()
    for place, (cells, words, before, _) in enumerate(EDITS.values()):
        if before:
            lines += run_of(place, *before)
        if not before_only:
            lines += [*run_of(place, cells, words), *after]
    return lines


def questions(run_of):
    return [line for cells, words in QUESTIONS.values() for line in run_of(len(EDITS), cells, words)]


def drawing(dump):
    return {key: value for key, value in dump.items() if key != "undoSteps"}


def contents(table):
    return {key: value for key, value in table.items() if key not in ("handle", "position")}


def check_edits(dump):
    *edited, asked, fresh = dump["tables"]
    for (name, (*_, is_done)), table in zip(EDITS.items(), edited, strict=True):
        assert is_done(table), (name, table)
        assert table["selection"] is None, name
    assert contents(asked) == contents(fresh)
    assert dump["open"] == []
    names = [style["name"] for style in dump["styles"][0]["cellStyles"]]
    assert names == ["_TITLE", "_HEADER", "_DATA", "Totals"], names


def check(run):
    assert run.dump["tables"][0]["selection"] is None
    reference = None
    for language in ["en", "zh_CN"]:
        every_word = {(menu, word) for menu, words in keywords(language).items() for word in words}
        arguments = f"--lang {language}"
        for name, spell in SPELLINGS.items():
            user = User(language, spell)
            edited = run.play([*script(user.command), *questions(user.command), *user.climb(len(EDITS))], arguments)
            check_edits(edited)
            reference = reference or drawing(edited)
            assert drawing(edited) == reference, (language, name)

            one_by_one = run.play([*script(user.one_action), *questions(user.one_action)], arguments)
            assert drawing(one_by_one) == reference, (language, name)
            assert user.typed == every_word, every_word - user.typed
        check_undo(run, User(language, spell), arguments)


def check_undo(run, user, arguments):
    edited = drawing(run.play(script(user.command), arguments))
    untouched = drawing(run.play(script(user.command, before_only=True), arguments))
    assert edited != untouched
    assert drawing(run.play(script(user.command, ["U"]), arguments)) == untouched
    assert drawing(run.play(script(user.command, ["U", "REDO"]), arguments)) == edited
    assert drawing(run.play(script(user.command, ["U", "REDO", "U"]), arguments)) == untouched

    new_style = user.command(0, *QUESTIONS["new cell style"])
    untouched = drawing(run.play(imports(), arguments))
    made = drawing(run.play([*imports(), *new_style], arguments))
    assert made["styles"] != untouched["styles"]
    assert drawing(run.play([*imports(), *new_style, "U"], arguments)) == untouched
    assert drawing(run.play([*imports(), *new_style, "U", "REDO"], arguments)) == made
