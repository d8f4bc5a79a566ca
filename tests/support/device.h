#pragma once
// The phone's files and registry, fresh for each test.

#include <map>
#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

#include "tests/support/registry.h"
#include "tests/support/stored_settings.h"

/// A file held open by another program than the one under test.
class HeldFile {
  public:
    HeldFile(const std::wstring& path, DWORD access, DWORD sharing, DWORD creation);
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;
    ~HeldFile() { CloseHandle(handle_); }
    HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

/// A phone as it comes from the box. Files are named as the program names them: "\My Documents\Notes".
class Device {
  public:
    /// Brings files and registry back to what they were in the box.
    Device();
    ~Device();
    Device(const Device&) = delete;
    Device& operator=(const Device&) = delete;

    // --- Files ---

    /// Makes a file, and the folders above it. `content` is written as it stands.
    void File(const std::wstring& path, std::string_view content = "");
    /// Makes a file of any size that takes no room on the disk.
    void FileOfSize(const std::wstring& path, std::uint64_t bytes);
    /// Makes a folder, and those above it.
    void Folder(const std::wstring& path);
    /// Makes `count` empty files in a folder, named by `prefix` and a number from 0 on.
    void Files(const std::wstring& folder, const std::wstring& prefix, int count);
    void Remove(const std::wstring& path);
    /// Empties the device: not even \Windows is left, only the program.
    void RemoveAll();
    void SetAttributes(const std::wstring& path, DWORD attributes);
    void SetWriteTime(const std::wstring& path, const SYSTEMTIME& utc);

    /// Opens a file so that nobody else may, until the result goes.
    [[nodiscard]] HeldFile Hold(const std::wstring& path);

    bool Exists(const std::wstring& path) const;
    bool IsFolder(const std::wstring& path) const;
    DWORD Attributes(const std::wstring& path) const;
    std::string Content(const std::wstring& path) const;
    /// The names in a folder, sorted.
    std::vector<std::wstring> NamesIn(const std::wstring& folder) const;

    // What only the host can make. Names and targets are the host's, in UTF-8, from the root down: "A/b".

    void HostFile(const std::string& name, std::string_view content = "");
    /// Makes many empty files at once.
    void HostFiles(const std::vector<std::string>& names);
    void HostLink(const std::string& name, const std::string& target);
    void HostFolder(const std::string& name);
    /// Takes all permissions from a folder.
    void Forbid(const std::string& name);
    /// Puts a storage card into the root: a folder that lies outside the device, with these files.
    void StorageCard(const std::string& name, const std::vector<std::string>& files = {});
    void RemoveStorageCard(const std::string& name);

    // --- Registry. A key written or preserved here is brought back with the next fresh device. ---

    void Write(const std::wstring& key, const std::wstring& name, const RegistryValue& value);
    void WriteText(const std::wstring& key, const std::wstring& name, const std::wstring& text);
    void WriteNumber(const std::wstring& key, const std::wstring& name, std::uint32_t number);
    void WriteWords(const std::wstring& key, const std::wstring& name,
                    const std::vector<std::uint32_t>& words);
    /// Brings back, with the next device, a key that the program itself will change.
    void Preserve(const std::wstring& key);

    bool HasValue(const std::wstring& key, const std::wstring& name) const;
    /// The value; the test ends by exception when there is none.
    RegistryValue Value(const std::wstring& key, const std::wstring& name) const;
    std::wstring TextValue(const std::wstring& key, const std::wstring& name) const;
    std::uint32_t NumberValue(const std::wstring& key, const std::wstring& name) const;

    /// Sets one of the program's list options as a stored setting; the others keep theirs or the defaults.
    void SetOption(ListOption option, std::uint32_t value);
    /// A list option as it is stored.
    std::uint32_t StoredOption(ListOption option) const;
};
