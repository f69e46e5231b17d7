#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""certificates.py FOLDER: makes the certificates of the tests' HTTPS servers there: NAME.crt, NAME.cer (DER), NAME.key.

ca signs trusted; pinned and the ones after it sign themselves; leaf is signed by pinned.
"""
import datetime
import ipaddress
import os
import sys

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import ec

LOOPBACK = x509.IPAddress(ipaddress.ip_address("127.0.0.1"))
LOCALHOST = x509.DNSName("localhost")
DAY = datetime.timedelta(days=1)


class Certificates:
    def __init__(self, folder):
        self.folder = folder
        self.issuers = {}

    def make(self, name, names=(LOOPBACK,), issuer=None, is_ca=False, begin=-DAY, end=DAY):
        key = ec.generate_private_key(ec.SECP256R1())
        subject = x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, name)])
        issuer_key, issuer_name = self.issuers[issuer] if issuer else (key, subject)
        now = datetime.datetime.utcnow()
        built = (
            x509.CertificateBuilder(issuer_name, subject, key.public_key(), x509.random_serial_number())
            .not_valid_before(now + begin)
            .not_valid_after(now + end)
            .add_extension(x509.BasicConstraints(is_ca, None), critical=True)
        )
        if names:
            built = built.add_extension(x509.SubjectAlternativeName(names), critical=False)
        self.issuers[name] = key, subject
        self.write(name, key, built.sign(issuer_key, hashes.SHA256()))

    def write(self, name, key, certificate):
        encoding = serialization.Encoding
        secret = key.private_bytes(
            encoding.PEM, serialization.PrivateFormat.PKCS8, serialization.NoEncryption()
        )
        for ending, data in (
            ("key", secret),
            ("crt", certificate.public_bytes(encoding.PEM)),
            ("cer", certificate.public_bytes(encoding.DER)),
        ):
            with open(os.path.join(self.folder, f"{name}.{ending}"), "wb") as file:
                file.write(data)


def main():
    certificates = Certificates(sys.argv[1])
    certificates.make("ca", names=(), is_ca=True)
    certificates.make("trusted", names=(LOCALHOST, LOOPBACK), issuer="ca")
    certificates.make("pinned", is_ca=True)
    certificates.make("expired", begin=-2 * DAY, end=-DAY)
    certificates.make("early", begin=DAY, end=2 * DAY)
    certificates.make("misnamed", names=(x509.DNSName("example.org"),))
    certificates.make("homemade", names=(LOCALHOST, LOOPBACK))
    certificates.make("leaf", issuer="pinned")


if __name__ == "__main__":
    main()
