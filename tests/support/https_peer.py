#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""An HTTPS server that answers as a test says and keeps every byte it gets.

https_peer.py FOLDER NAME serves on a free port of 127.0.0.1 with NAME.crt and NAME.key of FOLDER and prints its log,
HttpsPeer.log, as a JSON line: at once, and again for each JSON object that it reads, whose keys are HttpsPeer.tell's
arguments ({} tells nothing). Test scripts import HttpsPeer instead.
"""
import json
import os
import shutil
import socket
import ssl
import subprocess
import sys
import tempfile
import threading
import time
from dataclasses import dataclass, field


@dataclass
class Behaviour:
    status: int = 200
    headers: dict = field(default_factory=dict)
    body: str = ""
    size: int = 0  # of a body of letters instead
    length: bool = True  # whether the answer says how long it is
    # "hang", "drop", "drop midway", "garbage", "drip" (ten bytes a second); for "*" only: "silent" (no handshake),
    # "refuse" (no connection, for good).
    fault: str = ""
    asks_certificate: bool = False  # the client's, for "*" only; goes on without


def make_certificates(case):
    """For `setUpClass`: a folder with the certificates of the servers, which goes with the class."""
    case.folder = tempfile.mkdtemp()
    case.addClassCleanup(shutil.rmtree, case.folder)
    subprocess.run([sys.executable, os.path.join(os.path.dirname(os.path.abspath(__file__)), "certificates.py"), case.folder],
                   check=True)


class HttpsPeer:
    def __init__(self, folder, name):
        self.behaviours = {"*": Behaviour()}
        self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self.context.load_cert_chain(f"{folder}/{name}.crt", f"{folder}/{name}.key")
        self.context.load_verify_locations(f"{folder}/{name}.crt")
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.silenced = []
        # "received" is every byte that came encrypted, as Latin-1; "requests" are the same in one line each: method,
        # path, content type, authorization, body.
        self.log = {"port": self.listener.getsockname()[1], "connections": 0, "received": "", "requests": []}
        threading.Thread(target=self.accept, daemon=True).start()

    def tell(self, path="*", **behaviour):
        """How requests for `path` are answered from now on; "*" stands for all others."""
        self.behaviours[path] = Behaviour(**behaviour)
        if behaviour.get("fault") == "refuse":
            self.listener.shutdown(socket.SHUT_RDWR)
            self.listener.close()

    def accept(self):
        while self.listener.fileno() >= 0:
            try:
                plain, _ = self.listener.accept()
            except OSError:
                return
            self.log["connections"] += 1
            threading.Thread(target=self.serve, args=(plain,), daemon=True).start()

    def serve(self, plain):
        general = self.behaviours["*"]
        if general.fault == "silent":
            self.silenced.append(plain)
            return
        self.context.verify_mode = ssl.CERT_OPTIONAL if general.asks_certificate else ssl.CERT_NONE
        try:
            with self.context.wrap_socket(plain, server_side=True) as tls:
                while self.answer(tls, self.request(tls)):
                    pass
        except OSError:
            pass  # the client has gone, or never wanted to talk to this certificate

    def request(self, tls):
        head, body = self.read(tls, lambda data: "\r\n\r\n" in data).split("\r\n\r\n", 1)
        first, *lines = head.split("\r\n")
        headers = dict(line.split(": ", 1) for line in lines)
        missing = int(headers.get("Content-Length", 0)) - len(body)
        body += self.read(tls, lambda data: len(data) >= missing)
        method, path, _ = first.split(" ")
        words = method, path, headers.get("Content-Type"), headers.get("Authorization"), body
        self.log["requests"].append(" ".join(filter(None, words)))
        return path.partition("?")[0]

    def read(self, tls, is_complete):
        data = ""
        while not is_complete(data):
            more = tls.recv(65536).decode("latin-1")
            if not more:
                raise OSError("closed")
            self.log["received"] += more
            data += more
        return data

    def answer(self, tls, path):
        """Whether the connection stays open."""
        how = self.behaviours.get(path, self.behaviours["*"])
        body = b"x" * how.size or how.body.encode()
        if how.fault == "hang":
            tls.recv(1)
        if how.fault == "garbage":
            tls.sendall(b"\0\1\2 no HTTP at all\r\n\r\n")
        if how.fault in ("hang", "drop", "garbage"):
            return False
        headers = how.headers | ({"Content-Length": len(body)} if how.length else {})
        lines = [f"HTTP/1.1 {how.status} Told", *(f"{name}: {value}" for name, value in headers.items()), "\r\n"]
        tls.sendall("\r\n".join(lines).encode())
        if how.fault == "drip":
            for byte in body:
                tls.sendall(bytes([byte]))
                time.sleep(0.1)
            return False
        is_cut = how.fault == "drop midway"
        tls.sendall(body[: len(body) // 2] if is_cut else body)
        return how.length and not is_cut


def main():
    peer = HttpsPeer(sys.argv[1], sys.argv[2])
    print(json.dumps(peer.log), flush=True)
    for line in sys.stdin:
        told = json.loads(line)
        if told:
            peer.tell(**told)
        print(json.dumps(peer.log), flush=True)


if __name__ == "__main__":
    main()
