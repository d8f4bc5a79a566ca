"""Windows, messages, menus and the controls that the program talks to, as far as it needs them to run."""

from .controls import ListView, StatusBar, TreeView

VISIBLE, CHILD = 0x10000000, 0x40000000
WM_CREATE, WM_DESTROY, WM_CLOSE, WM_SETTEXT, WM_QUIT, WM_COMMAND = 0x1, 0x2, 0x10, 0xC, 0x12, 0x111
WINDOW_PROCEDURE, STYLE, OWN_DATA = -4, -16, -21
# Stands for the procedure of a class that is not the program's.
FOREIGN_PROCEDURE = 0x0EEE0000


CONTROLS = {"SysListView32": ListView, "SysTreeView32": TreeView, "status bar": StatusBar}


class Window:
    def __init__(self, number, kind, text, style, parent, procedure):
        self.number = number
        self.kind = kind
        self.text = text
        self.style = style
        self.parent = parent
        self.procedure = procedure
        self.place = (0, 0, 0, 0)
        self.longs = {}
        self.control = CONTROLS.get(kind, Plain)(number, parent)


class Plain:
    """A control of which nothing is known but that it is there."""

    def __init__(self, _number, _parent):
        pass

    def answer(self, _machine, _message, _w, _l):
        return 0


class Windows:
    """Part of the phone: needs `machine`. The person's doings are a queue of functions, one done whenever the
    program waits for a message."""

    def __init__(self):
        super().__init__()
        self.windows = {}
        self.classes = {}
        self.posted = []
        self.doings = []
        self.timers = set()
        self.focus = 0
        self.quit = None
        self.menus = {}
        self.clipboard = None
        self.boxes = []
        self.box_answer = 1

    def window_of(self, kind):
        return next(window for window in self.windows.values() if window.kind == kind)

    # --- Windows ---

    def RegisterClassW(self, record):
        words = self.machine.words(record, 10)
        self.classes[self.machine.text(words[9])] = words[1]
        return True

    def FindWindowW(self, kind, _title):
        kind = self.machine.text(kind)
        return next((number for number, window in self.windows.items() if window.kind == kind), 0)

    def CreateWindowExW(self, _ex_style, kind, text, style, _x, _y, _width, _height, parent, _menu, _instance, _parameter):
        kind = self.machine.text(kind)
        number = self.handle("window")
        procedure = self.classes.get(kind, FOREIGN_PROCEDURE)
        self.windows[number] = Window(number, kind, self.machine.text(text) or "", style, parent, procedure)
        self.send(number, WM_CREATE, 0, 0)
        return number

    def DestroyWindow(self, number):
        if number not in self.windows:
            return False
        self.send(number, WM_DESTROY, 0, 0)
        for child in [child for child, window in self.windows.items() if window.parent == number]:
            self.DestroyWindow(child)
        del self.windows[number], self.handles[number]
        return True

    def DefWindowProcW(self, number, message, w, l):
        if message == WM_CLOSE:
            self.DestroyWindow(number)
        return self._foreign(number, message, w, l)

    def CallWindowProcW(self, _procedure, number, message, w, l):
        return self._foreign(number, message, w, l)

    def _foreign(self, number, message, w, l):
        window = self.windows[number]
        if message == WM_SETTEXT:
            window.text = self.machine.text(l)
            return 1
        return window.control.answer(self.machine, message, w, l)

    def send(self, number, message, w=0, l=0):
        """Gives a window a message as the platform does. Returns its answer."""
        window = self.windows.get(number)
        if not window:
            return 0
        if window.procedure == FOREIGN_PROCEDURE:
            return self._foreign(number, message, w, l)
        return self.machine.call(window.procedure, number, message, w, l)

    def SendMessageW(self, number, message, w, l):
        return self.send(number, message, w, l)

    def GetWindowLongW(self, number, index):
        window = self.windows[number]
        index = index - (1 << 32) if index >> 31 else index
        if index == WINDOW_PROCEDURE:
            return window.procedure
        return window.style if index == STYLE else window.longs.get(index, 0)

    def SetWindowLongW(self, number, index, value):
        old = self.GetWindowLongW(number, index)
        window = self.windows[number]
        index = index - (1 << 32) if index >> 31 else index
        if index == WINDOW_PROCEDURE:
            window.procedure = value
        elif index == STYLE:
            window.style = value
        else:
            window.longs[index] = value
        return old

    def ShowWindow(self, number, how):
        window = self.windows[number]
        was = bool(window.style & VISIBLE)
        window.style = window.style | VISIBLE if how else window.style & ~VISIBLE
        return was

    def IsWindowVisible(self, number):
        return bool(self.windows[number].style & VISIBLE)

    def _place(self, number, x, y, width, height):
        self.windows[number].place = tuple(each - (1 << 32) if each >> 31 else each for each in (x, y, width, height))
        return True

    def MoveWindow(self, number, x, y, width, height, _repaint):
        return self._place(number, x, y, width, height)

    def SetWindowPos(self, number, _behind, x, y, width, height, flags):
        return True if flags & 3 else self._place(number, x, y, width, height)

    def GetClientRect(self, number, out):
        width, height = self.windows[number].place[2:] if self.windows[number].parent else (240, 268)
        for index, value in enumerate((0, 0, width, height)):
            self.machine.put_word(out + 4 * index, value)
        return True

    GetWindowRect = GetClientRect

    def GetFocus(self):
        return self.focus

    def SetFocus(self, number):
        old, self.focus = self.focus, number
        return old

    def GetParent(self, number):
        return self.windows[number].parent

    def GetDlgItem(self, _dialog, _id):
        return 0

    def GetWindow(self, number, how):
        if how != 5:
            return 0
        return next((child for child, window in self.windows.items() if window.parent == number), 0)

    def SetWindowTextW(self, number, text):
        self.windows[number].text = self.machine.text(text)
        return True

    def GetWindowTextW(self, number, out, capacity):
        return self.machine.put_text(out, self.windows[number].text, capacity)

    def IsChild(self, parent, number):
        return number in self.windows and self.windows[number].parent == parent

    def UpdateWindow(self, _number):
        return True

    def InvalidateRect(self, _number, _rect, _erase):
        return True

    def EnableWindow(self, _number, _enable):
        return False

    def MessageBoxW(self, _owner, text, caption, _kind):
        self.boxes.append((self.machine.text(text), self.machine.text(caption)))
        return self.box_answer

    # --- Clipboard and keys ---

    def OpenClipboard(self, _owner):
        return True

    def CloseClipboard(self):
        return True

    def EmptyClipboard(self):
        self.clipboard = None
        return True

    def SetClipboardData(self, _format, place):
        self.clipboard = self.machine.text(place)
        return place

    def IsClipboardFormatAvailable(self, _format):
        return self.clipboard is not None

    def keybd_event(self, _key, _scan, _flags, _extra):
        return 0

    def GetKeyState(self, _key):
        return 0

    GetAsyncKeyState = GetKeyState

    # --- Messages ---

    def GetMessageW(self, out, _window, _first, _last):
        while not self.posted and self.quit is None:
            if not self.doings:
                raise RuntimeError("the program waits, and the person has no more to do")
            self.doings.pop(0)()
        if self.posted:
            for index, word in enumerate(self.posted.pop(0)):
                self.machine.put_word(out + 4 * index, word)
            return True
        self.machine.put_word(out + 4, WM_QUIT)
        self.machine.put_word(out + 8, self.quit)
        return False

    def PeekMessageW(self, _out, _window, _first, _last, _flags):
        return False

    def PostMessageW(self, number, message, w, l):
        self.posted.append((number, message, w, l))
        return True

    def TranslateAcceleratorW(self, _number, _table, _message):
        return False

    def TranslateMessage(self, _message):
        return False

    def DispatchMessageW(self, message):
        return self.send(*self.machine.words(message, 4))

    def PostQuitMessage(self, code):
        self.quit = code

    def SetTimer(self, number, timer, _time, _procedure):
        self.timers.add((number, timer))
        return timer

    def KillTimer(self, number, timer):
        self.timers.discard((number, timer))
        return True

    # --- Resources and drawing: handles of what is there by its number ---

    def _load(self, _instance, number):
        return self.handle({"resource": number})

    LoadAcceleratorsW = LoadIconW = LoadCursorW = _load

    def LoadImageW(self, instance, number, _kind, _width, _height, _flags):
        return self._load(instance, number)

    def DestroyIcon(self, icon):
        del self.handles[icon]
        return True

    def GetSysColor(self, number):
        return 0xFFFFFF if number & 0x40000000 else 0

    def CreateSolidBrush(self, colour):
        return self.handle({"brush": colour})

    def CreateFontIndirectW(self, _font):
        return self.handle("font")

    def DeleteObject(self, thing):
        del self.handles[thing]
        return True

    def GetStockObject(self, _number):
        return self.handle("stock")

    def SetCursor(self, cursor):
        return cursor

    def GetSystemMetrics(self, number):
        return {0: 240, 1: 320, 2: 13, 3: 13, 11: 32, 12: 32, 49: 16, 50: 16}.get(number, 1)

    def ImageList_Create(self, _width, _height, _flags, _count, _grow):
        return self.handle({"images": 0})

    def ImageList_ReplaceIcon(self, images, _index, _icon):
        self.handles[images]["images"] += 1
        return self.handles[images]["images"] - 1

    def ImageList_Destroy(self, images):
        del self.handles[images]
        return True

    # --- Menus ---

    def LoadMenuW(self, _instance, number):
        return self.handle({"menu": number})

    def CreatePopupMenu(self):
        return self.handle({"menu": 0})

    def DestroyMenu(self, menu):
        del self.handles[menu]
        return True

    def GetSubMenu(self, menu, position):
        return self.menus.setdefault((menu, position), 0x50000 + len(self.menus)) if menu and position < 8 else 0

    def CheckMenuItem(self, _menu, _item, _flags):
        return 0

    def EnableMenuItem(self, _menu, _item, _flags):
        return 0

    def AppendMenuW(self, _menu, _flags, _id, _text):
        return True

    def InsertMenuW(self, _menu, _position, _flags, _id, _text):
        return True

    def RemoveMenu(self, _menu, _item, _flags):
        return True

    def DeleteMenu(self, _menu, _item, _flags):
        return False
