#!/usr/bin/python3
"""Shows a phone's screen on a web page of this machine.

    server.py DISPLAY_FILE

DISPLAY_FILE holds the number of the screen's X display, or nothing while there is none; XAUTHORITY opens it.
The standard output gets the page's address, and then one line for everything the page wishes: "home", or the
size of another screen, as "320x240".

The page, its screen and its wishes all lie behind a key in the address that is new at every start. Whoever does
not know it gets nothing, nor does a page of another origin, nor one that came by another host's name.
"""

import hmac
import mimetypes
import secrets
import signal
import sys
import threading
from http.server import BaseHTTPRequestHandler, ThreadingHTTPServer
from pathlib import Path
from urllib.parse import unquote, urlsplit

from websockify.websocketserver import WebSocketRequestHandlerMixIn

from screen import Screen

PORTS = range(6080, 6180)
WISHES = ("home", "240x320", "320x240", "176x220")
PAGE = Path(__file__).resolve().parent / "page"
NOVNC = Path("/usr/share/novnc")
TYPES = (".css", ".html", ".js", ".svg")


def file_at(place):
    """The file of the page, or of noVNC, at this place of the address; None when there is none."""
    root = PAGE
    if place.startswith(("novnc/core/", "novnc/vendor/")):
        root, place = NOVNC, place.removeprefix("novnc/")
    try:
        file = (root / (place or "index.html")).resolve()
        return file if file.suffix in TYPES and file.is_relative_to(root) and file.is_file() else None
    except (OSError, ValueError):  # too long, or no name at all
        return None


class Visit(WebSocketRequestHandlerMixIn, BaseHTTPRequestHandler):
    """One request for the page, its screen or a wish."""

    timeout = 20
    server_version = "phone"
    sys_version = ""

    def do_GET(self):
        path = urlsplit(self.path).path
        if self.is_welcome() and path.count("/") == 1:
            self.answer(308, Location=path + "/")
            return
        file = file_at(self.place()) if self.is_welcome() else None
        if not file:
            self.answer(404)
            return
        self.answer(200, file.read_bytes(), mimetypes.types_map[file.suffix])

    def do_POST(self):
        wish = self.place().removeprefix("wish/")
        if not self.is_welcome(from_page=True) or wish not in WISHES:
            self.answer(404)
            return
        self.server.wish(wish)
        self.answer(204)

    def handle_upgrade(self):
        if self.is_welcome(from_page=True) and self.place() == "screen":
            super().handle_upgrade()
        else:
            self.answer(404)

    def handle_websocket(self):
        self.server.screen.show_on(self.request)

    def place(self):
        """What the address says behind the key."""
        return unquote(urlsplit(self.path).path).partition("/")[2].partition("/")[2]

    def is_welcome(self, from_page=False):
        """Whether the request has the key and comes from our page; only the page's own loading tells no origin."""
        key = urlsplit(self.path).path.partition("/")[2].partition("/")[0]
        host = self.headers.get("Host")
        origin = self.headers.get("Origin")
        return (
            hmac.compare_digest(key.encode(), self.server.key.encode())
            and host in self.server.hosts
            and (origin == f"http://{host}" or (origin is None and not from_page))
        )

    def answer(self, status, body=b"", kind="text/plain", **headers):
        self.send_response(status)
        for name, value in headers.items():
            self.send_header(name, value)
        self.send_header("Content-Type", f"{kind}; charset=utf-8")
        self.send_header("Content-Length", str(len(body)))
        self.send_header("Cache-Control", "no-store")
        self.send_header(
            "Content-Security-Policy",
            "default-src 'none'; script-src 'self'; style-src 'self'; img-src 'self' data:; "
            f"connect-src 'self' ws://127.0.0.1:{self.server.server_port} ws://localhost:{self.server.server_port}; "
            "base-uri 'none'; form-action 'none'; frame-ancestors 'none'",
        )
        self.send_header("Cross-Origin-Resource-Policy", "same-origin")
        self.send_header("Referrer-Policy", "no-referrer")
        self.send_header("X-Content-Type-Options", "nosniff")
        self.end_headers()
        self.wfile.write(body)

    def log_message(self, *_):
        """The key is in every address: none is written down."""


class Server(ThreadingHTTPServer):
    """Listens on loopback only, with a key of its own."""

    daemon_threads = True

    def __init__(self, port, screen):
        super().__init__(("127.0.0.1", port), Visit)
        self.key = secrets.token_urlsafe(24)
        self.hosts = (f"127.0.0.1:{port}", f"localhost:{port}")
        self.screen = screen

    def wish(self, text):
        print(text, flush=True)

    def handle_error(self, request, client_address):
        """A visitor who goes early is no error."""
        if not isinstance(sys.exc_info()[1], OSError):
            super().handle_error(request, client_address)


def listening(screen):
    """A server on the first free port."""
    for port in PORTS:
        try:
            return Server(port, screen)
        except OSError:
            continue
    sys.exit(f"no free port between {PORTS[0]} and {PORTS[-1]} on 127.0.0.1")


def main():
    screen = Screen(Path(sys.argv[1]))
    server = listening(screen)
    # The end is told to the pages before the server goes.
    signal.signal(signal.SIGTERM, lambda *_: threading.Thread(target=server.shutdown).start())
    print(f"http://127.0.0.1:{server.server_port}/{server.key}/", flush=True)
    server.serve_forever(poll_interval=0.1)
    screen.end()


if __name__ == "__main__":
    main()
