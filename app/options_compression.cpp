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

constexpr std::uint32_t zipType = 2;

class CompressionPage final : public OptionPage {
  public:
    CompressionPage() : OptionPage(look) {}

  private:
    HWND OnInit() override;
    void TakeOver() override;
};

HWND CompressionPage::OnInit() {
    const FileList& list = appState.fileList;
    ShowPath(IDC_EXTRACT_FOLDER, list.compressFolder);
    ShowBoxes<ListOptions>(boxes, list.options);
    return nullptr;
}

void CompressionPage::TakeOver() {
    FileList& list = appState.fileList;
    // ZIP is the only kind on offer, whether or not it is marked.
    list.options.archiveType = zipType;
    TakeBoxes<ListOptions>(boxes, list.options);
    ReadPath(IDC_EXTRACT_FOLDER, list.compressFolder);
}

} // namespace

void ShowCompressionPage(HWND owner) {
    CompressionPage().Run(owner);
}
