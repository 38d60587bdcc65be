import pathlib
import runpy

check_in = runpy.run_path(str(pathlib.Path(__file__).with_name("cellstyle_naming_proposal.py")))["check"]


def check(run):
    check_in(run, title="标题", header="表头", copy="副本-", numbered="副本({})-")
