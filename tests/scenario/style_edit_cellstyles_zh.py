import pathlib
import runpy

check = runpy.run_path(str(pathlib.Path(__file__).with_name("style_edit_cellstyles.py")))["check"]
