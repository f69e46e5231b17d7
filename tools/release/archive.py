#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Makes the relocatable archive of a build, which is what is unpacked to install Quorvane below any folder and what it
updates itself with. The same build, options and commit give the same bytes. Prints the archive's path.

  Quorvane/versions/N/…       the installed tree; N is the build number
  Quorvane/current            -> versions/N
  Quorvane/quorvane           -> current/bin/quorvane, which people start
"""
import argparse
import contextlib
import io
import json
import lzma
import os
import pathlib
import re
import shutil
import subprocess
import sys
import tarfile
import tempfile

from contents import INFORMATION, TOP, VERSION, Refused, check_address, check_key, processor

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
# Both name the folder that they were installed to, and sessions look for them in the system's folders only.
FOR_PACKAGES = ("lib/systemd", "etc")


def command_line():
    parser = argparse.ArgumentParser(prog="./dev package --archive", description=__doc__.split("\n\n")[0],
                                     epilog="SOURCE_DATE_EPOCH replaces the commit's time.")
    parser.add_argument("--build-folder", type=pathlib.Path, default=ROOT / "build/release", metavar="FOLDER",
                        help="what is packed, built already (default: build/release)")
    for option, variable, meaning in (
            ("--build-number", "QUORVANE_BUILD_NUMBER", "the number by which versions are compared"),
            ("--short-version", "QUORVANE_SHORT_VERSION", "the version as people read it"),
            ("--feed-url", "QUORVANE_FEED_URL", "where newer versions are announced"),
            ("--feed-key", "QUORVANE_FEED_KEY", "public key (base64) that those are signed for")):
        parser.add_argument(option, default=os.environ.get(variable), metavar="TEXT",
                            help=f"{meaning} (default: {variable}, then as the build says)")
    parser.add_argument("--level", type=int, choices=range(10), default=6, help="of the compression (default: 6)")
    parser.add_argument("--output", type=pathlib.Path, metavar="PATH", help="file or folder (default: the build folder)")
    return parser.parse_args()


def run(*command):
    done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True)
    if done.returncode != 0:
        raise Refused(f"{command[0]} failed:\n{done.stdout.rstrip()}")
    return done.stdout.strip()


def time_of_all():
    given = os.environ.get("SOURCE_DATE_EPOCH")
    if given is None:
        given = run("git", "-C", ROOT, "log", "-1", "--format=%ct")
    if not given.isdigit():
        raise Refused(f"SOURCE_DATE_EPOCH is no time: {given}")
    return int(given)


def install(build, tree):
    if not (build / "cmake_install.cmake").is_file():
        raise Refused(f"{build} is no build folder: ./dev build makes build/release")
    run("cmake", "--install", build, "--strip", "--prefix", tree)
    for name in FOR_PACKAGES:
        shutil.rmtree(tree / name, ignore_errors=True)
        with contextlib.suppress(OSError):
            (tree / name).parent.rmdir()  # where nothing else is in it


def wanted_information(tree, options):
    """What the archive is to say of itself: what was asked for, else what the build says."""
    built = json.loads((tree / INFORMATION).read_text(encoding="utf-8"))
    wanted = {key: given if given is not None else built.get(key, "") for key, given in (
        ("CFBundleVersion", options.build_number), ("CFBundleShortVersionString", options.short_version),
        ("SUFeedURL", options.feed_url), ("SUPublicEDKey", options.feed_key))}
    if wanted["CFBundleVersion"] == "0":
        raise Refused("the build does not know its number, by which versions are compared: give --build-number")
    if not VERSION.fullmatch(wanted["CFBundleVersion"]):
        raise Refused("the build number has to be 1 to 40 letters, digits, dots and hyphens, and no dot in front")
    if not re.fullmatch(r"[A-Za-z0-9][A-Za-z0-9.+~-]{0,39}", wanted["CFBundleShortVersionString"]):
        raise Refused("the short version has to be letters, digits and . + ~ -")
    if bool(wanted["SUFeedURL"]) != bool(wanted["SUPublicEDKey"]):
        raise Refused("the feed's address and key go together: give --feed-url and --feed-key")
    if wanted["SUFeedURL"]:
        check_address(wanted["SUFeedURL"], "the feed")
        check_key(wanted["SUPublicEDKey"])
    else:
        print("Without --feed-url and --feed-key this archive will never update itself.", file=sys.stderr)
    return wanted


def write_information(tree, wanted):
    run("cmake", f"-DOUTPUT={tree / INFORMATION}", f"-DSOURCE_FOLDER={ROOT}",
        f"-DVERSION={wanted['CFBundleShortVersionString']}", f"-DBUILD_NUMBER={wanted['CFBundleVersion']}",
        f"-DFEED_URL={wanted['SUFeedURL']}", f"-DFEED_KEY={wanted['SUPublicEDKey']}",
        "-P", ROOT / "packaging/WriteInformation.cmake")


def entry_for(path, name, time):
    entry = tarfile.TarInfo(name)
    entry.mtime = time
    entry.mode = 0o755
    if path.is_symlink():
        entry.type = tarfile.SYMTYPE
        entry.linkname = os.readlink(path)
        entry.mode = 0o777
    elif path.is_dir():
        entry.type = tarfile.DIRTYPE
    else:
        entry.size = path.stat().st_size
        if not path.stat().st_mode & 0o100:
            entry.mode = 0o644
    return entry


def pack(folder, time, level):
    """The bytes of the archive of `folder`/Quorvane."""
    packed = io.BytesIO()
    with lzma.open(packed, "wb", preset=level) as stream, \
            tarfile.open(fileobj=stream, mode="w", format=tarfile.USTAR_FORMAT) as archive:
        for path in sorted([folder / TOP, *(folder / TOP).rglob("*")]):
            entry = entry_for(path, str(path.relative_to(folder)), time)
            with open(path, "rb") if entry.isreg() else contextlib.nullcontext() as file:
                archive.addfile(entry, file)
    return packed.getvalue()


def make(options, folder):
    tree = folder / TOP / "versions/new"
    install(options.build_folder, tree)
    wanted = wanted_information(tree, options)
    write_information(tree, wanted)
    version = wanted["CFBundleVersion"]
    with open(tree / "bin/quorvane", "rb") as executable:
        name = (f"quorvane-{wanted['CFBundleShortVersionString']}-{version}"
                f"-linux-{processor(executable.read(64))}.tar.xz")
    tree.rename(tree.parent / version)
    (folder / TOP / "current").symlink_to(f"versions/{version}")
    (folder / TOP / "quorvane").symlink_to("current/bin/quorvane")

    output = options.output or options.build_folder
    if output.is_dir():
        output /= name
    beside = output.with_name(output.name + ".new")
    beside.write_bytes(pack(folder, time_of_all(), options.level))
    beside.replace(output)
    return output


def main():
    options = command_line()
    try:
        with tempfile.TemporaryDirectory(prefix="quorvane-archive-") as folder:
            print(make(options, pathlib.Path(folder)))
    except (Refused, OSError) as error:
        sys.exit(f"No archive was made: {error}")


if __name__ == "__main__":
    main()
