#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""Signs what ./dev package --archive has made, and prints the <item> that announces it in the feed.

  ./dev sign --make-key FILE                           makes a private key (Ed25519, PEM) and prints its public key
  ./dev sign --public-key FILE                         prints the public key of a private one, for QUORVANE_FEED_KEY
  ./dev sign KEY ARCHIVE [--url URL] [--notes FILE]    prints the item
"""
import argparse
import base64
import email.utils
import os
import pathlib
import sys
import urllib.parse
from xml.sax.saxutils import escape, quoteattr

from cryptography.hazmat.primitives import serialization
from cryptography.hazmat.primitives.asymmetric.ed25519 import Ed25519PrivateKey

from contents import LARGEST, Refused, check_address, read_archive

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def command_line():
    parser = argparse.ArgumentParser(prog="./dev sign", description=__doc__,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--make-key", type=pathlib.Path, metavar="FILE", help="make a private key; never replaces one")
    parser.add_argument("--public-key", type=pathlib.Path, metavar="FILE", help="print the public key of this one")
    parser.add_argument("key", type=pathlib.Path, nargs="?", metavar="KEY", help="the private key")
    parser.add_argument("archive", type=pathlib.Path, nargs="?", metavar="ARCHIVE", help="what it signs")
    parser.add_argument("--url", help="where the archive will be (default: beside the feed that it names)")
    parser.add_argument("--notes", type=pathlib.Path, metavar="FILE", help="what is new: plain text, or HTML in *.html")
    options = parser.parse_args()
    if sum((options.make_key is not None, options.public_key is not None, options.archive is not None)) != 1:
        parser.error("name a key to make, a key to show, or a key and an archive")
    return options


def public_text(key):
    raw = key.public_key().public_bytes(serialization.Encoding.Raw, serialization.PublicFormat.Raw)
    return base64.b64encode(raw).decode()


def make_key(path):
    if ROOT in path.resolve().parents:
        raise Refused("a private key has no place among the sources: name a file elsewhere")
    key = Ed25519PrivateKey.generate()
    text = key.private_bytes(serialization.Encoding.PEM, serialization.PrivateFormat.PKCS8,
                             serialization.NoEncryption())
    with open(os.open(path, os.O_WRONLY | os.O_CREAT | os.O_EXCL, 0o600), "wb") as file:
        file.write(text)
        file.flush()
        os.fsync(file.fileno())
    return key


def read_key(path):
    try:
        key = serialization.load_pem_private_key(path.read_bytes(), None)
    except (ValueError, TypeError) as error:
        raise Refused(f"{path} is no private key in PEM without a password") from error
    if not isinstance(key, Ed25519PrivateKey):
        raise Refused(f"{path} is a key of another kind than Ed25519")
    return key


def description(path):
    text = path.read_text(encoding="utf-8")
    if any(ord(c) < 32 and c not in "\n\r\t" for c in text):
        raise Refused(f"{path} has control characters in it")
    kind = "" if path.suffix == ".html" else ' sparkle:format="plain-text"'
    return f"  <description{kind}>{escape(text.strip())}</description>\n"


def item(key, options):
    data = options.archive.read_bytes()
    if not 1 <= len(data) <= LARGEST:
        raise Refused(f"{options.archive} is empty or larger than updates may be")
    information, processor = read_archive(options.archive)
    version = information["CFBundleVersion"]
    short = information["CFBundleShortVersionString"]
    feed = information.get("SUFeedURL")
    if not options.url and not feed:
        raise Refused("the archive names no feed beside which it could be: give --url")
    address = options.url or urllib.parse.urljoin(feed, urllib.parse.quote(options.archive.name))
    check_address(address, "the archive")
    if information.get("SUPublicEDKey") != public_text(key):
        print("Mind that what follows this archive has to be signed with another key than this one: "
              f"it expects {information.get('SUPublicEDKey', 'no updates at all')}.", file=sys.stderr)
    return (
        "<item>\n"
        f"  <title>{escape(f'Quorvane {short}')}</title>\n"
        f"  <pubDate>{email.utils.formatdate(usegmt=True)}</pubDate>\n"
        f"  <sparkle:version>{escape(version)}</sparkle:version>\n"
        f"  <sparkle:shortVersionString>{escape(short)}</sparkle:shortVersionString>\n"
        f"{description(options.notes) if options.notes else ''}"
        f"  <enclosure url={quoteattr(address)} length=\"{len(data)}\" type=\"application/x-xz\"\n"
        f"    sparkle:os=\"linux-{processor}\" sparkle:edSignature=\"{base64.b64encode(key.sign(data)).decode()}\"/>\n"
        "</item>")


def main():
    options = command_line()
    try:
        if options.make_key:
            print(public_text(make_key(options.make_key)))
        elif options.public_key:
            print(public_text(read_key(options.public_key)))
        else:
            print(item(read_key(options.key), options))
    except FileExistsError as error:
        sys.exit(f"Nothing was done: {error.filename} is there already and stays as it is")
    except (Refused, OSError, UnicodeDecodeError) as error:
        sys.exit(f"Nothing was signed: {error}")


if __name__ == "__main__":
    main()
