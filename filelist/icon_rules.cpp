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

bool IsArchiveExtension(std::wstring_view extension) {
    return EqualNoCase(extension, L".ZIP") || EqualNoCase(extension, L".LZH");
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
                      const IconOptions& options, const SpecialFolderNames& special) {
    if (attributes == 0)
        return Fixed(imageFolder);
    if (attributes & FILE_ATTRIBUTE_DIRECTORY)
        return Fixed(FolderImage(name, attributes, special));
    if (options.ownRomIcons && (attributes & FILE_ATTRIBUTE_INROM))
        return Fixed(imageRomFile);
    if (options.genericIcons)
        return Fixed(imageFile);

    const std::wstring_view extension = ExtensionOf(name);
    if (options.ownArchiveIcons && IsArchiveExtension(extension))
        return Fixed(imageArchive);
    const bool ownIcon = EqualNoCase(extension, L".EXE") || IsShortcutName(name);
    IconChoice choice;
    const bool fits = ownIcon             ? choice.key.AssignChild(folder, name)
                      : extension.empty() ? choice.key.Assign(noExtensionKey)
                                          : choice.key.Assign(extension);
    return fits ? choice : Fixed(imageFile);
}
