#!/usr/bin/env python3
"""Checks what a DLL tells of itself in its properties: its version, twice, and its texts."""

import argparse
import struct
import sys
from pathlib import Path

RESOURCES = 2  # which of the data directories
VERSION_INFORMATION = 16  # which kind of resource
FIXED_SIGNATURE = 0xFEEF04BD


class Image:
    """A PE file."""

    def __init__(self, content):
        self.content = content
        (header,) = struct.unpack_from("<I", content, 0x3C)
        if content[header : header + 4] != b"PE\0\0":
            sys.exit("is no PE file")
        (sections,) = struct.unpack_from("<H", content, header + 6)
        (optional_size,) = struct.unpack_from("<H", content, header + 20)
        optional = header + 24
        (magic,) = struct.unpack_from("<H", content, optional)
        directories = optional + (112 if magic == 0x20B else 96)
        (self.resources,) = struct.unpack_from("<I", content, directories + 8 * RESOURCES)
        table = optional + optional_size
        self.sections = [struct.unpack_from("<8xIIII", content, table + 40 * i) for i in range(sections)]

    def place(self, address):
        for size, start, size_in_file, place in self.sections:
            if start <= address < start + max(size, size_in_file):
                return address - start + place
        sys.exit(f"nothing lies at {address:#x}")

    def version_resource(self):
        if not self.resources:
            sys.exit("has no resources")
        tree = self.place(self.resources)
        entries = self.entries(tree, tree)
        if VERSION_INFORMATION not in entries:
            sys.exit("has no version resource")
        node, is_folder = entries[VERSION_INFORMATION]
        while is_folder:
            node, is_folder = next(iter(self.entries(tree, node).values()))
        address, size = struct.unpack_from("<II", self.content, node)
        start = self.place(address)
        return self.content[start : start + size]

    def entries(self, tree, folder):
        named, numbered = struct.unpack_from("<12xHH", self.content, folder)
        entries = {}
        for i in range(named + numbered):
            number, offset = struct.unpack_from("<II", self.content, folder + 16 + 8 * i)
            entries[number] = (tree + (offset & 0x7FFFFFFF), bool(offset & 0x80000000))
        return entries


def aligned(offset):
    return (offset + 3) & ~3


def block(data, offset):
    """One block of the resource: its name, its value, where its children begin and where it ends."""
    length, value_length, is_text = struct.unpack_from("<HHH", data, offset)
    end = offset + 6
    while data[end : end + 2] != b"\0\0":
        end += 2
    name = data[offset + 6 : end].decode("utf-16-le")
    start = aligned(end + 2)
    value = data[start : start + value_length * (2 if is_text else 1)]
    return name, value, aligned(start + len(value)), offset + length


def texts(data, offset, end):
    """The texts of all blocks below."""
    found = {}
    while offset < end:
        name, value, children, block_end = block(data, offset)
        if children < block_end:
            found.update(texts(data, children, block_end))
        elif name != "Translation":
            found[name] = value.decode("utf-16-le").rstrip("\0")
        offset = aligned(block_end)
    return found


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--version", required=True)
    parser.add_argument("--text", action="append", default=[], metavar="NAME=TEXT")
    parser.add_argument("dll", type=Path)
    options = parser.parse_args()

    data = Image(options.dll.read_bytes()).version_resource()
    _, fixed, children, end = block(data, 0)
    signature, _, *numbers = struct.unpack_from("<6I", fixed)
    found = texts(data, children, end)
    major, minor, patch = (int(part) for part in options.version.split("."))
    wanted = [(major << 16) | minor, patch << 16] * 2
    faults = []
    if signature != FIXED_SIGNATURE or numbers != wanted:
        faults.append(f"the numbers are {numbers}, not {wanted}")
    expected = {"FileVersion": options.version, "ProductVersion": options.version}
    expected.update(text.split("=", 1) for text in options.text)
    for name, text in expected.items():
        if found.get(name) != text:
            faults.append(f"{name} is {found.get(name)!r}, not {text!r}")
    for fault in faults:
        print(f"{options.dll}: {fault}")
    sys.exit(1 if faults else 0)


if __name__ == "__main__":
    main()
