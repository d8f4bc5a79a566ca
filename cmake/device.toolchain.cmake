# Bare-metal ARM g++ fed with mingw-w64's Windows and C++ headers: it compiles every source for the
# phone's processor and C++ subset, so that nothing creeps in that the phone cannot run.
set(CMAKE_SYSTEM_NAME Generic)
set(CMAKE_SYSTEM_PROCESSOR arm)
set(CMAKE_CXX_COMPILER arm-none-eabi-g++)
set(CMAKE_CXX_COMPILER_WORKS TRUE)
set(TARVIK_TARGET device)

file(GLOB mingw_cxx /usr/lib/gcc/x86_64-w64-mingw32/*-posix/include/c++)
list(GET mingw_cxx 0 mingw_cxx)
execute_process(COMMAND arm-none-eabi-g++ -print-file-name=include OUTPUT_VARIABLE arm_include
                OUTPUT_STRIP_TRAILING_WHITESPACE)
# -mabi and what follows it is the phone's calling convention and layout of structures.
string(JOIN " " CMAKE_CXX_FLAGS_INIT
    -march=armv4t -marm -mfloat-abi=soft -mabi=apcs-gnu -mthumb-interwork -mstructure-size-boundary=8
    -fpcc-struct-return -mno-unaligned-access -fsigned-char -fno-short-enums -fshort-wchar -fms-extensions
    -fno-unwind-tables -fno-asynchronous-unwind-tables -fno-threadsafe-statics
    -include ${CMAKE_CURRENT_LIST_DIR}/../platform/device/shim/sizes.h
    -nostdinc -nostdinc++ -isystem ${mingw_cxx} -isystem ${mingw_cxx}/x86_64-w64-mingw32
    -isystem ${CMAKE_CURRENT_LIST_DIR}/../platform/device/shim -isystem ${arm_include}
    -isystem /usr/share/mingw-w64/include
    -D_WIN32 -DWIN32 -D_ARM_ -D__stdcall= -D__cdecl= '-D__declspec\(x\)=__attribute__\(\(x\)\)')
