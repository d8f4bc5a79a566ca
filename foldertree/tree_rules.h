#pragma once
// What the tree decides without its window: paths and their components, and which image a folder has.

#include <array>
#include <cstddef>
#include <string_view>

#include "common/path.h"
#include "platform/ce_api.h"

/// Images of the tree, in image-list order.
enum TreeImage : int {
    treeImageDevice,
    treeImageFolder,
    treeImageFolderOpen,
    treeImageCard,
    treeImageDocuments,
    treeImageStartMenu,
    treeImageNetwork,
    treeImageSearch,
    treeImageCount
};

/// A node's image and the one it has while it is selected.
struct NodeImages {
    TreeImage normal;
    TreeImage selected;
};

/// Names that mark a folder as a special one wherever it lies, compared without regard to case.
struct SpecialNames {
    std::wstring_view network;
    std::wstring_view documents;
    std::wstring_view startMenu;
};

NodeImages ImagesOf(std::wstring_view name, DWORD attributes, const SpecialNames& special);

/// True for the names of folders that the tree never shows.
bool IsHiddenFromTree(std::wstring_view name);

/// A path put together from its last component to its first, as a walk up a tree meets them.
class UpwardPath {
  public:
    /// Puts "\component" in front. False when the path would become too long.
    [[nodiscard]] bool Prepend(std::wstring_view component);
    std::wstring_view View() const { return {text_.data() + start_, maxLength - start_}; }

  private:
    static constexpr std::size_t maxLength = pathCapacity - 1;

    std::array<wchar_t, maxLength> text_{};
    std::size_t start_ = maxLength;
};

/// The components of a path, one after another: what stands behind each of its backslashes.
class PathComponents {
  public:
    explicit PathComponents(std::wstring_view path);
    /// False behind the last component.
    bool HasNext() const { return hasNext_; }
    std::wstring_view Next();

  private:
    std::wstring_view rest_;
    bool hasNext_ = true;
};
