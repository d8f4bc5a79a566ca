"""The phone's screen on a page's web socket.

Every page gets an x11vnc of its own, which talks through a pair of connected sockets: there is no port and no
file by which anybody else could reach the screen.
"""

import os
import select
import socket
import subprocess
import threading
import time

from websockify.websocket import WebSocketWantReadError, WebSocketWantWriteError

# Why a web socket closes, as the page reads it.
ENDED = 4000
SWITCHED_OFF = 4001

PATIENCE = 20  # seconds that a page waits for a screen which is being made, and we for a page to take it
FAREWELL = 2  # seconds for telling all pages the end


class Screen:
    """The screen as it comes and goes; `display_file` names its X display while there is one."""

    def __init__(self, display_file):
        self._display_file = display_file
        self._shown = threading.Semaphore(0)  # counts the pages that have been told the end
        self._pages = 0
        self._lock = threading.Lock()
        # Closing the one end wakes all who wait at the other.
        self._alarm, self._bell = socket.socketpair()

    def show_on(self, page):
        """Carries the screen to the web socket `page` and its input back, until either closes."""
        with self._lock:
            self._pages += 1
        try:
            self._carry(page)
        except OSError:
            pass  # the page has gone
        finally:
            self._shown.release()

    def end(self):
        """Tells every page that the program has ended, and awaits the end of its x11vnc."""
        self._bell.close()
        until = time.monotonic() + FAREWELL
        for _ in range(self._pages):
            self._shown.acquire(timeout=max(0, until - time.monotonic()))

    def _carry(self, page):
        display = self._await_display()
        if not display:
            _close(page, self._reason())
            return
        phone, viewer = socket.socketpair()
        with viewer:
            process = _x11vnc(display, viewer)
        try:
            with phone:
                reason = self._pass_on(page, phone)
            _close(page, reason)  # before all waiting: at the end there is little time
        finally:
            _await_end(process)

    def _pass_on(self, page, phone):
        """Returns the reason to close the web socket with; None when the page has closed it."""
        while True:
            ready, _, _ = select.select([page, phone, self._alarm], [], [])
            if self._alarm in ready:
                return ENDED
            if page in ready and not _pass_input(page, phone):
                return None
            if phone in ready and not _pass_picture(phone, page):
                return self._reason()

    def _reason(self):
        """Why there is no screen."""
        return ENDED if self._is_over() else SWITCHED_OFF

    def _await_display(self):
        until = time.monotonic() + PATIENCE
        while time.monotonic() < until and not self._is_over():
            try:
                number = self._display_file.read_text("ascii").strip()
            except FileNotFoundError:
                number = ""
            if number.isdigit():
                return f":{number}"
            time.sleep(0.05)
        return None

    def _is_over(self):
        return bool(select.select([self._alarm], [], [], 0)[0])


def _x11vnc(display, end):
    """An x11vnc that serves the one connection and ends with it."""
    return subprocess.Popen(
        f"x11vnc -inetd -norc -quiet -o {os.devnull} -nopw -nosel -wait 20 -display {display}".split(),
        stdin=end,
        stdout=end,
        stderr=subprocess.DEVNULL,
    )


def _await_end(process):
    """Awaits the end of an x11vnc whose connection has closed, which then lets go of the keys that are down. One
    that was still getting to know its page does not notice, and is told."""
    for tell in (process.terminate, process.kill):
        try:
            process.wait(0.5)
            return
        except subprocess.TimeoutExpired:
            tell()
    process.wait()


def _pass_input(page, phone):
    """Hands on what has arrived from the page. False when it has closed."""
    while True:
        try:
            message = page.recvmsg()
        except WebSocketWantReadError:
            return True
        except WebSocketWantWriteError:
            return False
        if message is None:
            return False
        try:
            phone.sendall(message)
        except ConnectionError:
            return True  # reading from it tells the end
        if not page.pending():
            return True


def _pass_picture(phone, page):
    """Hands on what has arrived from the screen. False when it has gone."""
    try:
        data = phone.recv(65536)
    except ConnectionResetError:
        data = b""
    if data:
        _finish(page, lambda: page.sendmsg(data))
    return bool(data)


def _close(page, reason):
    if reason:
        _finish(page, lambda: page.close(reason))


def _finish(page, send):
    """Calls `send` until all of it is on its way. A page that takes nothing for long has gone: TimeoutError."""
    while True:
        try:
            return send()
        except WebSocketWantWriteError:
            if not select.select([], [page], [], PATIENCE)[1]:
                raise TimeoutError from None
