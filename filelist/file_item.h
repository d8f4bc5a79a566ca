#pragma once
// The record behind each entry of the file list.

#include <cstdint>

#include "common/text.h"
#include "platform/ce_api.h"

/// What an entry is. The order is the order of the list: up-level first, then folders, then files.
enum class ItemKind : std::int32_t { UpLevel = 0, Folder = 1, File = 2 };

constexpr std::size_t sizeTextCapacity = 16;
constexpr std::size_t typeTextCapacity = 80;
constexpr std::size_t dateTextCapacity = 32;

/// Look the icon up when the entry is drawn.
constexpr std::int32_t iconWhenDrawn = -1;

struct FileItem {
    const wchar_t* folder = L""; // the folder that holds the entry; the listing owns the text
    OwnedText name;
    FILETIME time{};        // file: last write, local time; folder: creation, as the file system has it
    std::uint32_t size = 0; // the low 32 bits; 0 for folders
    ItemKind kind = ItemKind::UpLevel;
    DWORD attributes = 0;
    std::int32_t iconIndex = 0;
    std::int32_t row = -1; // the row of the view that the entry was put in

    // Made when first drawn, kept until the entry goes.
    OwnedText displayName;
    OwnedText sizeText;
    OwnedText typeText;
    OwnedText dateText;
};
