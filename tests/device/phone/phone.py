"""The phone: all its parts, and how a program is started on it."""

from .core import Core
from .files import Files, Registry
from .machine import Machine, ProcessEnd
from .windows import FOREIGN_PROCEDURE, WM_CLOSE, Window, Windows


class Shell:
    """What aygshell and commctrl add."""

    def _make(self, kind, parent):
        number = self.handle("window")
        self.windows[number] = Window(number, kind, "", 0, parent, FOREIGN_PROCEDURE)
        return number

    def SHCreateMenuBar(self, info):
        self.machine.put_word(info + 28, self._make("menu bar", self.machine.word(info + 4)))
        return True

    def InitCommonControlsEx(self, _record):
        return True

    def CreateStatusWindowW(self, _style, _text, parent, _id):
        return self._make("status bar", parent)

    def CommandBar_Create(self, _instance, parent, _id):
        return self._make("command bar", parent)

    def CommandBar_InsertComboBox(self, bar, _instance, _width, _style, _id, _button):
        combo = self._make("address", bar)
        self._make("edit", combo)
        return combo

    def CommandBar_Height(self, _bar):
        return 26

    def CommandBar_Show(self, _bar, _show):
        return True

    def SHFindMenuBar(self, parent):
        return next((number for number, window in self.windows.items()
                     if window.kind == "menu bar" and window.parent == parent), 0)

    def SipGetInfo(self, _info):
        return True

    def SHGetFileInfo(self, _path, _attributes, _info, _size, _flags):
        return 0


MAIN_WINDOW = "Tarvik File ManagerPLUSUNI"
FOLDERS = ("\\My Documents", "\\My Documents\\Notes", "\\Program Files", "\\Temp", "\\Windows",
           "\\Windows\\Favorites", "\\Windows\\Fonts", "\\Windows\\Start Menu", "\\Windows\\Start Menu\\Programs")


class Phone(Shell, Windows, Files, Registry, Core):
    """`missing` are the calls that this phone's ROM lacks."""

    def __init__(self, image, missing=()):
        super().__init__()
        self.missing = set(missing)
        self.machine = Machine(image, self)
        for folder in FOLDERS:
            self.add_folder(folder)

    # --- The person ---

    def do(self, *doings):
        """What the person does, one thing whenever the program waits; the last is to close the window."""
        self.doings += [*doings, self.close]

    def close(self):
        self.post_to_main(WM_CLOSE)

    def post_to_main(self, message, w=0, l=0):
        self.PostMessageW(self.window_of(MAIN_WINDOW).number, message, w, l)

    def rows(self):
        """The list's rows as they are drawn."""
        return self.window_of("SysListView32").control.texts(self.machine)

    def names(self):
        return [row[0] for row in self.rows()]

    def select(self, name):
        """Selects this row and no other."""
        self.window_of("SysListView32").control.select(self.names().index(name))

    def tree(self):
        """The tree's nodes: [(depth, text)]."""
        control = self.window_of("SysTreeView32").control
        def below(node, depth):
            for number in node.children:
                yield depth, control.nodes[number].text
                yield from below(control.nodes[number], depth + 1)
        return list(below(control.top, 0))

    def start(self, command_line=""):
        """Runs the program to its end. Returns its exit code."""
        try:
            self.machine.call(self.machine.entry, 0x10000, 0, self.machine.new_text(command_line), 5)
        except ProcessEnd as end:
            return end.code
        raise AssertionError("the program's entry came back")
