#pragma once
// Which icon an entry has: one of the program's own, or the shell's, kept under a key.

#include <string_view>

#include "app/settings.h"
#include "common/path.h"
#include "fileops/archive_types.h"
#include "platform/ce_api.h"

/// Fixed images of both icon sets, in image-list order.
enum FixedImage : int {
    imageFolder,
    imageCard,
    imageDocuments,
    imageStartMenu,
    imageFile,
    imageRomFile,
    imageNetwork,
    imageArchive,
    fixedImageCount
};

/// The key that all files without an extension share; no extension can be equal to it.
constexpr wchar_t noExtensionKey[] = L"\\\\\\";

/// The names of folders with images of their own, wherever such a folder lies.
struct SpecialFolderNames {
    std::wstring_view documents;
    std::wstring_view startMenu;
    std::wstring_view network;
};

/// A fixed image, or with `image` -1 the key of an image fetched from the shell.
struct IconChoice {
    int image = -1;
    Path key;
};

/// `openedHere` are the types of archives that open in this program.
IconChoice ChooseIcon(std::wstring_view name, std::wstring_view folder, DWORD attributes,
                      const IconOptions& options, const SpecialFolderNames& special,
                      const ArchiverAvailability& openedHere);

/// Whether the name is a shortcut's.
bool IsShortcutName(std::wstring_view name);
