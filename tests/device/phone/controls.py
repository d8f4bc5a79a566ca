"""The list view and the tree view: their items, as the program puts and asks them."""

from functools import cmp_to_key

SET_PART = 0x40B
LVM = 0x1000
TV = 0x1100
TEXT, IMAGE, PARAMETER, STATE = 1, 2, 4, 8
TEXT_CALLBACK = 0xFFFFFFFF
ALL = 0xFFFFFFFF
SELECTED = 2
NOTIFY, ITEM_EXPANDING, ASK_TEXT = 0x4E, -454, -177


class ListView:
    """`items` holds [text or None where the parent is asked, lParam, state]."""

    def __init__(self, number, parent):
        self.number = number
        self.parent = parent
        self.items = []
        self.columns = []

    def answer(self, machine, message, w, l):
        act = {LVM + 4: lambda: len(self.items), LVM + 9: self._clear, LVM + 12: lambda: self._next(w, l & 0xFFFF),
               LVM + 8: lambda: self._delete(w), LVM + 77: lambda: self._insert(machine, l),
               LVM + 75: lambda: self._get(machine, l), LVM + 76: lambda: self._set(machine, l),
               LVM + 43: lambda: self._set_state(machine, w, l), LVM + 44: lambda: self._state(w, l),
               LVM + 97: lambda: self.columns.append(machine.text(machine.word(l + 12))),
               LVM + 50: lambda: sum(1 for item in self.items if item[2] & SELECTED),
               LVM + 48: lambda: self._sort(machine, w, l), LVM + 29: lambda: 60}.get(message)
        result = act() if act else 0
        return result or 0

    def texts(self, machine):
        """The rows as they are drawn: asks the parent for each column's text."""
        rows = []
        record, room = machine.allocate(72), machine.allocate(520)
        for row, item in enumerate(self.items):
            shown = [] if item[0] is None else [item[0]]
            for column in range(len(shown), len(self.columns)):
                machine.write(record, bytes(72))
                machine.write(room, bytes(2))
                for place, word in ((0, self.number), (8, ASK_TEXT), (12, TEXT | PARAMETER), (16, row), (20, column),
                                    (32, room), (36, 260), (44, item[1])):
                    machine.put_word(record + place, word)
                machine.platform.send(self.parent, NOTIFY, 0, record)
                shown.append(machine.text(machine.word(record + 32)))
            rows.append(tuple(shown))
        return rows

    def select(self, row):
        for number, item in enumerate(self.items):
            item[2] = SELECTED if number == row else 0

    def _clear(self):
        self.items.clear()
        return True

    def _delete(self, index):
        del self.items[index]
        return True

    def _insert(self, machine, record):
        mask, index, _, state, _, text, _, _, parameter = machine.words(record, 9)
        index = min(index, len(self.items))
        shown = None if not mask & TEXT or text == TEXT_CALLBACK else machine.text(text)
        self.items.insert(index, [shown, parameter if mask & PARAMETER else 0, state if mask & STATE else 0])
        return index

    def _get(self, machine, record):
        mask, index = machine.words(record, 2)
        if index >= len(self.items):
            return False
        if mask & PARAMETER:
            machine.put_word(record + 32, self.items[index][1])
        if mask & STATE:
            machine.put_word(record + 12, self.items[index][2])
        return True

    def _set(self, machine, record):
        mask, index, _, _, _, _, _, _, parameter = machine.words(record, 9)
        if index >= len(self.items):
            return False
        if mask & PARAMETER:
            self.items[index][1] = parameter
        return True

    def _set_state(self, machine, index, record):
        state, mask = machine.words(record + 12, 2)
        for number in range(len(self.items)) if index == ALL else [index]:
            if number < len(self.items):
                self.items[number][2] = self.items[number][2] & ~mask | state & mask
        return True

    def _state(self, index, mask):
        return self.items[index][2] & mask if index < len(self.items) else 0

    def _next(self, after, flags):
        start = 0 if after == ALL else after + 1
        wanted = {0: 0, 1: 1, 2: 2}.get(flags & 3, 0)
        return next((number for number in range(start, len(self.items))
                     if not wanted or self.items[number][2] & wanted), ALL)

    def _sort(self, machine, parameter, compare):
        def order(a, b):
            answer = machine.call(compare, a[1], b[1], parameter)
            return answer - (1 << 32) if answer >> 31 else answer
        self.items.sort(key=cmp_to_key(order))
        return True


class StatusBar:
    """`parts` are its texts by number."""

    def __init__(self, _number, _parent):
        self.parts = {}

    def answer(self, machine, message, w, l):
        if message == SET_PART:
            self.parts[w & 0xFF] = machine.text(l)
        return 1


class Node:
    def __init__(self, text, parent, parameter):
        self.text = text
        self.parent = parent
        self.parameter = parameter
        self.children = []


class TreeView:
    """`nodes` by their handles; `caret` is the selected one's."""

    ROOT = 0xFFFF0000

    def __init__(self, number, parent):
        self.number = number
        self.parent = parent
        self.nodes = {}
        self.top = Node("", None, 0)
        self.caret = 0

    def answer(self, machine, message, w, l):
        act = {TV + 50: lambda: self._insert(machine, l), TV + 1: lambda: self._delete(l), TV + 10: lambda: self._near(w, l),
               TV + 11: lambda: self._select(l), TV + 62: lambda: self._get(machine, l),
               TV + 2: lambda: self._expand(machine, w, l), TV + 63: lambda: True}.get(message)
        result = act() if act else 0
        return result or 0

    def _insert(self, machine, record):
        parent = machine.word(record)
        text, parameter = machine.word(record + 8 + 16), machine.word(record + 8 + 36)
        above = self.nodes.get(parent, self.top)
        number = 0x600000 + 4 * (len(self.nodes) + 1)
        self.nodes[number] = Node(machine.text(text), parent if parent in self.nodes else 0, parameter)
        above.children.append(number)
        return number

    def _delete(self, number):
        if number in (0, self.ROOT):
            self.nodes.clear()
            self.top.children.clear()
            return True
        for child in list(self.nodes[number].children):
            self._delete(child)
        self.nodes.get(self.nodes[number].parent, self.top).children.remove(number)
        del self.nodes[number]
        return True

    def _expand(self, machine, how, number):
        """Tells the parent first, which then puts the node's children."""
        record = machine.allocate(104)
        machine.write(record, bytes(104))
        for place, word in ((0, self.number), (8, ITEM_EXPANDING), (12, how), (60, number)):
            machine.put_word(record + place, word)
        machine.platform.send(self.parent, NOTIFY, 0, record)
        return True

    def _near(self, how, number):
        if how == 9:
            return self.caret
        if how == 0:
            return self.top.children[0] if self.top.children else 0
        node = self.nodes.get(number, self.top)
        if how == 3:
            return node.parent or 0
        if how == 4:
            return node.children[0] if node.children else 0
        if how == 1:
            beside = self.nodes.get(node.parent, self.top).children
            behind = beside[beside.index(number) + 1:]
            return behind[0] if behind else 0
        return 0

    def _select(self, number):
        self.caret = number
        return True

    def _get(self, machine, record):
        mask, number, _, _, text, capacity = machine.words(record, 6)
        if number not in self.nodes:
            return False
        if mask & TEXT:
            machine.put_text(text, self.nodes[number].text, capacity)
        if mask & 0x40:
            machine.put_word(record + 32, bool(self.nodes[number].children))
        return True
