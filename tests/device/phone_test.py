#!/usr/bin/python3
"""The phone's executable run from its entry to its end on a simulated phone."""

import unittest

from image import HOUSE, PHONE_IMAGE
from phone.phone import Phone
from phone.windows import WM_COMMAND

KILOBYTE = 1024
SETTINGS = "HKCU\\Software\\Helvane\\Tarvik File Manager+\\Settings"
LATE_BOUND = ("GetOpenFileNameW", "GetSaveFileNameW", "SipGetInfo", "SipShowIM", "WNetConnectionDialog1W",
              "WNetDisconnectDialog", "aygshell_97")
ROWS = ["..", "Notes", "a", "b"]  # extensions are hidden until they are asked for
IDM_VIEW_DETAILED = 40062
REPORT = 1
UM_FOLDER_CHANGED = 0x401
WM_TIMER, REFRESH_TIMER = 0x113, 5
IDM_SENDTO_ZIP, IDM_FILE_EXTRACT_TO, IDM_SENDTO_COPY_TO = 40020, 40034, 40021
WM_INITMENUPOPUP, MF_GRAYED = 0x117, 1
IDRETRY, IDCANCEL = 4, 2


def new_phone(**options):
    phone = Phone(str(PHONE_IMAGE), **options)
    phone.add_file("\\My Documents\\b.txt", b"x" * 1536)
    phone.add_file("\\My Documents\\a.txt", b"x")
    return phone


class RunTest(unittest.TestCase):
    def setUp(self):
        self.phone = new_phone()

    def test_it_lists_a_folder_and_ends_well(self):
        seen = {}

        def look():
            seen.update(rows=self.phone.rows(), tree=self.phone.tree(), status=self.phone.window_of("status bar").control.parts)
        self.phone.do(look)
        self.assertEqual(self.phone.start("\\My Documents"), 0)
        self.assertEqual([row[0] for row in seen["rows"]], ROWS)
        self.assertEqual(seen["rows"][3], ("b", "1.50 KB", "", "7/27/2006 9:00:00 AM"))
        self.assertEqual(seen["status"], {0: "3", 1: "1.50KB", 2: "My Documents"})
        # The tree is hidden: it reads no more than the way to the list's folder.
        self.assertEqual(seen["tree"], [(0, "\\"), (1, "My Documents"), (1, "Program Files"), (1, "Temp"),
                                        (1, "Windows"), (0, "File Search")])

    def test_what_it_opened_is_closed_at_the_end(self):
        self.phone.do()
        self.phone.start()
        left = [thing for thing in self.phone.handles.values()
                if isinstance(thing, dict) and thing.keys() & {"found", "key"}]
        self.assertEqual(left, [])
        self.assertEqual(self.phone.windows, {})

    def test_idle_is_idle(self):
        seen = []
        self.phone.do(lambda: seen.append(set(self.phone.timers)))
        self.phone.start("\\My Documents")
        self.assertEqual(seen, [set()], "timers that run while nothing waits")

    def test_a_change_in_the_folder_is_read_once_and_no_timer_stays(self):
        seen = []
        self.phone.do(lambda: self.phone.post_to_main(UM_FOLDER_CHANGED),
                      lambda: seen.append({timer for _, timer in self.phone.timers}),
                      lambda: self.phone.add_file("\\My Documents\\c.txt"),
                      lambda: self.phone.post_to_main(WM_TIMER, REFRESH_TIMER),
                      lambda: seen.append({timer for _, timer in self.phone.timers}),
                      lambda: seen.append(self.phone.names()))
        self.phone.start("\\My Documents")
        self.assertEqual(seen, [{REFRESH_TIMER}, set(), ROWS + ["c"]])

    def test_settings_are_written_at_the_end_and_read_at_the_next_start(self):
        styles = []

        def list_style():
            return self.phone.GetWindowLongW(self.phone.window_of("SysListView32").number, -16 & 0xFFFFFFFF) & 3
        self.phone.do(lambda: styles.append(list_style()),
                      lambda: self.phone.post_to_main(WM_COMMAND, IDM_VIEW_DETAILED),
                      lambda: styles.append(list_style()))
        self.phone.start()
        self.assertNotEqual(styles[0], REPORT)
        self.assertEqual(styles[1], REPORT)
        self.assertIn("ListView", self.phone.registry[SETTINGS])

        kept, self.phone = self.phone.registry, new_phone()
        self.phone.registry = kept
        self.phone.do(lambda: styles.append(list_style()))
        self.phone.start()
        self.assertEqual(styles[2], REPORT)

    def test_a_second_start_hands_its_folder_over_and_ends(self):
        received = []

        def create(_security, _own, _name):
            self.phone.last_error = 183
            return self.phone.handle("mutex")

        def send(_number, message, _w, record):
            number, size, place = self.phone.machine.words(record, 3)
            received.append((message, number, size, self.phone.machine.text(place)))
        self.phone.CreateMutexW, self.phone.SendMessageW = create, send
        self.phone.FindWindowW = lambda _kind, _title: 77
        self.phone.SetForegroundWindow = lambda _number: True
        self.assertEqual(self.phone.start('"\\My Documents"'), 0)
        self.assertEqual(received, [(0x4A, 563, 2 * len("\\My Documents") + 2, "\\My Documents")])

    def test_it_starts_without_what_a_smartphone_may_lack(self):
        self.phone = new_phone(missing=LATE_BOUND)
        rows = []
        self.phone.do(lambda: rows.extend(self.phone.names()))
        self.phone.SystemParametersInfoW = lambda _what, _w, _l, _flags: True
        self.assertEqual(self.phone.start("\\My Documents"), 0)
        self.assertEqual(rows, ROWS)

    def test_archives_are_grey_without_their_library(self):
        grey = {}

        def enable(_menu, command, flags):
            grey[command] = bool(flags & MF_GRAYED)
            return 0
        self.phone.EnableMenuItem = enable
        self.phone.do(lambda: self.phone.select("a"), lambda: self.phone.post_to_main(WM_INITMENUPOPUP))
        self.phone.start("\\My Documents")
        self.assertTrue(grey[IDM_SENDTO_ZIP])
        self.assertTrue(grey[IDM_FILE_EXTRACT_TO])
        self.assertFalse(grey[IDM_SENDTO_COPY_TO])

    def test_its_calls_can_be_read_afterwards(self):
        self.phone.do()
        self.phone.start("\\My Documents")
        names = [name for name, _ in self.phone.machine.log]
        self.assertEqual(names[-1], "TerminateProcess")
        for name in ("CreateMutexW", "RegisterClassW", "SHCreateMenuBar", "FindFirstFileW", "RegSetValueExW"):
            self.assertIn(name, names)
        with open(HOUSE / "build/device/start.log", "w", encoding="ascii") as log:
            for name, words in self.phone.machine.log:
                print(name, *map(hex, words), file=log)


class MemoryTest(unittest.TestCase):
    """What docs/architecture.md says of memory and stack."""

    def run_with(self, entries):
        """Lists a folder of so many files: the bytes of the heap in use then, and of the stack used."""
        phone = new_phone()
        for number in range(entries):
            phone.add_file(f"\\Temp\\File number {number:05}.txt", b"")
        used = []
        phone.do(lambda: used.append(sum(phone.blocks.values())))
        self.assertEqual(phone.start("\\Temp"), 0)
        return used[0], phone.machine.stack_used()

    def test_memory_at_the_start_and_for_each_entry(self):
        at_start, stack = self.run_with(0)
        self.assertLess(at_start, 24 * KILOBYTE)
        self.assertLess(stack, 16 * KILOBYTE)
        many, stack_of_many = self.run_with(400)
        self.assertLess((many - at_start) / 400, 200)
        self.assertLess(stack_of_many, stack + KILOBYTE)
        print(f"{at_start} bytes of heap at the start, {(many - at_start) / 400:.0f} an entry; {stack} of stack")


class OutOfMemoryTest(unittest.TestCase):
    def setUp(self):
        self.phone = new_phone()
        self.phone.do()

    def run_out_while_listing(self):
        find = self.phone.FindFirstFileW

        def find_and_leave_none(pattern, out):
            self.phone.memory_left = 0
            self.phone.FindFirstFileW = find
            return find(pattern, out)
        self.phone.FindFirstFileW = find_and_leave_none

    def test_the_person_is_told_and_the_program_ends(self):
        self.run_out_while_listing()
        self.phone.box_answer = IDCANCEL
        self.assertEqual(self.phone.start("\\My Documents"), 3)
        self.assertEqual(len(self.phone.boxes), 1)
        self.assertIn("not enough memory", self.phone.boxes[0][0])

    def test_the_program_goes_on_when_there_is_memory_again(self):
        self.run_out_while_listing()
        rows = []

        def answer(_owner, _text, _caption, _kind):
            self.phone.memory_left = None
            return IDRETRY
        self.phone.MessageBoxW = answer
        self.phone.doings.insert(0, lambda: rows.extend(self.phone.names()))
        self.assertEqual(self.phone.start("\\My Documents"), 0)
        self.assertEqual(rows, ROWS)

    def test_nothing_of_the_program_runs_while_the_person_is_asked(self):
        self.run_out_while_listing()
        before = []

        def answer(_owner, _text, _caption, _kind):
            before.append(len(self.phone.machine.log))
            self.phone.memory_left = None
            return IDRETRY
        self.phone.MessageBoxW = answer
        self.phone.start("\\My Documents")
        calls = [name for name, _ in self.phone.machine.log[before[0] - 8:before[0] + 6]]
        self.assertLess(calls.index("CreateThread"), calls.index("MessageBoxW"), "asked on a thread of its own")
        self.assertEqual(calls[calls.index("MessageBoxW") + 1], "GetExitCodeThread")

    def test_without_a_thread_to_ask_on_the_program_ends(self):
        self.run_out_while_listing()
        create = self.phone.CreateThread
        self.phone.CreateThread = lambda a, b, c, d, e, f: (0 if self.phone.memory_left == 0
                                                            else create(a, b, c, d, e, f))
        self.assertEqual(self.phone.start("\\My Documents"), 3)
        self.assertEqual(self.phone.boxes, [])


if __name__ == "__main__":
    unittest.main()
