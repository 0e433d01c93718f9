#!/usr/bin/env python3
"""Checks that the binaries of an installed package carry the protections that distributions ask for.

  - ELF: no section is writable and executable, the stack is not executable, relocations are read-only once the library
    is loaded and all are done by then, other libraries are looked for where the system does or beside it, and branch
    targets are marked;
  - DLL: addresses are random, in the whole address space, and data is not executable;
  - no file tells a folder of the machine that it was built on.
"""

import argparse
import re
import subprocess
import sys
from pathlib import Path

# The instruction that marks a target. The note about it is lost when the C library's own objects lack it.
ENDBR64 = bytes([0xF3, 0x0F, 0x1E, 0xFA])
# Where an ELF file says what it is, and what an object says that is still to be linked.
E_TYPE, ET_REL = 16, 1


def output_of(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def faults_of_elf(readelf, path):
    headers = output_of(readelf, "-lW", path)
    dynamic = output_of(readelf, "-dW", path)
    for line in headers.splitlines():
        kind, *fields = line.split() or [""]
        if kind in ("LOAD", "GNU_STACK") and {"W", "E"} <= set("".join(fields[5:-1])):
            yield f"{kind} is writable and executable"
    if "GNU_STACK" not in headers:
        yield "says nothing of its stack, which is executable then"
    if "GNU_RELRO" not in headers:
        yield "relocations stay writable"
    if "NOW" not in dynamic:
        yield "relocations are done late"
    if re.search(r"R(?:UN)?PATH.*\[(?!\$ORIGIN/)", dynamic):
        yield "has a path of its own to other libraries"
    if ENDBR64 not in path.read_bytes():
        yield "targets of branches are not marked"


def faults_of_dll(objdump, path):
    headers = output_of(objdump, "-p", path)
    for flag in ("HIGH_ENTROPY_VA", "DYNAMIC_BASE", "NX_COMPAT"):
        if flag not in headers:
            yield f"lacks {flag}"
    sections = output_of(objdump, "-h", path).splitlines()
    for section, flags in zip(sections, sections[1:]):
        if "CODE" in flags and "READONLY" not in flags:
            yield f"{section.split()[1]} is writable and executable"


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--readelf", required=True)
    parser.add_argument("--objdump", required=True)
    parser.add_argument("--build-folders", nargs="+", required=True)
    parser.add_argument("--package", type=Path, required=True)
    options = parser.parse_args()

    binaries = 0
    faults = []
    for path in sorted(p for p in options.package.rglob("*") if p.is_file() and not p.is_symlink()):
        content = path.read_bytes()
        for folder in options.build_folders:
            if folder.encode() in content:
                faults.append((path, f"names {folder}"))
        if content.startswith(b"\x7fELF") and content[E_TYPE] != ET_REL:
            binaries += 1
            faults += [(path, fault) for fault in faults_of_elf(options.readelf, path)]
        elif content.startswith(b"MZ"):
            binaries += 1
            faults += [(path, fault) for fault in faults_of_dll(options.objdump, path)]
    for path, fault in faults:
        print(f"{path.relative_to(options.package)}: {fault}")
    if not binaries:
        sys.exit("there is no binary in the package")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
