#include "filelist/icon_rules.h"

namespace {

int FolderImage(std::wstring_view name, DWORD attributes, const SpecialFolderNames& special) {
    if (EqualNoCase(name, special.documents))
        return imageDocuments;
    if (EqualNoCase(name, special.startMenu))
        return imageStartMenu;
    if (EqualNoCase(name, special.network))
        return imageNetwork;
    return attributes & FILE_ATTRIBUTE_STORAGE_CARD ? imageCard : imageFolder;
}

/// Archives look alike when that is asked for, and so do those that open in this program.
bool HasArchiveImage(std::wstring_view name, const IconOptions& options,
                     const ArchiverAvailability& openedHere) {
    const ArchiveType type = ArchiveTypeOf(name);
    return options.ownArchiveIcons ? type != ArchiveType::None : openedHere.IsArchiverAvailable(type);
}

IconChoice Fixed(int image) {
    IconChoice choice;
    choice.image = image;
    return choice;
}

} // namespace

bool IsShortcutName(std::wstring_view name) {
    return EqualNoCase(ExtensionOf(name), L".LNK");
}

IconChoice ChooseIcon(std::wstring_view name, std::wstring_view folder, DWORD attributes,
                      const IconOptions& options, const SpecialFolderNames& special,
                      const ArchiverAvailability& openedHere) {
    if (attributes == 0)
        return Fixed(imageFolder);
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return Fixed(FolderImage(name, attributes, special));
    if (options.ownRomIcons && (attributes & FILE_ATTRIBUTE_INROM))
        return Fixed(imageRomFile);
    if (options.genericIcons)
        return Fixed(imageFile);

    if (HasArchiveImage(name, options, openedHere))
        return Fixed(imageArchive);
    const std::wstring_view extension = ExtensionOf(name);
    const bool ownIcon = EqualNoCase(extension, L".EXE") || IsShortcutName(name);
    IconChoice choice;
    const bool fits = ownIcon             ? choice.key.AssignChild(folder, name)
                      : extension.empty() ? choice.key.Assign(noExtensionKey)
                                          : choice.key.Assign(extension);
    return fits ? choice : Fixed(imageFile);
}
