#pragma once
// Icons of the entries: eight of the program's own, the rest from the shell, kept by extension.

#include <cstdint>
#include <string_view>

#include "app/path.h"
#include "app/settings.h"
#include "platform/handles.h"

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

/// One image list, large (32 pixels) or small (16).
class IconSet {
  public:
    /// Makes the image list anew with the fixed images alone.
    void Build(bool large);
    HIMAGELIST Images() const { return images_.Get(); }

  private:
    ImageListHandle images_;
    bool large_ = false;
};
