#!/usr/bin/python3
"""Saves a picture of the page for the documents.

    tests/browser/save_picture.py docs/screenshots/browser.png
"""

import sys

from phone import Device, Page

if __name__ == "__main__":
    sys.dont_write_bytecode = True
    device = Device("\\My Documents")
    try:
        page = Page(device.address)
        page.show_at(1120, 730)
        page.keep_picture()
        page.press("F10")
        page.keep_picture()
        page.driver.save_screenshot(sys.argv[1])
        page.close()
    finally:
        device.end()
