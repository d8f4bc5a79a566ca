# shellcheck shell=bash
# The workbench: the phone's own executable, run by an emulated processor in a 32-bit process of Wine's.
# For what sources device.sh, too.

# What it takes to make the phone's executable and what runs it.
# shellcheck disable=SC2034  # not every script needs it
readonly workbench_tools=("${device_tools[@]}" gcc i686-w64-mingw32-g++-posix i686-w64-mingw32-windres
    /lib/ld-linux.so.2 /usr/i686-w64-mingw32/include/zlib.h)

# use_wine32: from here on, Wine is the one for 32-bit programs.
use_wine32() {
    local wine32
    wine32=$("$house/scripts/fetch_wine32") || exit
    export PATH=$wine32/bin:$PATH WINEARCH=win32
}

# use_phone_program FOLDER: from here on, the program is the phone's own; the folder is a private one, for reports.
use_phone_program() {
    local workbench=$house/build/workbench/companions/workbench
    use_wine32
    export TARVIK_PHONE_PROGRAM=$house/build/device/TarvikFileManager.exe
    export TARVIK_PHONE_SYMBOLS=$house/build/device/platform/device/link/TarvikFileManager.elf
    export TARVIK_PHONE_CPU=$workbench/cpu.dll.so TARVIK_PHONE_REPORT=$1/phone-report
    # shellcheck disable=SC2034  # device.sh's
    built=$house/build/workbench
    # shellcheck disable=SC2034
    program_files=("$workbench/TarvikFileManager.exe" "$house/build/workbench/UNZip.dll")
}
