#include "companions/archiver/failure.h"

#include <windows.h>

#include "companions/archiver/attendant.h"

namespace archiver {

void GoOn(Attendant& attendant) {
    if (attendant.IsCancelled())
        throw Cancelled();
}

std::wstring SystemWords(unsigned long error) {
    wchar_t words[512] = {};
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS |
                                      FORMAT_MESSAGE_MAX_WIDTH_MASK,
                                  nullptr, error, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    while (length > 0 && (words[length - 1] == L' ' || words[length - 1] == L'.'))
        --length;
    if (length == 0)
        return L"error " + std::to_wstring(error);
    return std::wstring(words, length);
}

void FailBySystem(const std::wstring& what) {
    const DWORD error = GetLastError();
    if (error == ERROR_DISK_FULL || error == ERROR_HANDLE_DISK_FULL)
        throw FinalFailure(what + L": the disk is full");
    throw Failure(what + L": " + SystemWords(error));
}

} // namespace archiver
