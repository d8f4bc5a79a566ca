#!/usr/bin/env python3
"""Checks that the program gets along with the phone's stack of 128 KB, which every thread has.

    check_stack.py PROGRAM.elf STACK_USE.txt

Reads the frames and calls of all functions in the machine code; STACK_USE.txt says what is not to be seen there.
Fails when a function may call itself, when one calls by a pointer and is not listed, and when a limit is passed:
for what one call from the phone takes until it returns, and for such calls within each other. The other half of
the stack is the phone's own: windows, menus and dialogs call the program from inside their own functions.
"""
import re
import struct
import subprocess
import sys
from fnmatch import fnmatchcase

from elf import Elf

ENTRY_LIMIT = 14 * 1024
NESTED_LIMIT = 64 * 1024

FUNCTION = re.compile(r'([0-9a-f]{8}) <(.+)>:')
INSTRUCTION = re.compile(r'\s*[0-9a-f]+:\s+(\S+)\s*(.*)')
CONDITION = '(eq|ne|cs|cc|mi|pl|vs|vc|hi|ls|ge|lt|gt|le)?'
BRANCH = re.compile(f'bl?{CONDITION}')
BRANCH_BY_POINTER = re.compile(f'bx{CONDITION}')
# What changes the stack pointer and is neither a push, a pop nor the taking and giving back of a known size.
ODD_USE = re.compile(r'(?!ldr|str|ldm|stm|pop|push)\S+\s+sp, (?!sp, #)|\S+\s+.*\[sp, .*\]!|\S+\s+sp!')


class Function:
    def __init__(self, name):
        self.name = name
        self.frame = 0
        self.calls = set()
        self.calls_by_pointer = False


def read_instruction(function, operation, arguments):
    if operation.startswith('push'):
        function.frame += 4 * (arguments.split('}')[0].count(',') + 1)
    elif operation == 'sub' and arguments.startswith('sp, sp, #'):
        function.frame += int(arguments[9:].split()[0])
    elif BRANCH.fullmatch(operation):
        target = re.search(r'<([^+>]+)', arguments)[1]
        if target != function.name:
            function.calls.add(target)
    elif BRANCH_BY_POINTER.fullmatch(operation) and not arguments.startswith('lr'):
        function.calls_by_pointer = True
    elif ODD_USE.match(f'{operation} {arguments}'):
        raise ValueError(f'{function.name} uses the stack in a new way: {operation} {arguments}')


def read_functions(program):
    """The functions of the program by their names, and all words that may be the address of one."""
    listing = subprocess.run(['arm-none-eabi-objdump', '-d', '--no-show-raw-insn', program],
                             capture_output=True, text=True, check=True).stdout
    functions, places, words = {}, {}, set()
    for line in listing.splitlines():
        if head := FUNCTION.fullmatch(line):
            function = functions[head[2]] = Function(head[2])
            places[int(head[1], 16)] = head[2]
        elif instruction := INSTRUCTION.fullmatch(line):
            operation, arguments = instruction.groups()
            if operation == '.word':
                words.add(int(arguments.split()[0], 16))
            else:
                read_instruction(function, operation, arguments)
    elf = Elf(program)
    for name in ('.rdata', '.data'):
        content = elf.content(name)
        words.update(word for word, in struct.iter_unpack('<I', content[:len(content) & ~3]))
    return functions, {places[word] for word in words if word in places}


def plain_names(names):
    """What the names are in the sources, without arguments: {name: plain name}."""
    names = list(names)
    shown = subprocess.run(['arm-none-eabi-c++filt', '-p'], input='\n'.join(names), capture_output=True, text=True,
                           check=True).stdout.split('\n')
    return {name: plain.replace('(anonymous namespace)::', '') for name, plain in zip(names, shown)}


def read_list(path):
    """The indirect calls, {caller: callees}, the functions that may call themselves, {name: times}, and the nested
    entries."""
    parts = {}
    with open(path, encoding='ascii') as lines:
        for line in lines:
            line = line.split('#')[0].strip()
            if line.startswith('['):
                part = parts.setdefault(line.strip('[]'), [])
            elif line:
                part.append(line)
    calls = {}
    for line in parts['indirect calls']:
        caller, callees = line.rsplit(': ', 1)
        calls[caller] = callees.split()
    repeated = dict(line.rsplit(' ', 1) for line in parts['repeated calls'])
    return calls, {name: int(times) for name, times in repeated.items()}, parts['nested entries']


class StackUse:
    def __init__(self, program, listed):
        self.functions, taken = read_functions(program)
        self.plain = plain_names(self.functions)
        indirect, self.repeated, self.nested = read_list(listed)
        self._add_indirect_calls(indirect, taken)
        self._depths = {}
        called = set().union(*(function.calls for function in self.functions.values()))
        self.entries = sorted((taken - called) | {'WinMainCRTStartup'}, key=self.plain.get)

    def _add_indirect_calls(self, indirect, taken):
        for function in self.functions.values():
            if not function.calls_by_pointer or not (function.calls or function.frame):
                continue  # the latter are the stubs of the imports
            plain = self.plain[function.name]
            patterns = [pattern for caller, callees in indirect.items() if fnmatchcase(plain, caller)
                        for pattern in callees]
            if not patterns:
                raise ValueError(f'{plain} calls by a pointer: say in stack_use.txt what')
            function.calls |= {name for name in taken if name != function.name
                               and any(fnmatchcase(self.plain[name], pattern) for pattern in patterns)}

    def depth(self, name, above=()):
        """The bytes of the deepest chain of calls that begins with a function, and the chain."""
        if above.count(name) == self.repeated.get(self.plain[name], len(above) + 1):
            return 0, ()
        repeated = tuple(each for each in above if self.plain[each] in self.repeated)
        if name in above and not set(repeated) & set(above[above.index(name):]):
            circle = ' > '.join(self.plain[each] for each in above[above.index(name):] + (name,))
            raise ValueError(f'may call itself: {circle}')
        if (name, repeated) not in self._depths:
            function = self.functions[name]
            below = [self.depth(callee, above + (name,)) for callee in sorted(function.calls)
                     if callee in self.functions]
            size, chain = max(below, default=(0, ()))
            self._depths[name, repeated] = size + function.frame, (name,) + chain
        return self._depths[name, repeated]

    def entry_depth(self, plain):
        """The deepest chain of the entries of a plain name."""
        return max(self.depth(name) for name in self.entries if self.plain[name] == plain)

    def show(self, chain):
        return '\n'.join(f'    {self.functions[name].frame:6} {self.plain[name]}' for name in chain)


def main(program, listed):
    use = StackUse(program, listed)
    size, chain = max(use.depth(name) for name in use.entries)
    nested = sum(use.entry_depth(plain)[0] for plain in use.nested)
    frame = max(function.frame for function in use.functions.values())
    print(f'Stack: largest frame {frame} bytes, deepest entry {size}, entries within each other {nested}')
    if size > ENTRY_LIMIT:
        sys.exit(f'{use.plain[chain[0]]} takes more than {ENTRY_LIMIT} bytes of stack:\n{use.show(chain)}')
    if nested > NESTED_LIMIT:
        sys.exit(f'entries within each other take more than {NESTED_LIMIT} bytes of stack')


if __name__ == '__main__':
    try:
        main(*sys.argv[1:])
    except ValueError as problem:
        sys.exit(f'check_stack.py: {problem}')
