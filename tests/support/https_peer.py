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
    file: str = ""  # whose bytes are the body instead
    length: bool | int = True  # whether the answer says how long it is, or how long it says that it is
    # "hang", "drop", "drop midway", "stall" midway, "garbage", "drip" (ten bytes a second), "endless" (the body again and
    # again); for "*" only: "silent" (no handshake), "refuse" (no connection, for good).
    fault: str = ""
    rate: int = 0  # bytes a second at most, of a body that is sent whole
    midway: int = -1  # where in an answer's body that is, in bytes; the middle by default
    ranges: str = "kept"  # what becomes of a wish for the rest: "kept", "ignored", "refused", "wrong" (another rest)
    asks_certificate: bool = False  # the client's, for "*" only; goes on without

    def content(self):
        if not self.file:
            return b"x" * self.size or self.body.encode()
        with open(self.file, "rb") as file:
            return file.read()


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
        # path, content type, authorization, range, body. "sent" counts the bytes of endless bodies.
        self.log = {"port": self.listener.getsockname()[1], "connections": 0, "received": "", "requests": [],
                    "sent": 0}
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
                while self.answer(tls, *self.request(tls)):
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
        words = method, path, headers.get("Content-Type"), headers.get("Authorization"), headers.get("Range"), body
        self.log["requests"].append(" ".join(filter(None, words)))
        return path.partition("?")[0], int(headers.get("Range", "bytes=0-")[6:-1])

    def read(self, tls, is_complete):
        data = ""
        while not is_complete(data):
            more = tls.recv(65536).decode("latin-1")
            if not more:
                raise OSError("closed")
            self.log["received"] += more
            data += more
        return data

    def answer(self, tls, path, begin):
        """Whether the connection stays open."""
        how = self.behaviours.get(path, self.behaviours["*"])
        if how.fault == "hang":
            tls.recv(1)
        if how.fault == "garbage":
            tls.sendall(b"\0\1\2 no HTTP at all\r\n\r\n")
        if how.fault in ("hang", "drop", "garbage"):
            return False
        status, headers, body = self.part(how, memoryview(how.content()), begin)
        if how.length is not False:
            headers = headers | {"Content-Length": len(body) if how.length is True else how.length}
        lines = [f"HTTP/1.1 {status} Told", *(f"{name}: {value}" for name, value in headers.items()), "\r\n"]
        tls.sendall("\r\n".join(lines).encode())
        return self.send(tls, how, body) and how.length is True

    def part(self, how, body, begin):
        """Status, headers and body of the answer to a wish for all bytes from `begin` on."""
        if not begin or how.status != 200 or how.ranges == "ignored":
            return how.status, how.headers, body
        if how.ranges == "refused" or begin >= len(body):
            return 416, how.headers | {"Content-Range": f"bytes */{len(body)}"}, body[:0]
        begin -= how.ranges == "wrong"
        return 206, how.headers | {"Content-Range": f"bytes {begin}-{len(body) - 1}/{len(body)}"}, body[begin:]

    def send(self, tls, how, body):
        """Whether all of the body was sent."""
        if how.fault == "drip":
            for byte in body:
                tls.sendall(bytes([byte]))
                time.sleep(0.1)
            return False
        while how.fault == "endless":
            tls.sendall(body)
            self.log["sent"] += len(body)
        if how.fault not in ("drop midway", "stall"):
            self.send_whole(tls, body, how.rate)
            return True
        midway = how.midway if how.midway >= 0 else len(body) // 2
        tls.sendall(body[:midway])
        if how.fault == "stall":
            tls.recv(1)
        return midway >= len(body)

    @staticmethod
    def send_whole(tls, body, rate):
        piece = rate // 20 or max(len(body), 1)
        begin = time.monotonic()
        for start in range(0, len(body), piece):
            tls.sendall(body[start:start + piece])
            if rate:
                time.sleep(max(begin + (start + piece) / rate - time.monotonic(), 0))


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
