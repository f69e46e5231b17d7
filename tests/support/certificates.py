#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""certificates.py FOLDER: makes certificates for HTTPS servers there: NAME.crt, NAME.cer (DER) and NAME.key."""
import datetime
import ipaddress
import os
import sys

from cryptography import x509
from cryptography.hazmat.primitives import hashes, serialization
from cryptography.hazmat.primitives.asymmetric import ec
from cryptography.hazmat.primitives.serialization import Encoding

THIS_MACHINE = (x509.DNSName("localhost"), x509.IPAddress(ipaddress.ip_address("127.0.0.1")))
KEY_FORM = (Encoding.PEM, serialization.PrivateFormat.PKCS8, serialization.NoEncryption())
# Name, who signs it, begin and end in days from now, for whom.
WANTED = (
    ("ca", "ca", -1, 1, ()),
    ("trusted", "ca", -1, 1, THIS_MACHINE),
    ("pinned", "pinned", -1, 1, THIS_MACHINE),
    ("leaf", "pinned", -1, 1, THIS_MACHINE),
    ("homemade", "homemade", -1, 1, THIS_MACHINE),
    ("expired", "expired", -2, -1, THIS_MACHINE),
    ("early", "early", 1, 2, THIS_MACHINE),
    ("misnamed", "misnamed", -1, 1, (x509.DNSName("example.org"),)),
)


def subject(name):
    return x509.Name([x509.NameAttribute(x509.NameOID.COMMON_NAME, name)])


def main():
    now = datetime.datetime.utcnow()
    keys = {name: ec.generate_private_key(ec.SECP256R1()) for name, *_ in WANTED}
    for name, issuer, begin, end, machines in WANTED:
        public = keys[name].public_key()
        builder = x509.CertificateBuilder(subject(issuer), subject(name), public, x509.random_serial_number())
        builder = builder.not_valid_before(now + datetime.timedelta(days=begin))
        builder = builder.not_valid_after(now + datetime.timedelta(days=end))
        builder = builder.add_extension(x509.BasicConstraints(name in ("ca", "pinned"), None), critical=True)
        if machines:
            builder = builder.add_extension(x509.SubjectAlternativeName(machines), critical=False)
        certificate = builder.sign(keys[issuer], hashes.SHA256())
        files = {"crt": certificate.public_bytes(Encoding.PEM), "cer": certificate.public_bytes(Encoding.DER)}
        for ending, data in {"key": keys[name].private_bytes(*KEY_FORM), **files}.items():
            with open(os.path.join(sys.argv[1], f"{name}.{ending}"), "wb") as file:
                file.write(data)


if __name__ == "__main__":
    main()
