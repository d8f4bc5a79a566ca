"""The page's server: what it answers, and what visits that are quickly over leave."""

import base64
import re
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path
from unittest import mock
from urllib.parse import urlsplit

from house import HOUSE, House, eventually


sys.path.insert(0, str(HOUSE / "companions/browser"))
import screen  # noqa: E402


class Page:
    """A page's web socket, which takes note of its end."""

    def __init__(self, doings):
        self._ours, self._theirs = socket.socketpair()
        self._doings = doings

    def fileno(self):
        return self._ours.fileno()

    def close(self, reason):
        self._doings.append(reason)


class ScreenEnd(unittest.TestCase):
    def test_a_page_is_told_before_its_x11vnc_is_waited_for(self):
        doings, began = [], threading.Event()

        def begin(_display, end):
            began.set()
            return subprocess.Popen(["cat"], stdin=end, stdout=end)

        def await_end(process):
            doings.append("waited")
            process.wait(10)

        with tempfile.NamedTemporaryFile("w") as display, mock.patch.object(screen, "_x11vnc", begin), \
                mock.patch.object(screen, "_await_end", await_end):
            display.write("1")
            display.flush()
            shown = screen.Screen(Path(display.name))
            page = threading.Thread(target=shown.show_on, args=(Page(doings),))
            page.start()
            self.assertTrue(began.wait(10))
            shown.end()
            page.join(10)
        self.assertEqual(doings, [screen.ENDED, "waited"])


class PageServer(unittest.TestCase):
    def setUp(self):
        self.house = self.enterContext(House())
        self.run_ = self.house.start_shown(display=None)
        self.address = urlsplit(re.search(r"http://\S+", self.run_.said())[0])
        self.server = next(
            process for process in self.house.processes() if "server.py" in Path(f"/proc/{process}/cmdline").read_text()
        )

    def connect(self):
        return socket.create_connection((self.address.hostname, self.address.port), timeout=10)

    def ask(self, place):
        """The status and the head of the answer to a request for this place."""
        with self.connect() as connection:
            connection.sendall(f"GET {place} HTTP/1.1\r\nHost: {self.address.netloc}\r\n\r\n".encode())
            answer = b""
            while b"\r\n\r\n" not in answer and (data := connection.recv(65536)):
                answer += data
        return int(answer.split()[1]) if answer else None, answer.decode("latin-1")

    def open_screen(self):
        """A web socket to the screen."""
        connection = self.connect()
        key = base64.b64encode(bytes(16)).decode()
        lines = (
            f"GET {self.address.path}screen HTTP/1.1", f"Host: {self.address.netloc}",
            f"Origin: http://{self.address.netloc}", "Upgrade: websocket", "Connection: Upgrade",
            "Sec-WebSocket-Version: 13", f"Sec-WebSocket-Key: {key}", "", "",
        )
        connection.sendall("\r\n".join(lines).encode())
        answer = b""
        while b"\r\n\r\n" not in answer:
            answer += connection.recv(1)
        self.assertIn(b" 101 ", answer.partition(b"\r\n")[0])
        return connection

    def threads(self):
        return len(list(Path(f"/proc/{self.server}/task").iterdir()))

    def viewers(self):
        return self.house.processes("x11vnc")

    def test_quick_visits_leave_nothing_and_the_end_is_quick(self):
        threads = self.threads()
        with ThreadPoolExecutor(4) as visitors:
            list(visitors.map(self.visit, range(200)))
        self.assertTrue(eventually(lambda: not self.viewers()), self.viewers())
        self.assertTrue(eventually(lambda: self.threads() == threads), self.threads())
        self.assertTrue(self.shows_screen(), "there is still room for one")
        self.assert_ends_quickly()

    def visit(self, turn):
        connection = self.open_screen()
        time.sleep(turn % 20 / 100)  # from at once to when the screen is long shown
        if turn % 3 == 0:  # with a word, as a page that is left; without, as one that is killed
            connection.sendall(b"\x88\x82" + bytes(4) + struct.pack(">H", 1001))
        elif turn % 3 == 1:
            connection.setsockopt(socket.SOL_SOCKET, socket.SO_LINGER, struct.pack("ii", 1, 0))
        connection.close()

    def shows_screen(self):
        with self.open_screen() as connection:
            return b"RFB" in connection.recv(100)

    def test_the_end_is_quick_with_pages_that_do_not_listen(self):
        pages = [self.open_screen() for _ in range(20)]
        for page in pages:
            self.addCleanup(page.close)
        self.assert_ends_quickly()

    def assert_ends_quickly(self):
        begun = time.monotonic()
        self.run_.send_signal(signal.SIGTERM)
        self.run_.wait(60)
        self.assertLess(time.monotonic() - begun, 3)
        self.assertTrue(eventually(lambda: not self.house.processes()))

    def test_odd_places_are_answered(self):
        path = self.address.path
        for place in (path + "%00", path + "a%00b.js", path + "x" * 5000, path + "x/" * 3000, path + "%ff", path + "%"):
            self.assertEqual(self.ask(place)[0], 404, place[-20:])

    def test_the_address_without_its_last_slash_leads_to_it(self):
        status, answer = self.ask(self.address.path.rstrip("/"))
        self.assertEqual(status, 308)
        self.assertIn(f"\r\nLocation: {self.address.path}\r\n", answer)
        self.assertEqual(self.ask(self.address.path.rstrip("/")[:-1])[0], 404)
