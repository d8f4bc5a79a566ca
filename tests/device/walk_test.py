#!/usr/bin/python3
"""A walk through the program's commands on the simulated phone, which looks at every access to memory meanwhile."""

import re
import unittest

from image import HOUSE
from phone.windows import WM_COMMAND
from phone_test import ROWS, new_phone

COMMANDS = {name: int(number) for name, number in
            re.findall(r"#define (IDM_\w+) (\d+)", (HOUSE / "resources/resource.h").read_text())}
VIEWS = ("VIEW_LARGE", "VIEW_SMALL", "VIEW_LIST", "VIEW_DETAILED", "VIEW_DETAILED_LINE", "TOOLBAR_LIST_STYLE")
ORDERS = ("ARRANGE_TYPE", "ARRANGE_SIZE", "ARRANGE_DATE", "ARRANGE_REVERSE", "ARRANGE_NAME", "ARRANGE_REVERSE")
PANES = ("VIEW_FOLDER_TREE", "VIEW_SIDE", "VIEW_STATUS_BAR", "VIEW_ADDRESS_BAR", "VIEW_ADDRESS_BAR", "VIEW_STATUS_BAR",
         "VIEW_SIDE", "VIEW_FOLDER_TREE", "FOCUS_NEXT", "FOCUS_PREV", "SOFTKEY_CHANGE_VIEW")
SELECTIONS = ("EDIT_SELECT_ALL", "EDIT_REVERSE_SELECTION", "EDIT_RELEASE_SELECTION", "EDIT_SELECT_ALL", "TOOLBAR_COPY",
              "TOOLBAR_CUT", "EDIT_COPY_NAME", "EDIT_COPY_PATH")
PLACES = ("TOOLBAR_UP_FOLDER", "GOTO_MY_DOCUMENTS", "GOTO_START_MENU", "TOOLBAR_BACK", "TOOLBAR_BACK",
          "TOOLBAR_FORWARD", "GOTO_DEVICE", "GOTO_DESKTOP", "FAVORITES_ORGANIZE", "MENU_REFRESH")
SWITCHES = ("KEY_CTRL", "KEY_SHIFT", "KEY_SHIFT", "VIEW_DRAG_DROP", "VIEW_DRAG_DROP")


class WalkTest(unittest.TestCase):
    def setUp(self):
        self.phone = new_phone()

    def walk(self, *steps):
        """Gives the commands one after another, then ends the program; steps that are functions are called."""
        doings = []
        for step in steps:
            if callable(step):
                doings.append(step)
            else:
                doings.append(lambda command=COMMANDS[f"IDM_{step}"]: self.phone.post_to_main(WM_COMMAND, command))
        self.phone.do(*doings)
        self.assertEqual(self.phone.start("\\My Documents"), 0)

    def test_views_and_orders(self):
        orders = []
        for size, name in ((900, "c.abc"), (3, "d.zip")):
            self.phone.add_file(f"\\My Documents\\{name}", b"x" * size)
        self.walk(*VIEWS, *(step for order in ORDERS for step in (order, lambda: orders.append(self.phone.names()))))
        by_type, by_size, _, _, by_name_downwards, by_name = [order[2:] for order in orders]
        self.assertEqual(by_type, ["c", "a", "b", "d"])
        self.assertEqual(by_size, ["a", "d", "c", "b"])
        self.assertEqual(by_name_downwards, ["d", "c", "b", "a"])
        self.assertEqual(by_name, ["a", "b", "c", "d"])

    def test_panes_and_switches(self):
        self.walk(*PANES, *SWITCHES)

    def test_selections(self):
        self.walk(*SELECTIONS, lambda: self.phone.select("a"), "EDIT_COPY_PATH")
        self.assertEqual(self.phone.clipboard, "\\My Documents\\a.txt")

    def test_places(self):
        shown = []
        self.walk(*(step for place in PLACES for step in (place, lambda: shown.append(self.phone.names()))))
        self.assertEqual(shown[1], ROWS)
        self.assertEqual(shown[0], shown[6], "the device")

    def test_everything_at_every_place(self):
        self.walk(*(step for place in PLACES[:4] for step in (place, *VIEWS, *ORDERS, *PANES, *SELECTIONS)))
        self.assertLess(self.phone.machine.stack_used(), 16 * 1024)


if __name__ == "__main__":
    unittest.main()
