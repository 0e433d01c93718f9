#!/usr/bin/env python3
"""Checks that compare-abi lets additions pass, and tells what broke by its name."""

import argparse
import subprocess
import sys
from pathlib import Path

# What changes: whether that is fine, and what has to be named if it is not.
CHANGES = {
    "NOTHING": [],
    "FUNCTION_ADDED": [],
    "ENUMERATOR_ADDED": [],
    "BASE_OVERRIDDEN": [],
    "HIDDEN_MEMBER_ADDED": [],
    "FUNCTION_REMOVED": ["Shape::width() const"],
    "PARAMETER_CHANGED": ["Shape::height(int) const"],
    "MEMBER_ADDED": ["class Shape", "m_depth"],
    "VIRTUAL_ADDED": ["vtable for Shape", "Shape::corners() const"],
}


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--tool", type=Path, required=True)
    parser.add_argument("--compiler", required=True)
    parser.add_argument("--folder", type=Path, required=True)
    options = parser.parse_args()
    here = Path(__file__).parent
    options.folder.mkdir(parents=True, exist_ok=True)
    baseline = options.folder / "shape.abi.xz"

    def compare(change, *arguments):
        library = options.folder / f"libshape-{change}.so"
        subprocess.run([options.compiler, "-g", "-shared", "-fPIC", "-fvisibility=hidden", "-D" + change, "-I", here / "headers",
                        "-Wl,-soname,libshape.so.1", "-o", library, here / "shape.cpp"], check=True)  # fmt: skip
        return subprocess.run([options.tool, *arguments, baseline, library, here / "headers"], capture_output=True, text=True)

    compare("NOTHING", "--write").check_returncode()
    faults = []
    for change, names in CHANGES.items():
        result = compare(change)
        if (result.returncode != 0) != bool(names):
            faults.append(f"{change}: the exit status is {result.returncode}\n{result.stdout}{result.stderr}")
        faults += [f"{change}: does not name {name}\n{result.stdout}" for name in names if name not in result.stdout]
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
