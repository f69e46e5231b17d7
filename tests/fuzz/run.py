#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Runs the fuzzers in build/fuzz side by side for some seconds: ./dev fuzz [SECONDS [NAME...]]

Inputs that were found to matter are kept in build/fuzz/corpus; an input that breaks something is left there too and
named: `build/fuzz/fuzz/NAME_fuzz FILE` runs it again, and tests/fuzz/seeds/NAME keeps it once it is mended.
"""
import glob
import io
import os
import pathlib
import subprocess
import sys
import tarfile

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
BUILD = ROOT / "build/fuzz"
SAMPLES = ROOT / "docs/samples"
SEEDS = ROOT / "tests/fuzz/seeds"
NAMES = ("cache", "contents", "feed", "input")
SNAPSHOT = (b'{"events":[{"id":"a","title":"t","start":1,"end":2,"calendar":"n","joinURL":null,"source":"mac",'
            b'"cancelled":false,"allDay":false}],"calendars":[{"id":"c","name":"n","account":"m"}],"skipped":1,'
            b'"checkedAt":3,"cacheModifiedAt":4}')

FEED = """<?xml version="1.0"?>
<rss version="2.0" xmlns:sparkle="http://www.andymatuschak.org/xml-namespaces/sparkle"><channel><item>%s
<description%s><![CDATA[<h2>New</h2><ul><li>a &amp; <a href="https://a.example/">b</a></li></ul>]]></description>
<enclosure url="https://a.example/2.tar.xz" length="9" sparkle:edSignature="%s" %s/></item></channel></rss>"""
SIGNATURE = "A" * 86 + "=="


def archives():
    """Small archives of every form, bare and packed, each behind the byte that tells them apart."""
    for form in (tarfile.GNU_FORMAT, tarfile.PAX_FORMAT, tarfile.USTAR_FORMAT):
        file = io.BytesIO()
        with tarfile.open(fileobj=file, mode="w", format=form, pax_headers={"comment": "ä"}) as archive:
            for name, kind, more in (("Quorvane", tarfile.DIRTYPE, {}), ("Quorvane/a", tarfile.REGTYPE, {"size": 700}),
                                     ("Quorvane/l", tarfile.SYMTYPE, {"linkname": "b/../a"}),
                                     ("Quorvane/" + "n/" * 60 + "n", tarfile.LNKTYPE, {"linkname": "Quorvane/a"})):
                info = tarfile.TarInfo(name)
                info.type, info.mtime = kind, 1.5
                for field, value in more.items():
                    setattr(info, field, value)
                archive.addfile(info, io.BytesIO(b"x" * info.size))
        yield b"\1" + file.getvalue()
        for way in ("gzip", "xz", "zstd"):
            yield b"\0" + subprocess.run([way, "-c"], input=file.getvalue(), stdout=subprocess.PIPE, check=True).stdout


def seed(name, corpus):
    """First inputs: what the program meets when all is well, and what has broken it before."""
    for kept in SEEDS.glob(f"{name}/*"):
        (corpus / kept.name).write_bytes(kept.read_bytes())
    samples = sorted(SAMPLES.glob("**/*.ics"))
    if name == "archive":
        for number, content in enumerate(archives()):
            (corpus / f"archive{number}").write_bytes(content)
    elif name == "cache":
        for sample in [*samples, SAMPLES]:
            subprocess.run([sys.executable, ROOT / "tools/make-calendar-cache", corpus / f"{sample.stem}.fcdata", sample],
                           check=True, stdout=subprocess.DEVNULL)
    elif name == "contents":
        for sample in samples:
            (corpus / sample.name).write_bytes(sample.read_bytes())
    elif name == "feed":
        versions = "<sparkle:version>2</sparkle:version><sparkle:shortVersionString>1.2</sparkle:shortVersionString>"
        (corpus / "elements").write_text(FEED % (versions, "", SIGNATURE, ""))
        (corpus / "attributes").write_text(
            FEED % ("", ' sparkle:format="plain-text"', SIGNATURE, 'sparkle:version="2" sparkle:os="linux"'))
    else:
        (corpus / "list").write_bytes('["calendar","“other”",""]'.encode())
        (corpus / "snapshot").write_bytes(SNAPSHOT)


def main():
    seconds = int(sys.argv[1]) if len(sys.argv) > 1 else 60
    running = {}
    for name in sys.argv[2:] or NAMES:
        corpus = BUILD / "corpus" / name
        corpus.mkdir(parents=True, exist_ok=True)
        seed(name, corpus)
        log = open(BUILD / f"{name}.log", "wb")
        # One input may allocate 512 MB and take ten seconds, as one run of the reader.
        running[name] = subprocess.Popen(
            [BUILD / f"fuzz/{name}_fuzz", f"-max_total_time={seconds}", "-timeout=10", "-rss_limit_mb=2048",
             "-max_len=262144", "-print_final_stats=1", f"-artifact_prefix={BUILD}/{name}-", corpus],
            stdin=subprocess.DEVNULL, stdout=log, stderr=log)
    failed = 0
    for name, process in running.items():
        failed += process.wait() != 0
        lines = (BUILD / f"{name}.log").read_text(errors="replace").splitlines()
        executed = [line.split()[-1] for line in lines if "number_of_executed_units" in line]
        found = [path for kind in ("crash", "timeout", "oom", "leak") for path in glob.glob(f"{BUILD}/{name}-{kind}-*")]
        print(f"{name}: status {process.returncode}, {executed[0] if executed else '?'} inputs", *found)
    return 1 if failed else 0


if __name__ == "__main__":
    sys.exit(main())
