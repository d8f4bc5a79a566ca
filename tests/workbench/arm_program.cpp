// A program for the phone's processor that does what its command line says: something that must go well, with
// a line's number as its exit code when it does not, or something that a phone punishes.

#include <cstdarg>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <cwchar>

#include "platform/ce_api.h"

extern "C" {
// Each faults at its third instruction.
void ReadAtThird(std::uintptr_t address);
void WriteAtThird(std::uintptr_t address);
void CallAtThird(std::uintptr_t address);
void UndefinedAtThird();
asm(".macro faulty name, instruction\n"
    ".section .text.\\name, \"ax\"\n"
    ".global \\name\n.type \\name, %function\n"
    "\\name: mov r1, r0\n mov r2, r1\n \\instruction\n bx lr\n"
    ".size \\name, . - \\name\n"
    ".endm\n"
    "faulty ReadAtThird, \"ldr r3, [r2]\"\n"
    "faulty WriteAtThird, \"str r3, [r2]\"\n"
    "faulty CallAtThird, \"bx r2\"\n"
    "faulty UndefinedAtThird, \".word 0xe7f000f0\"\n"
    ".text\n");
}

namespace {

/// What is not so ends the program with its line.
int firstFailure = 0;
void Check(bool holds, int line) {
    if (!holds && firstFailure == 0)
        firstFailure = line;
}
#define CHECK(condition) Check(condition, __LINE__)

// --- What must go well ---

bool Writes(const wchar_t* expected, const wchar_t* format, ...) {
    wchar_t text[100];
    va_list arguments;
    va_start(arguments, format);
    _vsnwprintf(text, 100, format, arguments);
    va_end(arguments);
    return wcscmp(text, expected) == 0;
}

void PassLongValues() {
    CHECK(Writes(L"1 1234567890123 2", L"%d %I64d %d", 1, 1234567890123LL, 2));
    CHECK(Writes(L"1.500000 7 -0.250000", L"%f %d %f", 1.5, 7, -0.25));
}

void PassStructures() {
    SYSTEMTIME time{};
    time.wYear = 2006, time.wMonth = 5, time.wDay = 1, time.wHour = 23;
    FILETIME moment{};
    CHECK(SystemTimeToFileTime(&time, &moment));
    SYSTEMTIME back{};
    CHECK(FileTimeToSystemTime(&moment, &back));
    CHECK(back.wYear == 2006 && back.wDay == 1 && back.wHour == 23);
}

constexpr UINT countDown = WM_USER + 1;

LRESULT CALLBACK CountDown(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != countDown)
        return DefWindowProcW(window, message, wParam, lParam);
    return wParam == 0 ? lParam : SendMessageW(window, countDown, wParam - 1, lParam + 3) + 1;
}

void CallBackFromWithin() {
    WNDCLASSW description{};
    description.lpszClassName = L"CountDown";
    description.lpfnWndProc = CountDown;
    CHECK(RegisterClassW(&description) != 0);
    const HWND window =
        CreateWindowExW(0, L"CountDown", L"", WS_CHILD, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr);
    CHECK(window != nullptr);
    constexpr int depth = 40;
    CHECK(SendMessageW(window, countDown, depth, 2) == 2 + 3 * depth + depth);
    CHECK(DestroyWindow(window));
}

DWORD WINAPI Add(void* upTo) {
    DWORD sum = 0;
    for (DWORD number = 1; number <= reinterpret_cast<std::uintptr_t>(upTo); ++number) {
        sum += number;
        if (number % 64 == 0)
            GetTickCount();
    }
    return sum;
}

void RunThreads() {
    constexpr int rounds = 5, count = 4;
    for (int round = 0; round < rounds; ++round) {
        HANDLE threads[count];
        for (int number = 0; number < count; ++number)
            threads[number] =
                CreateThread(nullptr, 0, Add, reinterpret_cast<void*>(1000u * (number + 1)), 0, nullptr);
        for (int number = 0; number < count; ++number) {
            const DWORD last = 1000u * (number + 1);
            DWORD sum = 0;
            WaitForSingleObject(threads[number], INFINITE);
            CHECK(GetExitCodeThread(threads[number], &sum) && sum == last * (last + 1) / 2);
            CHECK(CloseHandle(threads[number]));
        }
    }
}

// Volatile, so that the compiler makes no loop of it.
int __attribute__((noinline)) Deep(int levels) {
    volatile int here[200];
    here[0] = levels;
    return levels == 0 ? 0 : Deep(levels - 1) + (here[0] == levels ? 1 : 0);
}

void RecurseDeep() {
    CHECK(Deep(100) == 100); // 80 KB
}

void FindByName() {
    const HMODULE core = GetModuleHandleW(L"coredll.dll");
    using TickCount = DWORD();
    const FARPROC found = GetProcAddressW(core, L"GetTickCount");
    auto* const tickCount = reinterpret_cast<TickCount*>(reinterpret_cast<void*>(found));
    CHECK(tickCount && tickCount() - GetTickCount() + 60000 < 120000);
    CHECK(GetProcAddressW(core, L"NoSuchCall") == nullptr);
}

void RunWell() {
    PassLongValues();
    PassStructures();
    CallBackFromWithin();
    RunThreads();
    RecurseDeep();
    FindByName();
}

// --- What a phone punishes ---

DWORD WINAPI ReadNull(void*) {
    ReadAtThird(0);
    return 0;
}

LRESULT CALLBACK FaultingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == countDown)
        ReadAtThird(0x10);
    return DefWindowProcW(window, message, wParam, lParam);
}

void FaultInCallback() {
    WNDCLASSW description{};
    description.lpszClassName = L"Faulting";
    description.lpfnWndProc = FaultingProcedure;
    RegisterClassW(&description);
    SendMessageW(
        CreateWindowExW(0, L"Faulting", L"", WS_CHILD, 0, 0, 1, 1, HWND_MESSAGE, nullptr, nullptr, nullptr),
        countDown, 0, 0);
}

void __attribute__((noinline)) ReadFreed() {
    void* block = VirtualAlloc(nullptr, 0x1000, MEM_COMMIT, PAGE_READWRITE);
    VirtualFree(block, 0, MEM_RELEASE);
    ReadAtThird(reinterpret_cast<std::uintptr_t>(block));
}

void WriteBehindBlock() {
    volatile std::size_t size = 21; // the compiler must not see it
    auto* block = static_cast<volatile char*>(std::malloc(size));
    block[size] = 1;
    std::free(const_cast<char*>(block));
}

void FreeTwice() {
    void* volatile block = std::malloc(1);
    std::free(block);
    std::free(block);
}

/// What the compiler must not know of.
template <class Thing>
Thing Hidden(Thing thing) {
    volatile Thing hidden = thing;
    return hidden;
}

std::uintptr_t BlockOf(std::size_t size) {
    return reinterpret_cast<std::uintptr_t>(std::malloc(Hidden(size)));
}

void __attribute__((noinline)) ReadHeapFreed() {
    const std::uintptr_t block = BlockOf(100);
    std::free(reinterpret_cast<void*>(block));
    ReadAtThird(block + 40);
}

void __attribute__((noinline)) ReadUnwritten() {
    const std::uintptr_t block = BlockOf(100);
    *reinterpret_cast<volatile int*>(block + 36) = 1;
    ReadAtThird(block + 40);
}

void __attribute__((noinline)) CopyBeside() {
    const std::uintptr_t block = BlockOf(100);
    std::memmove(reinterpret_cast<void*>(block), reinterpret_cast<void*>(block + 4), Hidden(100u));
}

void TakeShortAnswers() {
    keybd_event(VK_F20, 0, 0, 0);
    CHECK(GetAsyncKeyState(VK_F20) < 0);
    keybd_event(VK_F20, 0, KEYEVENTF_KEYUP, 0);
    CHECK(GetAsyncKeyState(VK_F20) >= 0);
    CHECK(towlower(Hidden(L'A')) == L'a');
}

/// What is written by the program, by the host on its behalf, or copied, may be read; and so may what is none
/// of the heap's.
void ReadWritten() {
    const std::uintptr_t block = BlockOf(100);
    std::memset(reinterpret_cast<void*>(block), 0, 20);
    ReadAtThird(block + 16);
    SYSTEMTIME* time = reinterpret_cast<SYSTEMTIME*>(block + 20);
    GetLocalTime(time);
    CHECK(Hidden(time->wYear) > 2000);
    std::memmove(reinterpret_cast<void*>(block + 60), reinterpret_cast<void*>(block), 20);
    ReadAtThird(block + 76);
    std::free(reinterpret_cast<void*>(block));
}

void __attribute__((noinline)) LeaveBrush() {
    CreateSolidBrush(Hidden(1u));
}

void __attribute__((noinline)) LeaveWindow() {
    CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
}

void GiveAllBack() {
    DeleteObject(CreateSolidBrush(1));
    ReleaseDC(nullptr, GetDC(nullptr));
    DestroyWindow(
        CreateWindowExW(0, L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr));
}

void CloseTwice() {
    const HANDLE thread = CreateThread(nullptr, 0, Add, nullptr, 0, nullptr);
    CloseHandle(thread);
    CloseHandle(thread);
}

void Do(const wchar_t* what) {
    const auto is = [what](const wchar_t* name) { return wcscmp(what, name) == 0; };
    if (is(L"well"))
        RunWell();
    else if (is(L"read-null"))
        ReadAtThird(0);
    else if (is(L"read-wild"))
        ReadAtThird(0xfffff000);
    else if (is(L"read-freed"))
        ReadFreed();
    else if (is(L"write-null"))
        WriteAtThird(4);
    else if (is(L"write-code"))
        WriteAtThird(reinterpret_cast<std::uintptr_t>(&Do));
    else if (is(L"call-null"))
        CallAtThird(0);
    else if (is(L"call-data"))
        CallAtThird(reinterpret_cast<std::uintptr_t>(&firstFailure));
    else if (is(L"undefined"))
        UndefinedAtThird();
    else if (is(L"overflow"))
        firstFailure = Deep(1000);
    else if (is(L"write-behind"))
        WriteBehindBlock();
    else if (is(L"free-twice"))
        FreeTwice();
    else if (is(L"close-twice"))
        CloseTwice();
    else if (is(L"short-answers"))
        TakeShortAnswers();
    else if (is(L"read-heap-freed"))
        ReadHeapFreed();
    else if (is(L"read-beside"))
        ReadAtThird(BlockOf(100) + 100);
    else if (is(L"read-unwritten"))
        ReadUnwritten();
    else if (is(L"copy-beside"))
        CopyBeside();
    else if (is(L"read-written"))
        ReadWritten();
    else if (is(L"leave-brush"))
        LeaveBrush();
    else if (is(L"leave-window"))
        LeaveWindow();
    else if (is(L"give-all-back"))
        GiveAllBack();
    else if (is(L"read-unaligned"))
        ReadAtThird(reinterpret_cast<std::uintptr_t>(&firstFailure) + 1);
    else if (is(L"in-callback"))
        FaultInCallback();
    else if (is(L"in-thread"))
        WaitForSingleObject(CreateThread(nullptr, 0, ReadNull, nullptr, 0, nullptr), INFINITE);
    else
        CHECK(false);
}

} // namespace

extern "C" void WinMainCRTStartup(HINSTANCE, HINSTANCE, wchar_t* commandLine, int) {
    Do(commandLine);
    TerminateProcess(reinterpret_cast<HANDLE>(66), static_cast<UINT>(firstFailure));
}
