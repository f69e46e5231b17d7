#!/usr/bin/python3
# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
"""An HTTPS server that answers as a test says and keeps every byte it gets.

https_peer.py FOLDER NAME serves on a free port of 127.0.0.1 with NAME.crt and NAME.key of FOLDER and prints one JSON
line {"port": N}. For each JSON line on its standard input it prints one more:
  {"path": P, ...}  how requests for the path P are answered from now on, "*" for all others; prints {}
  {}                prints {"connections": N, "received": all bytes, "requests": [method, path, headers, body]}
The keys of a behaviour are those of `Behaviour`. Test scripts import HttpsPeer instead.
"""
import json
import socket
import ssl
import sys
import threading
import time
from dataclasses import asdict, dataclass, field


@dataclass
class Behaviour:
    status: int = 200
    headers: dict = field(default_factory=dict)
    body: str = ""
    # A body of so many letters instead.
    size: int = 0
    # Whether the answer says how long it is.
    length: bool = True
    # "silent" (no handshake) and "refuse" (no connection), for "*" only; "hang", "drop", "drop midway", "garbage",
    # "drip" (ten bytes a second).
    fault: str = ""
    # For "*" only: asks for a client's certificate, without insisting.
    client_certificate: bool = False


@dataclass
class Request:
    method: str
    path: str
    headers: dict
    body: str


class HttpsPeer:
    def __init__(self, folder, name):
        self.behaviours = {"*": Behaviour()}
        self.connections = 0
        self.received = b""
        self.requests = []
        self.context = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
        self.context.load_cert_chain(f"{folder}/{name}.crt", f"{folder}/{name}.key")
        self.context.load_verify_locations(f"{folder}/{name}.crt")
        self.listener = socket.create_server(("127.0.0.1", 0))
        self.port = self.listener.getsockname()[1]
        self.silenced = []
        threading.Thread(target=self.accept, daemon=True).start()

    def tell(self, path="*", **behaviour):
        self.behaviours[path] = Behaviour(**behaviour)
        if behaviour.get("fault") == "refuse":
            self.listener.shutdown(socket.SHUT_RDWR)
            self.listener.close()

    def accept(self):
        while True:
            try:
                plain, _ = self.listener.accept()
            except OSError:
                return
            self.connections += 1
            threading.Thread(target=self.serve, args=(plain,), daemon=True).start()

    def serve(self, plain):
        if self.behaviours["*"].fault == "silent":
            self.silenced.append(plain)
            return
        asks = self.behaviours["*"].client_certificate
        self.context.verify_mode = ssl.CERT_OPTIONAL if asks else ssl.CERT_NONE
        try:
            with self.context.wrap_socket(plain, server_side=True) as tls:
                while self.answer(tls, self.request(tls)):
                    pass
        except OSError:
            pass  # the client has gone, or never wanted to talk to this certificate

    def request(self, tls):
        data = self.read(tls, b"", lambda data: b"\r\n\r\n" in data)
        head, _, body = data.partition(b"\r\n\r\n")
        first, *lines = head.decode("latin-1").split("\r\n")
        headers = dict(line.split(": ", 1) for line in lines)
        length = int(headers.get("Content-Length", 0))
        body = self.read(tls, body, lambda data: len(data) >= length)
        method, path, _ = first.split(" ")
        self.requests.append(Request(method, path, headers, body.decode("latin-1")))
        return path.partition("?")[0]

    def read(self, tls, data, is_complete):
        while not is_complete(data):
            more = tls.recv(65536)
            if not more:
                raise OSError("closed")
            self.received += more
            data += more
        return data

    def answer(self, tls, path):
        """Whether the connection stays open."""
        how = self.behaviours.get(path, self.behaviours["*"])
        body = b"x" * how.size or how.body.encode()
        if how.fault == "hang":
            tls.recv(1)
        if how.fault in ("hang", "drop"):
            return False
        if how.fault == "garbage":
            tls.sendall(b"\0\1\2 no HTTP at all\r\n\r\n")
            return False
        headers = how.headers | ({"Content-Length": len(body)} if how.length else {})
        lines = [f"HTTP/1.1 {how.status} Told", *(f"{name}: {value}" for name, value in headers.items())]
        tls.sendall("".join(f"{line}\r\n" for line in [*lines, ""]).encode())
        if how.fault == "drop midway":
            tls.sendall(body[: len(body) // 2])
            return False
        for begin in range(0, len(body), 1 if how.fault == "drip" else len(body) or 1):
            tls.sendall(body[begin : begin + 1] if how.fault == "drip" else body)
            time.sleep(0.1 if how.fault == "drip" else 0)
        return how.length


def main():
    peer = HttpsPeer(sys.argv[1], sys.argv[2])
    print(json.dumps({"port": peer.port}), flush=True)
    for line in sys.stdin:
        if line.strip() == "{}":
            log = {"connections": peer.connections, "received": peer.received.decode("latin-1")}
            print(json.dumps(log | {"requests": [asdict(request) for request in peer.requests]}), flush=True)
        else:
            peer.tell(**json.loads(line))
            print("{}", flush=True)


if __name__ == "__main__":
    main()
