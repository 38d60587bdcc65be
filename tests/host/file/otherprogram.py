"""What another program makes of our drawings, by its library ezdxf:

    otherprogram.py audit FILE ...        tells what its audit finds, a line each; nothing when all is well
    otherprogram.py copy FROM TO          saves what it has read
    otherprogram.py edit FROM TO          changes the drawing as a person would there, and saves it"""

import sys

import ezdxf


def audit(paths):
    for path in paths:
        auditor = ezdxf.readfile(path).audit()
        for entry in auditor.errors + auditor.fixes:
            print(f"{path}: {entry.code} {entry.message}")


def copy(source, target):
    ezdxf.readfile(source).saveas(target)


def edit(source, target):
    document = ezdxf.readfile(source)
    document.layers.add("THEIRS", color=3)
    space = document.modelspace()
    space.query("LINE").first.dxf.end = (50, 60)
    space.add_circle((1, 2), 3, dxfattribs={"layer": "THEIRS"})
    document.saveas(target)


if __name__ == "__main__":
    if sys.argv[1] == "audit":
        audit(sys.argv[2:])
    else:
        {"copy": copy, "edit": edit}[sys.argv[1]](sys.argv[2], sys.argv[3])
