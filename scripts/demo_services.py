#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Services of the program on loopback, to see every function of the network work.

One port speaks http and https alike and serves the connection test page, an update site, data sheets and rates of
currencies; another one is a proxy that may want a user and a password. What they serve is made up. The program takes
their addresses and their authority by

    scripts/demo_services.py --settings | xargs -d '\\n' tarnvik settings

and forgets them by the same command with --forget. The update site answers the names of files as follows:

    tarnvik-update.xml         what the newest version is
    tarnvik-*-setup.run        a setup program that does nothing, of --size bytes, sent at --speed
    forbidden*                 403
    explained*                 404 with an error document
    excuse*                    200 with an error document instead of the file
    broken*                    500
    others                     404
"""

import argparse
import base64
import csv
import email
import hashlib
import os
import pathlib
import ssl
import subprocess
import sys
import threading
import time
import urllib.parse
from xml.sax.saxutils import quoteattr

from demo_servers import BLOCK, Handler, ProxyHandler, Server

ROOT = pathlib.Path(__file__).resolve().parent.parent
PORT = 18480
VERSION = "9.9.0"
SETUP = f"tarnvik-{VERSION}-setup.run"
NONE = "There is no such thing here.\n"

# Units for one US dollar, of no particular day.
RATES = """
AED 3.6725 ARS 870.5 AUD 1.523 BRL 5.412 CAD 1.3645 CHF 0.8825 CLP 942.3 CNY 7.1201 COP 4012.0 CZK 23.21 DKK 6.881
EGP 48.32 EUR 0.9225 GBP 0.7802 HKD 7.8105 HUF 361.4 IDR 16250.0 ILS 3.702 INR 83.45 JPY 151.2 KRW 1378.0 KWD 0.3068
MAD 9.951 MXN 17.85 MYR 4.652 NGN 1512.0 NOK 10.62 NZD 1.645 OMR 0.3845 PEN 3.741 PHP 57.12 PLN 3.951 QAR 3.64
RON 4.585 RUB 89.4 SAR 3.75 SEK 10.44 SGD 1.342 THB 35.91 TND 3.125 TRY 32.6 TWD 32.05 UAH 40.4 USD 1 VND 25120.0
ZAR 18.24""".split()


def error_document(text):
    return f'<?xml version="1.0"?>\n<tarnvik-error>{text}</tarnvik-error>\n'


def pdf(lines):
    """A page with lines of text, as small as a PDF can be."""
    text = "BT /F1 16 Tf 60 760 Td 24 TL " + " ".join(
        "(%s) '" % line.replace("\\", "").replace("(", "").replace(")", "") for line in lines) + " ET"
    objects = [
        "<< /Type /Catalog /Pages 2 0 R >>",
        "<< /Type /Pages /Kids [3 0 R] /Count 1 >>",
        "<< /Type /Page /Parent 2 0 R /MediaBox [0 0 595 842] /Contents 4 0 R "
        "/Resources << /Font << /F1 << /Type /Font /Subtype /Type1 /BaseFont /Helvetica >> >> >> >>",
        f"<< /Length {len(text)} >>\nstream\n{text}\nendstream",
    ]
    body = "%PDF-1.4\n"
    offsets = []
    for number, content in enumerate(objects, 1):
        offsets.append(len(body))
        body += f"{number} 0 obj\n{content}\nendobj\n"
    table = "".join(f"{offset:010} 00000 n \n" for offset in offsets)
    end = (f"xref\n0 {len(objects) + 1}\n0000000000 65535 f \n{table}"
           f"trailer\n<< /Size {len(objects) + 1} /Root 1 0 R >>\nstartxref\n{len(body)}\n%%EOF\n")
    return (body + end).encode("latin-1", "replace")


def products():
    """Keys and names of the resins that the program knows."""
    with open(ROOT / "resources/master/resins.csv", encoding="utf-8", newline="") as file:
        return {row["key"]: row["name"] for row in csv.DictReader(file)}


class SetupFile:
    """A setup program of any size that is never kept."""

    START = b"#!/bin/sh\necho This is a setup program of the demo services. It installs nothing.\nexit 0\n"

    def __init__(self, size):
        self.size = max(size, len(self.START))
        digest = hashlib.sha256()
        for block in self.blocks():
            digest.update(block)
        self.sha256 = digest.hexdigest()

    def blocks(self):
        sent = 0
        filler = b"tarnvik\n" * (BLOCK // 8)
        while sent < self.size:
            block = (self.START + filler if sent == 0 else filler)[: min(BLOCK, self.size - sent)]
            sent += len(block)
            yield block


class Services:
    """What is served, whatever the server: address -> (code, type, body)."""

    def __init__(self, arguments):
        self.products = products()
        self.setup = SetupFile(arguments.size)
        self.speed = arguments.speed

    def get(self, path):
        pages = {"/connectiontest.html": self.test_page, "/rates.xml": self.rates, "/pds/list": self.product_list,
                 "/msds/list": self.safety_list}
        return pages[path]() if path in pages else (404, "text/plain", NONE)

    def post(self, path, form):
        pages = {"/update": self.update, "/setup": self.update, "/pds/get": self.product_sheet,
                 "/msds/get": self.safety_sheet}
        return pages[path](form) if path in pages else (404, "text/plain", NONE)

    @staticmethod
    def test_page():
        return 200, "text/html", "<html><body>The connection works.</body></html>\n"

    @staticmethod
    def rates():
        rows = "".join(
            f"<UN_OPERATIONAL_RATES><f_country_name>Country of {code}</f_country_name>"
            f"<f_curr_name>{code}</f_curr_name><f_curr_code>{code}</f_curr_code><rate>{rate}</rate>"
            f"<f_date>01 Jan 2026</f_date></UN_OPERATIONAL_RATES>\n"
            for code, rate in zip(RATES[::2], RATES[1::2]))
        head = '<?xml version="1.0" encoding="UTF-8"?>\n'
        return 200, "text/xml", f"{head}<UN_OPERATIONAL_RATES_DATASET>\n{rows}</UN_OPERATIONAL_RATES_DATASET>\n"

    def product_list(self):
        rows = "".join(
            f'<sheet prodid={quoteattr(key)} status="{status}" language="{language}"/>\n'
            for key in self.products for language, status in (("English", "F"), ("German", "P"), ("French", "F")))
        return 200, "text/xml", f"<tarnvik-pds-list>\n{rows}</tarnvik-pds-list>\n"

    def safety_list(self):
        rows = "".join(
            f'<sheet product={quoteattr(key)} legalarea="{area}" company="Morvane" language="{language}" '
            f'address="sheets/{number}/{language}"/>\n'
            for number, key in enumerate(self.products) for area, language in (("EU", "E"), ("EU", "D"), ("US", "E")))
        return 200, "text/xml", f"<tarnvik-msds-list>\n{rows}</tarnvik-msds-list>\n"

    def product_sheet(self, form):
        key = form.get("prodid", "")
        if key not in self.products:
            return 404, "text/plain", NONE
        language = "Language: " + form.get("language", "")
        return 200, "application/pdf", pdf(["Product data sheet", self.products[key], language])

    def safety_sheet(self, form):
        parts = form.get("msdsurl", "").split("/")
        names = list(self.products.values())
        if len(parts) != 3 or not parts[1].isdigit() or int(parts[1]) >= len(names):
            return 404, "text/plain", NONE
        return 200, "application/pdf", pdf(["Safety data sheet", names[int(parts[1])],
                                            f"Legal area: {form.get('legalarea', '')}, language: {parts[2]}"])

    def update(self, form):
        name = form.get("file", "")
        if name == "tarnvik-update.xml":
            return 200, "text/xml", (
                f'<tarnvik-update version="{VERSION}" file="{SETUP}" size="{self.setup.size}" '
                f'sha256="{self.setup.sha256}">\n'
                '  <note lang="en">This version is a demonstration.</note>\n'
                '  <note lang="de">Diese Version ist eine Vorf\u00fchrung.</note>\n</tarnvik-update>\n')
        if name.startswith("tarnvik-") and name.endswith("-setup.run"):
            return 200, "application/octet-stream", self.setup
        for beginning, answer in (("forbidden", (403, "text/plain", "No.\n")),
                                  ("explained", (404, "text/xml", error_document("The file is not there."))),
                                  ("excuse", (200, "text/xml", error_document("The file is being replaced."))),
                                  ("broken", (500, "text/plain", "Broken.\n"))):
            if name.startswith(beginning):
                return answer
        return 404, "text/plain", NONE


class ServiceHandler(Handler):
    def do_GET(self):
        self.reply(*self.server.services.get(urllib.parse.urlsplit(self.path).path))

    def do_POST(self):
        self.reply(*self.server.services.post(urllib.parse.urlsplit(self.path).path, self.form()))

    def reply(self, code, kind, body):
        if isinstance(body, SetupFile):
            self.begin(code, kind, body.size)
            self.send_slowly(body)
        else:
            self.answer(code, kind, body)

    def send_slowly(self, file):
        begun = time.monotonic()
        sent = 0
        for block in file.blocks():
            self.wfile.write(block)
            sent += len(block)
            ahead = sent / self.server.services.speed - (time.monotonic() - begun)
            if ahead > 0:
                time.sleep(ahead)

    def form(self):
        kind = self.headers.get("Content-Type", "")
        data = self.body()
        if kind.startswith("application/x-www-form-urlencoded"):
            return dict(urllib.parse.parse_qsl(data.decode("utf-8", "replace")))
        message = email.message_from_bytes(b"Content-Type: " + kind.encode("latin-1") + b"\r\n\r\n" + data)
        parts = message.get_payload() if message.is_multipart() else []
        return {part.get_param("name", "", "Content-Disposition"):
                part.get_payload(decode=True).decode("utf-8", "replace") for part in parts}


def certificates(folder):
    """An authority and a certificate for this machine, made once for the folder; both last a year."""
    names = [folder / name for name in ("ca.pem", "ca.key", "server.pem", "server.key")]
    if all(name.exists() for name in names) and time.time() - names[0].stat().st_mtime < 300 * 86400:
        return
    folder.mkdir(mode=0o700, parents=True, exist_ok=True)
    (folder / "server.ext").write_text("subjectAltName=DNS:localhost,IP:127.0.0.1\n", encoding="ascii")
    key = ["-newkey", "ec", "-pkeyopt", "ec_paramgen_curve:prime256v1", "-nodes"]
    for command in (
            ["req", "-x509", *key, "-days", "365", "-subj", "/CN=Tarnvik demo services", "-keyout", "ca.key",
             "-out", "ca.pem"],
            ["req", *key, "-subj", "/CN=localhost", "-keyout", "server.key", "-out", "server.csr"],
            ["x509", "-req", "-in", "server.csr", "-CA", "ca.pem", "-CAkey", "ca.key", "-CAcreateserial",
             "-days", "365", "-extfile", "server.ext", "-out", "server.pem"]):
        subprocess.run(["openssl", *command], cwd=folder, check=True, stdin=subprocess.DEVNULL, capture_output=True)


def settings(port, folder):
    site = f"https://127.0.0.1:{port}"
    return {
        "url.connection.test": f"127.0.0.1:{port}/connectiontest.html",
        "url.currency.rates": f"{site}/rates.xml",
        "tarn.url2.download": f"{site}/update",
        "tarn.url2.dlsetup": f"{site}/setup",
        "pds.url2.list": f"{site}/pds/list",
        "pds.url2.get": f"{site}/pds/get",
        "msds.url2.list": f"{site}/msds/list",
        "msds.url2.get": f"{site}/msds/get",
        "network.ca.bundle": f"{folder}/ca.pem",
    }


def parse_arguments():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    cache = pathlib.Path(os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache")
    parser.add_argument("--settings", action="store_true", help="print the settings of the program and end")
    parser.add_argument("--forget", action="store_true", help="print what resets these settings and end")
    parser.add_argument("--port", type=int, default=PORT, help=f"of the services ({PORT}; 0 takes a free one)")
    parser.add_argument("--folder", type=pathlib.Path, default=cache / "tarnvik-demo", help="of the certificates")
    parser.add_argument("--size", type=int, default=100_000_000, help="of the setup program in bytes")
    parser.add_argument("--speed", type=float, default=10e6, help="of its download in bytes a second")
    parser.add_argument("--proxy-port", type=int, help="also run a proxy (0 takes a free port)")
    parser.add_argument("--proxy-user", help="whom the proxy lets through; nobody is asked without")
    parser.add_argument("--proxy-password", default="")
    parser.add_argument("--quiet", action="store_true", help="do not print requests")
    parser.add_argument("--while-stdin", action="store_true", help="end with the standard input")
    arguments = parser.parse_args()
    if arguments.speed <= 0 or arguments.size < 0:
        parser.error("speed and size must be positive")
    arguments.folder = arguments.folder.absolute()
    return arguments


def start(arguments):
    service = Server("services", arguments.port, ServiceHandler, arguments)
    service.services = Services(arguments)
    service.tls = ssl.SSLContext(ssl.PROTOCOL_TLS_SERVER)
    service.tls.load_cert_chain(arguments.folder / "server.pem", arguments.folder / "server.key")
    servers = [service]
    if arguments.proxy_port is not None:
        proxy = Server("proxy", arguments.proxy_port, ProxyHandler, arguments)
        if arguments.proxy_user is not None:
            pair = f"{arguments.proxy_user}:{arguments.proxy_password}"
            proxy.credentials = base64.b64encode(pair.encode()).decode()
        servers.append(proxy)
    for server in servers:
        threading.Thread(target=server.serve_forever, daemon=True).start()
    return servers


def main():
    arguments = parse_arguments()
    if arguments.settings:
        for name, value in settings(arguments.port, arguments.folder).items():
            print(f"{name}={value}")
        return
    if arguments.forget:
        for name in settings(arguments.port, arguments.folder):
            print(f"--reset\n{name}")
        return
    try:
        certificates(arguments.folder)
        servers = start(arguments)
    except (OSError, subprocess.CalledProcessError) as error:
        sys.exit(f"demo_services.py: {error}")
    for name, value in settings(servers[0].port, arguments.folder).items():
        print(f"{name}={value}")
    for server in servers:
        print(f"# {server.name} at 127.0.0.1:{server.port}")
    print(f"# certificates in {arguments.folder}")
    print("# ready", flush=True)
    try:
        if arguments.while_stdin:
            sys.stdin.read()
        else:
            threading.Event().wait()
    except KeyboardInterrupt:
        pass


if __name__ == "__main__":
    main()
