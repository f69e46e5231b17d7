# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""What the two commands of a release share: the forms that the program accepts, and what an archive says of itself."""
import base64
import binascii
import json
import re
import struct
import tarfile
import urllib.parse

TOP = "Quorvane"
INFORMATION = "share/Quorvane/info.json"
VERSION = re.compile(r"[A-Za-z0-9-][A-Za-z0-9.-]{0,39}")
LARGEST = 256_000_000
# As Qt names what a program was built for, which is what the program compares with.
PROCESSORS = {3: "i386", 40: "arm", 62: "x86_64", 183: "arm64", 243: "riscv64"}


class Refused(Exception):
    """Why the release cannot be made, as a sentence for who makes it."""


def processor(executable):
    """What an executable (its first bytes) was built for (ELF, e_machine)."""
    if executable[:4] != b"\x7fELF" or len(executable) < 20:
        raise Refused("bin/quorvane is no executable of Linux")
    machine = struct.unpack_from("<H" if executable[5] == 1 else ">H", executable, 18)[0]
    if machine not in PROCESSORS:
        raise Refused(f"bin/quorvane is for a processor that has no name here (ELF machine {machine})")
    return PROCESSORS[machine]


def check_key(key):
    try:
        valid = len(base64.b64decode(key, validate=True)) == 32
    except (binascii.Error, ValueError):
        valid = False
    if not valid:
        raise Refused("the feed's key is not 32 bytes in base64: ./dev sign --public-key FILE prints it")


def check_address(address, what):
    parts = urllib.parse.urlsplit(address)
    if parts.scheme != "https" or not parts.hostname:
        raise Refused(f"{what} is not at an https:// address: {address}")


def read_archive(path):
    """The information dictionary of an archive, and the processor it is for."""
    information = executable = None
    try:
        with tarfile.open(path, "r:xz") as archive:
            for entry in archive:
                parts = entry.name.split("/", 3)
                if len(parts) < 4 or parts[:2] != [TOP, "versions"]:
                    continue
                if parts[3] == INFORMATION:
                    information = json.load(archive.extractfile(entry))
                    folder = parts[2]
                elif parts[3] == "bin/quorvane":
                    executable = archive.extractfile(entry).read(64)
    except (tarfile.TarError, EOFError, ValueError, OSError) as error:
        raise Refused(f"{path} cannot be read: {error}") from error
    if information is None or executable is None or information.get("CFBundleVersion") != folder:
        raise Refused(f"{path} is no archive that ./dev package --archive has made")
    return information, processor(executable)
