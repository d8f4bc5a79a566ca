#include "fileops/file_mover.h"

#include <array>

#include "common/file_facts.h"
#include "common/text.h"
#include "platform/handles.h"

namespace {

/// Large enough that its reading and writing outweigh the calls, small enough for a phone. Larger ones make
/// some hosts' caches take their memory in larger pieces, which can double the time.
constexpr DWORD blockSize = 64 * 1024;

/// What a copy takes over beside the mark that every new file has.
constexpr DWORD keptAttributes = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM;

constexpr int asideNames = 1000;

/// A name for a file that is there for the time of the job only: beside `path`, or where that would be too
/// long, in the nearest folder above that has room for it.
bool NameAside(const Path& path, int number, Path& aside) {
    std::array<wchar_t, 16> name{};
    FormatText(name, L"~job%03d.tmp", number);
    std::wstring_view folder = ParentOf(path.View());
    while (!aside.AssignChild(folder, name.data()) && !folder.empty())
        folder = ParentOf(folder);
    return !aside.IsEmpty();
}

/// Deletes a file of the job's own.
bool Discard(const wchar_t* path) {
    if (ce::DeleteFileW(path))
        return true;
    ce::SetFileAttributesW(path, FILE_ATTRIBUTE_NORMAL);
    return ce::DeleteFileW(path) != FALSE;
}

bool DeleteSource(const Path& source, DWORD attributes) {
    if (attributes & FILE_ATTRIBUTE_READONLY)
        ce::SetFileAttributesW(source.Text(), FILE_ATTRIBUTE_NORMAL);
    if (ce::DeleteFileW(source.Text()))
        return true;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        ce::SetFileAttributesW(source.Text(), attributes);
    return false;
}

/// Puts the file `content` in the place of `target`. `error` is why it could not be moved.
bool TakePlace(const Path& content, const Path& target, DWORD* error) {
    const DWORD attributes = ce::GetFileAttributesW(target.Text());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_DIRECTORY))
        return false;
    if (attributes & FILE_ATTRIBUTE_READONLY)
        ce::SetFileAttributesW(target.Text(), FILE_ATTRIBUTE_NORMAL);
    if (ce::DeleteAndRenameFile(target.Text(), content.Text()))
        return true;
    *error = GetLastError();
    if (attributes & FILE_ATTRIBUTE_READONLY)
        ce::SetFileAttributesW(target.Text(), attributes);
    return false;
}

} // namespace

FileMover::FileMover(CopyWatch& watch) : watch_(watch), block_(new std::byte[blockSize]) {}

MoverResult FileMover::WriteBlocks(HANDLE from, HANDLE to) {
    for (;;) {
        DWORD read = 0;
        DWORD written = 0;
        if (!ReadFile(from, block_.get(), blockSize, &read, nullptr))
            return MoverResult::Failed;
        if (read == 0)
            return MoverResult::Done;
        if (!WriteFile(to, block_.get(), read, &written, nullptr) || written != read)
            return MoverResult::Failed;
        if (read == blockSize && !watch_.KeepGoing())
            return MoverResult::Stopped;
    }
}

/// Copies to a name that nothing has, and gives the copy its last name when there is one. What a failure
/// leaves of the copy goes again.
MoverResult FileMover::CopyContents(const Path& source, const WIN32_FIND_DATAW& found, const Path& target,
                                    const Path* lastName) {
    const FileHandle from(ce::CreateFileW(source.Text(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                          nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!from)
        return MoverResult::Failed;
    FileHandle to(ce::CreateFileW(target.Text(), GENERIC_WRITE, 0, nullptr, CREATE_NEW, FILE_ATTRIBUTE_NORMAL,
                                  nullptr));
    if (!to)
        return Exists(target.Text()) ? MoverResult::Exists : MoverResult::Failed;
    MoverResult result = WriteBlocks(from.Get(), to.Get());
    if (result == MoverResult::Done)
        SetFileTime(to.Get(), nullptr, nullptr, &found.ftLastWriteTime);
    to.Reset();
    if (result == MoverResult::Done && lastName && !ce::MoveFileW(target.Text(), lastName->Text()))
        result = MoverResult::Failed;
    const Path& place = lastName ? *lastName : target;
    if (result != MoverResult::Done)
        Discard(target.Text());
    else if (found.dwFileAttributes & keptAttributes)
        ce::SetFileAttributesW(place.Text(),
                               found.dwFileAttributes & (keptAttributes | FILE_ATTRIBUTE_ARCHIVE));
    return result;
}

/// The copy grows under another name: whatever ends the program meanwhile, no part of a file has its name.
MoverResult FileMover::CopyAside(const Path& source, const WIN32_FIND_DATAW& found, const Path& target,
                                 const Path* lastName, Path& aside) {
    for (int number = 0; number < asideNames && NameAside(target, number, aside); ++number) {
        const MoverResult result = CopyContents(source, found, aside, lastName);
        if (result != MoverResult::Exists)
            return result;
    }
    return MoverResult::Failed;
}

MoverResult FileMover::Copy(const Path& source, const WIN32_FIND_DATAW& found, const Path& target) {
    if (Exists(target.Text()))
        return MoverResult::Exists;
    Path aside;
    return CopyAside(source, found, target, &target, aside);
}

MoverResult FileMover::CopyOver(const Path& source, const WIN32_FIND_DATAW& found, const Path& target) {
    Path aside;
    const MoverResult result = CopyAside(source, found, target, nullptr, aside);
    DWORD error = ERROR_SUCCESS;
    if (result != MoverResult::Done || TakePlace(aside, target, &error))
        return result;
    Discard(aside.Text());
    return MoverResult::Failed;
}

MoverResult FileMover::Move(const Path& source, const WIN32_FIND_DATAW& found, const Path& target) {
    if (ce::MoveFileW(source.Text(), target.Text()))
        return MoverResult::Done;
    if (GetLastError() != ERROR_NOT_SAME_DEVICE)
        return Exists(target.Text()) ? MoverResult::Exists : MoverResult::Failed;
    const MoverResult result = Copy(source, found, target);
    if (result != MoverResult::Done || DeleteSource(source, found.dwFileAttributes))
        return result;
    Discard(target.Text()); // the file stays where it was, and there alone
    return MoverResult::Failed;
}

MoverResult FileMover::MoveOver(const Path& source, const WIN32_FIND_DATAW& found, const Path& target) {
    DWORD error = ERROR_SUCCESS;
    if (TakePlace(source, target, &error))
        return MoverResult::Done;
    if (error != ERROR_NOT_SAME_DEVICE)
        return MoverResult::Failed;
    const MoverResult result = CopyOver(source, found, target);
    if (result != MoverResult::Done)
        return result;
    return DeleteSource(source, found.dwFileAttributes) ? MoverResult::Done : MoverResult::Failed;
}
