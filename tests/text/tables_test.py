"""Runs the script of the converters' tables again and compares with its output in the tree.

usage: tables_test.py ROOT
"""
import pathlib
import subprocess
import sys

root = pathlib.Path(sys.argv[1])
made = subprocess.run([sys.executable, "-B", str(root / "text/jaconv_tables.py")], capture_output=True, check=True)
if made.stdout != (root / "text/jaconv_tables.cpp").read_bytes():
    sys.exit("text/jaconv_tables.cpp is not what text/jaconv_tables.py makes")
