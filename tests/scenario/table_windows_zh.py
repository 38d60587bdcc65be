import pathlib
import runpy

check = runpy.run_path(str(pathlib.Path(__file__).with_name("table_windows.py")))["check"]
