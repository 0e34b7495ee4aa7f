"""Prints every figure as one table, below the machine and the moment it was made in."""

import os
import pathlib
import platform
import re
import subprocess

import native_part
import wine_part
from table import print_table

ROOT = pathlib.Path(__file__).resolve().parent.parent


def first_line(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout.partition("\n")[0]


def machine():
    processor = re.search(r"^model name\s*:\s*(.*)$", pathlib.Path("/proc/cpuinfo").read_text(),
                          re.MULTILINE)  # fmt: skip
    kind = processor[1] if processor else platform.machine()
    return f"{os.cpu_count()} x {kind}; {first_line('g++', '--version')}; {first_line('wine', '--version')}"


def load():
    return "load {:.1f}".format(os.getloadavg()[0])


def main():
    before = load()
    rows = wine_part.rows() + native_part.rows(ROOT / "build/native-release/bench/corvid_bench")
    print(f"{machine()}; {before} when it began, {load()} when it ended\n")
    print_table(rows)


if __name__ == "__main__":
    main()
