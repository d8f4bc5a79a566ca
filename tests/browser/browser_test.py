#!/usr/bin/python3
"""The page that shows the phone: its keys, its screen, its sizes, and who may see it."""

import base64
import os
import signal
import socket
import sys
import unittest
from pathlib import Path
from urllib.parse import urlsplit

from selenium.webdriver.common.keys import Keys

from phone import BUILD, Device, Page, eventually

ITEM = (110, 48)  # where the entry after ".." lies on the screen of 240x320


def names_in(folder):
    """The files' names without their extensions."""
    return [file.stem for file in folder.iterdir()]


class PageTest(unittest.TestCase):
    """One phone and one page for all; each test begins with \\A in front."""

    @classmethod
    def setUpClass(cls):
        cls.device = Device()
        cls.addClassCleanup(cls.device.end)
        cls.page = Page(cls.device.address)
        cls.addClassCleanup(cls.page.close)
        if not eventually(lambda: cls.page.state == "shown"):
            raise RuntimeError("the page shows no screen: " + cls.page.notice)
        cls.page.keep_picture()

    def run(self, result=None):
        known = len(result.failures) + len(result.errors)
        super().run(result)
        if len(result.failures) + len(result.errors) > known:
            folder = BUILD / "test-failures"
            folder.mkdir(parents=True, exist_ok=True)
            self.page.driver.save_screenshot(str(folder / f"browser.{self._testMethodName}.png"))

    # --- Keys and screen ---

    def test_1_soft_key_opens_the_menu(self):
        self.page.press("ArrowDown")  # a key makes the focus visible
        self.assertTrue(self.page.changes(lambda: self.page.press("F10")))
        self.page.press("Escape")
        self.assertTrue(eventually(lambda: not self.page.has_changed()), "Back closes the menu")

    def test_2_hold_opens_the_context_menu(self):
        for act in (lambda: self.page.hold(*ITEM, 1.5), lambda: self.page.click_right(*ITEM)):
            self.assertTrue(self.page.changes(act))
            self.assertTrue(self.page.changes(lambda: self.page.press("Escape")), "Back closes the menu")

    def test_3_tap_opens_a_folder_and_keyboard_and_number_keys_name_a_file(self):
        folder = self.device.root / "A/B"
        self.page.press("ArrowLeft")  # a tap opens what is not selected
        self.assertTrue(self.page.changes(lambda: self.page.tap(*ITEM)))
        self.page.press("ArrowRight")  # from ".." to the file
        self.edit_name()
        self.page.type(*"Typed", Keys.ENTER)
        self.assertTrue(eventually(lambda: "Typed" in names_in(folder)), names_in(folder))

        self.edit_name()
        self.page.press("4", "0", "9", "#", "Enter")
        self.assertTrue(eventually(lambda: "409#" in names_in(folder)), names_in(folder))

        self.assertTrue(self.page.changes(lambda: self.page.press("F1")), "the left soft key goes up")

    def edit_name(self):
        self.assertTrue(self.page.changes(lambda: self.page.type(Keys.F2)), "the name can be edited")
        self.page.type_with(Keys.CONTROL, "a")

    def test_4_navigation_pad_moves_and_opens(self):
        self.assertTrue(self.page.changes(self.page.press_home), "Home shows the root")
        for key in ("ArrowRight", "ArrowDown", "Enter"):
            self.assertTrue(self.page.changes(lambda: self.page.press(key)), key)

    # --- Sizes and ends ---

    def test_5_another_screen(self):
        for size in ("320x240", "176x220", "240x320"):
            self.page.choose_size(size)
            wanted = [int(side) for side in size.split("x")]
            self.assertTrue(eventually(lambda: self.page.screen_size() == wanted, 30), size)
            self.assertTrue(eventually(lambda: self.page.state == "shown", 30), size)
            self.assertEqual(self.page.chosen_size(), size)
            self.assertTrue(self.page.changes(lambda: self.page.press("F10")))
            self.assertTrue(self.page.changes(lambda: self.page.press("Escape")))

    def test_6_lost_connection_comes_back(self):
        self.page.run(
            "window.states = []; new MutationObserver(() => states.push(document.body.dataset.state))"
            ".observe(document.body, { attributes: true });"
        )
        for process in self.device.named("x11vnc"):
            os.kill(process, signal.SIGKILL)
        self.assertTrue(eventually(lambda: self.page.run("return states.at(-1)") == "shown"))
        self.assertIn("switching", self.page.run("return states"))

    def test_6_reloading_quickly_leaves_one_connection(self):
        for _ in range(60):
            self.page.driver.execute_cdp_cmd("Page.reload", {})
        self.assertTrue(eventually(lambda: self.page.state == "shown", 30), self.page.state)
        self.assertTrue(eventually(lambda: len(self.device.named("x11vnc")) == 1), self.device.named("x11vnc"))

    def test_8_text_opens_on_the_phone_and_home_comes_back(self):
        for key in ("ArrowRight", "Enter", "ArrowRight"):  # to the text in the folder
            self.assertTrue(self.page.changes(lambda: self.page.press(key)), key)
        self.assertTrue(self.page.changes(lambda: self.page.press("Enter")), "a notepad comes up")
        self.assertTrue(self.page.changes(self.page.press_home), "the file manager is in front again")
        self.assertTrue(self.page.changes(lambda: self.page.press("F10")), "and takes its keys")
        self.assertTrue(self.page.changes(lambda: self.page.press("Escape")))

    def test_9_page_tells_the_end(self):
        # The notepad of the test before is left then, and the phone is on as long as it is.
        self.assertTrue(self.page.changes(lambda: self.page.type_with(Keys.CONTROL, "q")))
        self.page.keep_picture()
        self.page.type_with(Keys.ALT, Keys.F4)
        self.assertTrue(eventually(lambda: self.page.state == "ended"), self.page.state)
        self.assertIn("ended", self.page.notice)
        self.assertEqual(self.device.process.wait(30), 0)
        self.assertTrue(eventually(lambda: not self.device.named("x11vnc")))

    # --- Who may see it ---

    def ask(self, place, method="GET", **headers):
        """The status and the body of an answer; headers that are None are left out."""
        port = urlsplit(self.device.address).port
        head = {"Host": f"127.0.0.1:{port}"} | {name.replace("_", "-"): value for name, value in headers.items()}
        lines = [f"{method} {place} HTTP/1.1", *(f"{name}: {value}" for name, value in head.items() if value)]
        with socket.create_connection(("127.0.0.1", port), timeout=5) as connection:
            connection.sendall("\r\n".join([*lines, "", ""]).encode())
            answer = b""
            while b"\r\n\r\n" not in answer and (data := connection.recv(65536)):
                answer += data
            status = int(answer.split()[1])
            if status != 101:
                while data := connection.recv(65536):
                    answer += data
        return status, answer.partition(b"\r\n\r\n")[2]

    def ask_for_screen(self, place, **headers):
        key = base64.b64encode(bytes(16)).decode()
        upgrade = {"Upgrade": "websocket", "Connection": "Upgrade", "Sec-WebSocket-Version": "13"}
        return self.ask(place, Sec_WebSocket_Key=key, **upgrade, **headers)[0]

    def test_7_nothing_without_the_key(self):
        address = urlsplit(self.device.address)
        own = f"http://{address.netloc}"
        key = address.path.strip("/")
        self.assertGreaterEqual(len(key), 32)
        self.assertEqual(self.ask(f"/{key}/", Origin=None)[0], 200)

        places = ("/", "/index.html", "/screen", f"/{key[:-1]}/", f"/{key}x/", "/x/main.js", "/novnc/core/rfb.js")
        for wrong in places:
            self.assertEqual(self.ask(wrong), (404, b""), wrong)
            self.assertEqual(self.ask(wrong.rstrip("/") + "/wish/home", "POST", Origin=own), (404, b""), wrong)
            self.assertEqual(self.ask_for_screen(wrong.rstrip("/") + "/screen", Origin=own), 404, wrong)
        files = ("../server.py", "%2e%2e/server.py", "novnc/core/../../../../etc/passwd", "novnc/vnc.html", "/etc/passwd")
        for outside in files:
            self.assertEqual(self.ask(f"/{key}/{outside}"), (404, b""), outside)
        for wish in ("home/x", "999x999", "", "ended 1 0"):
            self.assertEqual(self.ask(f"/{key}/wish/{wish}".replace(" ", "%20"), "POST", Origin=own)[0], 404, wish)

    def test_7_nothing_for_other_origins_and_hosts(self):
        address = urlsplit(self.device.address)
        own = f"http://{address.netloc}"
        page = address.path
        self.assertEqual(self.ask_for_screen(page + "screen", Origin=own), 101)
        for origin in ("http://example.org", f"http://127.0.0.1:{address.port + 1}", "null", None):
            self.assertEqual(self.ask_for_screen(page + "screen", Origin=origin), 404, origin)
            self.assertEqual(self.ask(page + "wish/home", "POST", Origin=origin)[0], 404, origin)
        for host in ("example.org", f"example.org:{address.port}", "127.0.0.1", None):
            self.assertEqual(self.ask(page, Host=host)[0], 404, host)
            self.assertEqual(self.ask_for_screen(page + "screen", Host=host, Origin=f"http://{host}"), 404, host)

    def test_7_loopback_only(self):
        own = {os.readlink(file) for pid in self.device.processes() for file in Path(f"/proc/{pid}/fd").iterdir()}
        listening = []
        for table in ("tcp", "tcp6"):
            for line in Path(f"/proc/net/{table}").read_text().splitlines()[1:]:
                fields = line.split()
                if fields[3] == "0A" and f"socket:[{fields[9]}]" in own:
                    listening.append(fields[1])
        port = urlsplit(self.device.address).port
        self.assertEqual(listening, [f"0100007F:{port:04X}"], "the page's port on 127.0.0.1 and no other")


if __name__ == "__main__":
    sys.dont_write_bytecode = True
    unittest.main(verbosity=2)
