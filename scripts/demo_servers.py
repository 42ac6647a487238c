# SPDX-License-Identifier: MIT
"""Servers on loopback for demo_services.py: http and https at one port, and a proxy that may want credentials."""

import http.client
import select
import socket
import socketserver
import ssl
import sys
import urllib.parse
from http.server import BaseHTTPRequestHandler

BLOCK = 64 << 10
MOST_FORM = 1 << 20
TLS_HANDSHAKE = 0x16


class Handler(BaseHTTPRequestHandler):
    protocol_version = "HTTP/1.1"
    timeout = 60

    def log_message(self, format, *values):
        if not self.server.is_quiet:
            print(f"{self.server.name}: {format % values}", file=sys.stderr, flush=True)

    def body(self):
        """What was sent; nothing where it is too much."""
        length = self.headers.get("Content-Length", "0")
        if not length.isdigit() or int(length) > MOST_FORM:
            self.close_connection = True
            return b""
        return self.rfile.read(int(length))

    def answer(self, code, kind, body, headers=()):
        data = body.encode() if isinstance(body, str) else body
        self.begin(code, kind, len(data), headers)
        self.wfile.write(data)

    def begin(self, code, kind, size, headers=()):
        self.send_response(code)
        self.send_header("Content-Type", kind)
        self.send_header("Content-Length", str(size))
        for name, value in headers:
            self.send_header(name, value)
        self.end_headers()


class ProxyHandler(Handler):
    """Leads to loopback alone."""

    def is_allowed(self):
        wanted = self.server.credentials
        if wanted is None or self.headers.get("Proxy-Authorization", "") == "Basic " + wanted:
            return True
        # What comes with the question is read, so that the connection can go on.
        self.body()
        self.answer(407, "text/plain", "Who are you?\n", [("Proxy-Authenticate", 'Basic realm="demo"')])
        return False

    def target(self, address):
        host, _, port = address.rpartition(":")
        if host not in ("127.0.0.1", "localhost") or not port.isdigit() or int(port) > 65535:
            self.answer(403, "text/plain", "This proxy leads to this machine alone.\n")
            return None
        return "127.0.0.1", int(port)

    def do_CONNECT(self):
        target = self.target(self.path) if self.is_allowed() else None
        if target is None:
            return
        self.close_connection = True
        try:
            with socket.create_connection(target, timeout=10) as other:
                self.send_response(200, "Connection established")
                self.end_headers()
                relay(self.connection, other)
        except OSError:
            self.answer(502, "text/plain", "Nobody is there.\n")

    def forward(self):
        address = urllib.parse.urlsplit(self.path)
        host = address.netloc if ":" in address.netloc else address.netloc + ":80"
        target = self.target(host) if self.is_allowed() else None
        if target is None:
            return
        data = self.body()
        headers = {name: value for name, value in self.headers.items()
                   if name.lower() not in ("proxy-authorization", "proxy-connection", "connection")}
        self.close_connection = True
        try:
            other = http.client.HTTPConnection(*target, timeout=60)
            other.request(self.command, address.path or "/", data, headers)
            response = other.getresponse()
        except OSError:
            self.answer(502, "text/plain", "Nobody is there.\n")
            return
        self.send_response(response.status)
        for name, value in response.getheaders():
            if name.lower() in ("content-type", "content-length"):
                self.send_header(name, value)
        self.send_header("Connection", "close")
        self.end_headers()
        while block := response.read(BLOCK):
            self.wfile.write(block)

    do_GET = forward
    do_POST = forward


def relay(one, other):
    pairs = {one: other, other: one}
    while True:
        ready, _, _ = select.select(list(pairs), [], [], 60)
        if not ready:
            return
        for side in ready:
            data = side.recv(BLOCK)
            if not data:
                return
            pairs[side].sendall(data)


class Server(socketserver.ThreadingTCPServer):
    allow_reuse_address = True
    daemon_threads = True

    def __init__(self, name, port, handler, arguments):
        super().__init__(("127.0.0.1", port), handler)
        self.name = name
        self.is_quiet = arguments.quiet
        self.services = None
        self.credentials = None
        self.tls = None

    @property
    def port(self):
        return self.server_address[1]

    def finish_request(self, request, client_address):
        """Who begins with a handshake wants TLS; the thread of the connection looks."""
        try:
            request.settimeout(Handler.timeout)
            if self.tls is not None and request.recv(1, socket.MSG_PEEK) == bytes([TLS_HANDSHAKE]):
                with self.tls.wrap_socket(request, server_side=True) as secure:
                    super().finish_request(secure, client_address)
            else:
                super().finish_request(request, client_address)
        except OSError as error:  # among them those of TLS and of clients that went
            if not self.is_quiet:
                print(f"{self.name}: {error}", file=sys.stderr, flush=True)
