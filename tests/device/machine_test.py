#!/usr/bin/python3
"""The simulated phone notices what a phone would end the program for, and more."""

import unittest

from functions_test import LOCALE, Callee
from phone.machine import PAGE, STACK_SIZE, Fault
from unicorn.arm_const import UC_ARM_REG_SP


class MachineTest(unittest.TestCase):
    def setUp(self):
        self.callee = Callee()
        self.machine = self.callee.machine
        self.entry = (0x20, 127984320000000000, 5, "a")

    def expect_fault(self, words, name, *arguments):
        with self.assertRaisesRegex(Fault, words):
            self.callee.call(name, *arguments)

    def stack_end(self):
        """The lowest place of the stack: the program has the first of them."""
        return self.machine.cpu.reg_read(UC_ARM_REG_SP) - STACK_SIZE + PAGE

    def test_an_unaligned_access(self):
        self.callee.FormatDateTime(self.entry[1], 0, 40)
        self.expect_fault("not aligned", "FormatDateTime", self.callee.path + 7, self.callee.room, 40, 1, LOCALE)

    def test_an_access_to_what_was_given_back(self):
        self.assertEqual(self.callee.CompareBySize(*self.entry, *self.entry, 1), [0])
        self.machine.heap.give_back(self.callee.items[0], 128)
        self.expect_fault("no block of the heap", "CompareBySize", *self.callee.items, 1)

    def test_an_access_behind_a_block(self):
        place = self.machine.allocate(4)
        self.expect_fault("no block of the heap", "CompareBySize", self.callee.items[0], place, 1)

    def test_a_null_pointer(self):
        self.expect_fault("at 0x", "CompareBySize", 0, 0, 1)

    def test_writing_into_the_code(self):
        self.expect_fault("UC_ERR_WRITE_PROT", "MakeFileItem", self.callee.places["FormatSize"], self.callee.folder,
                          self.callee.records[0])

    def test_a_stack_that_is_used_up(self):
        self.machine.cpu.reg_write(UC_ARM_REG_SP, self.stack_end() + 64)
        self.expect_fault("access", "FormatSize", 5, 0, self.callee.room, 32, *self.callee.formats, LOCALE)

    def test_a_block_given_back_twice(self):
        place = self.callee.phone.malloc(8)
        self.callee.phone.free(place)
        with self.assertRaises(KeyError):
            self.callee.phone.free(place)


if __name__ == "__main__":
    unittest.main()
