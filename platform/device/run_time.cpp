// What a C++ program finds in its run-time elsewhere: its entry, its memory, and its end when it cannot go
// on.

#include <cstdlib>
#include <new>

#include "platform/device/out_of_memory.h"

namespace {

/// What the phone calls the process that asks.
HANDLE ThisProcess() {
    return reinterpret_cast<HANDLE>(66);
}

/// Ends the process at once. What is on disk stays as it is, and the phone takes everything else back.
[[noreturn]] void EndProcess(UINT exitCode) {
    for (;;)
        TerminateProcess(ThisProcess(), exitCode);
}

void* Allocate(std::size_t size) {
    for (;;) {
        if (void* block = std::malloc(size != 0 ? size : 1))
            return block;
        if (!AskToTryAgain())
            EndProcess(exitOutOfMemory);
    }
}

using Constructor = void (*)();

} // namespace

extern "C" {
extern const Constructor __constructors_start[]; // by image.ld
extern const Constructor __constructors_end[];
void* dsoHandle asm("__dso_handle") = nullptr; // the compiler has declared that name itself by now

/// The process ends without taking its own objects down.
int __cxa_atexit(void (*)(void*), void*, void*) {
    return 0;
}

void __cxa_pure_virtual() {
    EndProcess(exitFault);
}

void WinMainCRTStartup(HINSTANCE instance, HINSTANCE, wchar_t* commandLine, int) {
    PrepareForTheEnd();
    for (const Constructor* constructor = __constructors_start; constructor != __constructors_end;
         ++constructor)
        (*constructor)();
    EndProcess(static_cast<UINT>(ProgramMain(instance, commandLine)));
}
}

void* operator new(std::size_t size) {
    return Allocate(size);
}

void* operator new[](std::size_t size) {
    return Allocate(size);
}

void operator delete(void* block) noexcept {
    std::free(block);
}

void operator delete(void* block, std::size_t) noexcept {
    std::free(block);
}

void operator delete[](void* block) noexcept {
    std::free(block);
}

void operator delete[](void* block, std::size_t) noexcept {
    std::free(block);
}

namespace std {

// More than any memory could hold.
void __throw_bad_alloc() {
    EndProcess(exitOutOfMemory);
}

void __throw_bad_array_new_length() {
    EndProcess(exitOutOfMemory);
}

void __throw_length_error(const char*) {
    EndProcess(exitOutOfMemory);
}

void __throw_out_of_range_fmt(const char*, ...) {
    EndProcess(exitFault);
}

} // namespace std
