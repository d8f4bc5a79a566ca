# What Wine looks for in a library of the host's own kind, to take it for one of its modules: the headers and the
# table of exports of a Windows library. Wine lays the headers over the space that is left for them here, and
# reckons all places from there on.

        .section ".init", "ax"
        jmp 1f
space:
        .skip 0x11000                   # 64 KB on a boundary of 64 KB, wherever it comes to lie, and a page
1:

        .data
        .align 4
        .globl __wine_spec_nt_header
__wine_spec_nt_header:
headers:
        .long 0x4550                    # "PE"
        .short 0x014c, 0                # i386; sections: Wine makes them up
        .long 0, 0, 0
        .short 224, 0x2102              # of what follows; a library, 32 bits, no relocations
        .short 0x010b
        .byte 1, 0
        .long 0, 0, 0
        .long DllMain
        .long 0, 0
        .long space                     # the module's base
        .long 0x1000, 0x1000            # units of memory and file
        .short 1, 0, 0, 0, 4, 0
        .long 0
        .long _end - headers            # size
        .long 0x1000, 0
        .short 3, 0x0100                # a text program; not executable data
        .long 0x100000, 0x1000, 0x100000, 0x1000, 0
        .long 16
        .long exports - headers, exports_end - exports
        .skip 15 * 8

exports:
        .long 0, 0, 0
        .long name - headers
        .long 1, 3, 3
        .long functions - headers, names - headers, numbers - headers
functions:
        .long CpuLocate, CpuOpen, CpuRun
names:
        .long locate - headers, open - headers, run - headers
numbers:
        .short 0, 1, 2
name:   .string "cpu.dll"
locate: .string "CpuLocate"
open:   .string "CpuOpen"
run:    .string "CpuRun"
        .align 4
exports_end:

        .hidden _end                    # of this library, not of the first one that has the name
        .section .note.GNU-stack, "", @progbits
