#include "search/file_scan.h"

#include "common/path.h"

namespace {

/// Bytes read at a time: whole blocks, enough that a call's own cost does not count, few enough to be still
/// in the processor's cache when they are looked at.
constexpr DWORD pieceSize = 8 * scanBlockSize;

/// Reads the next piece; less than a whole one is the file's last. Around a bad spot of the file, what can be
/// read of the piece block by block still counts.
std::size_t ReadPiece(HANDLE file, unsigned char* piece) {
    DWORD read = 0;
    if (ReadFile(file, piece, pieceSize, &read, nullptr))
        return read;
    std::size_t filled = 0;
    while (filled < pieceSize && ReadFile(file, piece + filled, scanBlockSize, &read, nullptr) && read)
        filled += read;
    return filled;
}

} // namespace

FileScan::FileScan(std::wstring_view text, bool caseSensitive)
    : scan_(text, caseSensitive), piece_(std::make_unique_for_overwrite<unsigned char[]>(pieceSize)) {}

bool FileScan::Open(std::wstring_view folder, std::wstring_view name) {
    Path path;
    if (!path.AssignChild(folder, name))
        return false;
    file_.Reset(ce::CreateFileW(path.Text(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                                nullptr));
    return IsOpen();
}

ScanVerdict FileScan::ScanPiece() {
    const std::size_t read = ReadPiece(file_.Get(), piece_.get());
    const bool found = scan_.Holds({piece_.get(), read});
    if (!found && read == pieceSize)
        return ScanVerdict::ReadOn;
    file_.Reset();
    return found ? ScanVerdict::Found : ScanVerdict::NotFound;
}
