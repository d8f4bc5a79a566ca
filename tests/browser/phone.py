"""The program on a device of its own, started by ./run without a display, and the page in a web browser."""

import contextlib
import os
import re
import shutil
import signal
import subprocess
import tempfile
import time
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.keys import Keys

HOUSE = Path(__file__).resolve().parents[2]
BUILD = HOUSE / "build/desktop"

# The screen's points below the title strip, which has the clock; nothing while the screen is empty. What the
# pictures are carried in is not exact, so a point has changed only when it did so clearly.
POINTS = """
    const points = () => {
        const screen = document.querySelector('#screen canvas'), top = 24;
        if (!screen?.width)
            return [];
        const data = screen.getContext('2d').getImageData(0, top, screen.width, screen.height - top).data;
        return new Set(new Uint32Array(data.buffer)).size < 10 ? [] : data;
    };
"""
KEEP = POINTS + "window.kept = points();"
HAS_CHANGED = POINTS + """
    const now = points();
    return now.length > 0 &&
        (now.length !== kept.length || kept.filter((value, at) => Math.abs(value - now[at]) > 60).length > 60);
"""
SUM = POINTS + "return points().reduce((sum, value) => (Math.imul(sum, 31) + value) | 0, 0);"

RIM = {"ArrowUp": (0, -1), "ArrowRight": (1, 0), "ArrowDown": (0, 1), "ArrowLeft": (-1, 0)}


def eventually(condition, seconds=15):
    """Whether the condition comes true; its value then."""
    until = time.monotonic() + seconds
    while not (value := condition()) and time.monotonic() < until:
        time.sleep(0.05)
    return value


class Device:
    """A fresh device with the folder \\A, and a file in its folder \\A\\B; starts in \\A if not told otherwise."""

    def __init__(self, folder="\\A"):
        # The registry's template stays for the next time: making it takes long.
        self.data = BUILD / "phones/browser"
        shutil.rmtree(self.data / "tarvik-file-manager/prefix", ignore_errors=True)
        self.data.mkdir(parents=True, exist_ok=True)
        self.root = Path(tempfile.mkdtemp(prefix="tarvik-browser."))
        subprocess.run([HOUSE / "platform/desktop/image/seed.sh", self.root], check=True)
        (self.root / "A/B").mkdir(parents=True)
        (self.root / "A/B/note.txt").write_text("A note\n")
        self.log = self.data / "run.log"

        hidden = ("DISPLAY", "WAYLAND_DISPLAY", "XAUTHORITY")
        environment = {name: value for name, value in os.environ.items() if name not in hidden}
        with self.log.open("w") as log:
            self.process = subprocess.Popen(
                [HOUSE / "run", "--root", self.root, folder],
                stdout=log,
                stderr=log,
                stdin=subprocess.DEVNULL,
                env=environment | {"XDG_DATA_HOME": str(self.data)},
                start_new_session=True,
            )
        eventually(lambda: self.address or self.process.poll() is not None, 150)
        if not self.address:
            self.end()
            raise RuntimeError(self.log.read_text())

    @property
    def address(self):
        found = re.search(r"http://\S+", self.log.read_text())
        return found and found[0]

    def processes(self):
        """The numbers of the processes that ./run started, its own with them."""
        table = subprocess.run(["ps", "-eo", "pid=,ppid="], capture_output=True, text=True, check=True).stdout
        children = {}
        for pid, parent in (map(int, line.split()) for line in table.splitlines()):
            children.setdefault(parent, []).append(pid)
        found = [self.process.pid]
        for pid in found:
            found += children.get(pid, [])
        return found

    def named(self, name):
        """Those of its processes with this name."""
        found = []
        for pid in self.processes():
            with contextlib.suppress(FileNotFoundError):
                if Path(f"/proc/{pid}/comm").read_text().strip() == name:
                    found.append(pid)
        return found

    def end(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGTERM)
            self.process.wait(40)
        shutil.rmtree(self.root, ignore_errors=True)


class Page:
    """The page in a headless browser."""

    def __init__(self, address):
        options = webdriver.ChromeOptions()
        options.binary_location = shutil.which("chromium")
        for option in ("--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage"):
            options.add_argument(option)
        self.driver = webdriver.Chrome(service=Service(shutil.which("chromedriver")), options=options)
        self.show_at(1280, 800)
        self.driver.get(address)

    def show_at(self, width, height):
        """Makes the window's inside this large."""
        metrics = {"width": width, "height": height, "deviceScaleFactor": 1, "mobile": False}
        self.driver.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", metrics)

    def close(self):
        self.driver.quit()

    def run(self, script, *arguments):
        return self.driver.execute_script(script, *arguments)

    @property
    def state(self):
        return self.run("return document.body.dataset.state")

    @property
    def notice(self):
        return self.driver.find_element("id", "notice-text").text

    def screen_size(self):
        return self.run("const c = document.querySelector('#screen canvas'); return c && [c.width, c.height]")

    def keep_picture(self):
        """Remembers what the screen shows, once it has shown the same for a while."""
        last, since = None, time.monotonic()
        until = since + 20
        while time.monotonic() < until:
            now = self.run(SUM)
            if now != last:
                last, since = now, time.monotonic()
            elif now and self.state == "shown" and time.monotonic() - since > 0.3:
                self.run(KEEP)
                return
            time.sleep(0.03)
        raise TimeoutError("the screen does not come to rest")

    def has_changed(self):
        """Whether the screen shows something else than what was kept."""
        return self.run(HAS_CHANGED)

    def changes(self, act):
        """Does something; whether the screen then shows something else."""
        self.keep_picture()
        act()
        return eventually(self.has_changed)

    def press(self, *keys):
        """Clicks the phone's keys; the arrows near the rim of their pad."""
        for key in keys:
            button = self.driver.find_element("css selector", f'.phone [data-key="{key}"]')
            x, y = RIM.get(key, (0, 0))
            offset = round(x * button.size["width"] * 0.4), round(y * button.size["height"] * 0.4)
            ActionChains(self.driver).move_to_element_with_offset(button, *offset).click().perform()

    def press_home(self):
        self.driver.find_element("css selector", '.phone [data-wish="home"]').click()

    def at(self, x, y):
        """The pointer above a point of the phone's screen."""
        canvas = self.driver.find_element("css selector", "#screen canvas")
        width, height = self.screen_size()
        scale = canvas.size["width"] / width
        return ActionChains(self.driver).move_to_element_with_offset(
            canvas, round((x - width / 2) * scale), round((y - height / 2) * scale)
        )

    def tap(self, x, y):
        self.at(x, y).click().perform()

    def hold(self, x, y, seconds):
        self.at(x, y).click_and_hold().pause(seconds).release().perform()

    def click_right(self, x, y):
        self.at(x, y).context_click().perform()

    def type(self, *keys):
        """Types on the keyboard, wherever the page has its focus."""
        for key in keys:
            ActionChains(self.driver).send_keys(key).perform()
            time.sleep(0.05)

    def type_with(self, modifier, key):
        ActionChains(self.driver).key_down(modifier).send_keys(key).key_up(modifier).perform()

    def choose_size(self, size):
        self.driver.find_element("css selector", f'#sizes input[value="{size}"] + span').click()

    def chosen_size(self):
        return self.run("return document.querySelector('#sizes input:checked').value")
