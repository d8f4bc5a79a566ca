# The desktop at 32 bits: the workbench runs the phone's executable in such a process, where its addresses are
# the process's own.
set(TARVIK_PROCESSOR i686)
include(${CMAKE_CURRENT_LIST_DIR}/desktop.toolchain.cmake)
