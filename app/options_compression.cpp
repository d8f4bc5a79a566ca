// "Compression": what archives are extracted to, and how.

#include "app/app_state.h"
#include "app/option_page.h"
#include "app/option_pages.h"
#include "resources/resource.h"

namespace {

constexpr DialogLook look{{234, 235, 114}, IDR_MENUBAR_OPTION_PAGE, true, true};

constexpr OptionBox<ListOptions> boxes[] = {
    {IDC_EXTRACT_IN_PLACE, &ListOptions::extractInPlace},
    {IDC_FOLDER_CREATION, &ListOptions::automaticFolderCreation},
    {IDC_OPEN_EXTRACTED, &ListOptions::alwaysOpenExtractFolder},
    {IDC_OPEN_ARCHIVES, &ListOptions::openArchivesHere},
};

class CompressionPage final : public OptionPage {
  public:
    CompressionPage() : OptionPage(look) {}

  private:
    HWND OnInit() override;
    void TakeOver() override;

    void DisableWhatNoArchiverDoes() const;
};

HWND CompressionPage::OnInit() {
    const FileList& list = appState.fileList;
    ShowPath(IDC_EXTRACT_FOLDER, list.compressFolder);
    ShowBoxes<ListOptions>(boxes, list.options);
    Check(IDC_ZIP, list.options.archiveType == static_cast<std::uint32_t>(ArchiveType::Zip));
    DisableWhatNoArchiverDoes();
    return nullptr;
}

void CompressionPage::TakeOver() {
    FileList& list = appState.fileList;
    // ZIP is the only kind on offer, whether or not it is marked.
    list.options.archiveType = static_cast<std::uint32_t>(ArchiveType::Zip);
    TakeBoxes<ListOptions>(boxes, list.options);
    ReadPath(IDC_EXTRACT_FOLDER, list.compressFolder);
}

void CompressionPage::DisableWhatNoArchiverDoes() const {
    const ArchiverAvailability& archivers = appState.archivers;
    if (!archivers.IsArchiverAvailable(ArchiveType::Zip)) {
        Check(IDC_ZIP, false);
        Enable(IDC_ZIP, false);
    }
    if (archivers.AnyArchiverAvailable())
        return;
    for (const OptionBox<ListOptions>& box : boxes)
        Enable(box.box, false);
    Enable(IDC_EXTRACT_FOLDER, false);
}

} // namespace

void ShowCompressionPage(HWND owner) {
    CompressionPage().Run(owner);
}
