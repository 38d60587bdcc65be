#!/usr/bin/env python3
"""The module's face is exactly the listed functions: exports.py TvxTable.tvx"""

import subprocess
import sys

LISTED = {
    "kdrxEntryPoint",
    "kdrxGetApiVersion",
    "CreateTableIOHandle",
    "tvxtableImportTableFromExlSE",
    "ImportTableFromCSV",
    "GetSheetsNameFromCSV",
    "GetSheetsNameFromExl",
    "showTableToolBar",
}

listing = subprocess.run(
    ["nm", "-D", "--defined-only", "--extern-only", sys.argv[1]], capture_output=True, text=True, check=True
).stdout
exported = {line.split()[-1] for line in listing.splitlines()}
if exported != LISTED:
    sys.exit(f"missing: {sorted(LISTED - exported)}, not to be exported: {sorted(exported - LISTED)}")
print(f"{len(exported)} functions exported, as listed")
