#!/usr/bin/env python3
"""Compares the export table of the library with the list of what it is to export.

Three things are checked, for a DLL and for an ELF library alike:
  - everything that a name on the list promises is in the table;
  - whatever else of a listed class was compiled into the library is in the table too: it is exported whole. Inline
    functions are not meant: every client has its own copies, as it has of tr() and trUtf8();
  - nothing that the list does not name is in the table.
"""

import argparse
import re
import subprocess
import sys
from pathlib import Path

TRAITS = {"object", "metaobject", "copy", "move", "function"}
ABOUT = re.compile(r"^(?:vtable|VTT|typeinfo name|typeinfo|guard variable|construction vtable|"
                   r"(?:non-virtual|virtual|covariant return) thunk)(?: for| to) ")
# What the linker adds to every library.
OF_THE_LINKER = {"_init", "_fini", "_edata", "_end", "__bss_start"}
# In a build without optimisation, the inline functions of Qt and of the standard library that were not inlined; their
# headers say that these are visible.
FOREIGN_INLINE = re.compile(r"^(?:Q[A-Z]|Qt|qt|std::|q[A-Z]|operator|bool operator|void |__gnu|decltype)")


def output_of(command, text=None):
    return subprocess.run(command, input=text, check=True, capture_output=True, text=True).stdout


def read_list(path):
    names = {}
    for line in path.read_text().splitlines():
        line = line.strip()
        if not line or line.startswith("#"):
            continue
        name, *traits = re.split(r"\s{2,}", line, maxsplit=1)
        traits = set(traits[0].split()) if traits else set()
        if not traits or traits - TRAITS:
            sys.exit(f"{path.name}: \"{line}\" does not say what it names")
        names[name] = traits
    return names


def owner_of(symbol, names):
    """The listed name that the symbol is or belongs to, the innermost one."""
    symbol = ABOUT.sub("", symbol)
    candidates = [name for name in names if symbol == name or symbol.startswith(name + "::")]
    return max(candidates, key=len, default=None)


def compiled_symbols(nm, objects):
    """The symbols that the objects define for others and that are not inline."""
    symbols = set()
    for line in output_of([nm, "-C", "-f", "sysv", "--defined-only", "--extern-only", *objects]).splitlines():
        fields = [field.strip() for field in line.rsplit("|", 6)]
        if len(fields) == 7 and fields[2] in "TDBR" and "$" not in fields[6]:
            symbols.add(fields[0])
    return symbols


def elf_table(nm, library):
    """The exported symbols, and those among them that are weak."""
    table, weak = set(), set()
    for line in output_of([nm, "-DC", "--defined-only", library]).splitlines():
        kind, symbol = line[17:18], line[19:]
        if symbol in OF_THE_LINKER:
            continue
        table.add(symbol)
        if kind == "W":
            weak.add(symbol)
    return table, weak


def dll_table(objdump, library):
    text = output_of([objdump, "-p", library])
    names = re.search(r"\[Ordinal/Name Pointer\] Table.*?\n(.*?)\n\n", text, re.DOTALL)
    if not names:
        sys.exit("the DLL has no export table")
    mangled = [line.split()[-1] for line in names.group(1).splitlines()]
    return set(output_of(["c++filt"], "\n".join(mangled)).splitlines())


def constructor(name):
    return f"{name}::{name.rsplit('::', 1)[-1]}"


def missing_promises(name, traits, table, is_dll):
    """The members that the traits of a name promise and that the table lacks."""
    def present(start):
        return any(symbol.startswith(start) for symbol in table)

    if "function" in traits:
        return [] if name in table else [name]
    short = name.rsplit("::", 1)[-1]
    promised = [constructor(name) + "("]
    if "object" in traits:
        promised += [f"{name}::~{short}()", f"vtable for {name}", f"typeinfo for {name}"]
    if "metaobject" in traits:
        promised += [f"{name}::metaObject() const", f"{name}::qt_metacall(QMetaObject::Call, int, void**)",
                     f"{name}::qt_metacast(char const*)", f"{name}::staticMetaObject"]
        if is_dll: # an ELF library keeps it to itself: Qt's macro says so
            promised.append(f"{name}::qt_static_metacall(QObject*, QMetaObject::Call, int, void**)")
    if "copy" in traits:
        promised += [f"{constructor(name)}({name} const&)", f"{name}::operator=({name} const&)"]
    if "move" in traits:
        promised += [f"{constructor(name)}({name}&&)", f"{name}::operator=({name}&&)"]
    missing = [promise for promise in promised if not present(promise)]
    if "metaobject" not in traits and present(f"{name}::staticMetaObject"):
        missing.append(f"{name} without staticMetaObject (or the trait \"metaobject\" in the list)")
    return missing


def is_private_to_the_library(symbol):
    return "{lambda" in symbol or "::qt_static_metacall(" in symbol or symbol.startswith("guard variable for ")


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--library", required=True)
    parser.add_argument("--list", type=Path, required=True)
    parser.add_argument("--nm", required=True)
    parser.add_argument("--objdump", help="of the target, when the library is a DLL")
    parser.add_argument("--unoptimised", action="store_true",
                        help="let inline functions of Qt and of the standard library pass")
    parser.add_argument("objects", nargs="+")
    arguments = parser.parse_args()

    names = read_list(arguments.list)
    if arguments.objdump:
        table, weak = dll_table(arguments.objdump, arguments.library), set()
    else:
        table, weak = elf_table(arguments.nm, arguments.library)
    compiled = compiled_symbols(arguments.nm, arguments.objects)

    faults = []
    for name, traits in names.items():
        faults += [f"not exported: {promise}"
                   for promise in missing_promises(name, traits, table, bool(arguments.objdump))]
    for symbol in sorted(compiled - table):
        if owner_of(symbol, names) and not is_private_to_the_library(symbol):
            faults.append(f"not exported with its class: {symbol}")
    for symbol in sorted(table):
        if owner_of(symbol, names):
            continue
        if arguments.unoptimised and symbol in weak and FOREIGN_INLINE.match(symbol):
            continue
        faults.append(f"exported, but not on the list: {symbol}")

    print(f"{len(table)} exported symbols, {len(names)} names on the list")
    print("\n".join(faults))
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
