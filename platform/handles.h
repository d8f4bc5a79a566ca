#pragma once
// Owners of platform handles: each closes what it holds in one place, on every path out.

#include <utility>

#include "platform/ce_api.h"

/// Move-only owner of a handle. `Traits` names the handle's type, its invalid value and how it is closed.
template <class Traits>
class OwnedHandle {
  public:
    using Handle = typename Traits::Handle;

    OwnedHandle() = default;
    explicit OwnedHandle(Handle handle) : handle_(handle) {}
    OwnedHandle(OwnedHandle&& other) noexcept : handle_(other.Release()) {}
    OwnedHandle& operator=(OwnedHandle&& other) noexcept {
        if (this != &other)
            Reset(other.Release());
        return *this;
    }
    OwnedHandle(const OwnedHandle&) = delete;
    OwnedHandle& operator=(const OwnedHandle&) = delete;
    ~OwnedHandle() { Reset(); }

    Handle Get() const { return handle_; }
    explicit operator bool() const { return handle_ != Traits::Invalid(); }

    /// Gives the handle up without closing it.
    Handle Release() { return std::exchange(handle_, Traits::Invalid()); }

    /// Closes what is held and takes `handle` over.
    void Reset(Handle handle = Traits::Invalid()) {
        Handle old = std::exchange(handle_, handle);
        if (old != Traits::Invalid())
            Traits::Close(old);
    }

  private:
    Handle handle_ = Traits::Invalid();
};

struct FindTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) { ce::FindClose(handle); }
};
using FindHandle = OwnedHandle<FindTraits>;

struct ChangeNoticeTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) { FindCloseChangeNotification(handle); }
};
using ChangeNoticeHandle = OwnedHandle<ChangeNoticeTraits>;

struct FileTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return INVALID_HANDLE_VALUE; }
    static void Close(Handle handle) { CloseHandle(handle); }
};
using FileHandle = OwnedHandle<FileTraits>;

/// Threads, events, processes: objects whose invalid handle is null.
struct ObjectTraits {
    using Handle = HANDLE;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { CloseHandle(handle); }
};
using ObjectHandle = OwnedHandle<ObjectTraits>;

struct RegistryKeyTraits {
    using Handle = HKEY;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { RegCloseKey(handle); }
};
using RegistryKey = OwnedHandle<RegistryKeyTraits>;

struct ImageListTraits {
    using Handle = HIMAGELIST;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { ImageList_Destroy(handle); }
};
using ImageListHandle = OwnedHandle<ImageListTraits>;

struct IconTraits {
    using Handle = HICON;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DestroyIcon(handle); }
};
using IconHandle = OwnedHandle<IconTraits>;

struct FontTraits {
    using Handle = HFONT;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DeleteObject(handle); }
};
using FontHandle = OwnedHandle<FontTraits>;

struct MenuTraits {
    using Handle = HMENU;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { DestroyMenu(handle); }
};
using MenuHandle = OwnedHandle<MenuTraits>;

struct LibraryTraits {
    using Handle = HMODULE;
    static Handle Invalid() { return nullptr; }
    static void Close(Handle handle) { FreeLibrary(handle); }
};
using LibraryHandle = OwnedHandle<LibraryTraits>;
