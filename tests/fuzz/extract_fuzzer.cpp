// Any bytes as an archive: nothing goes wrong in memory, nothing is made outside of the target, and nothing
// is left of what was not whole. FUZZED is the kind that the bytes are taken for.

#include <exception>

#include "companions/archiver/extract_archive.h"
#include "companions/archiver/failure.h"
#include "companions/archiver/lha_reader.h"
#include "companions/archiver/limits.h"
#include "companions/archiver/zip_reader.h"
#include "tests/fuzz/memory_disk.h"

namespace archiver {

namespace {

/// Answers one after the other, and cancels in the end.
class FuzzAttendant : public Attendant {
  public:
    void SetTotals(std::uint64_t, std::uint64_t) override {}
    void ShowName(std::wstring_view) override {}
    void AddBytes(std::uint64_t) override {}
    void AddFile() override {}
    bool IsCancelled() override { return ++asked_ > 20'000; }
    ReplaceAnswer AskReplace(const ReplaceQuestion&) override {
        constexpr ReplaceAnswer answers[] = {ReplaceAnswer::Yes, ReplaceAnswer::No, ReplaceAnswer::All};
        return answers[questions_++ % 3];
    }

  private:
    int asked_ = 0, questions_ = 0;
};

const ArchiveKind zipArchives{nullptr, OpenZip, largestExpansion};
const ArchiveKind lhaArchives{nullptr, OpenLha, 0};

} // namespace

} // namespace archiver

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace archiver;
    ResetDisk(data, size);
    FuzzAttendant attendant;
    try {
        ExtractArchive(FUZZED, {Action::Extract, L"\\a.zip", L"\\Out\\", {}}, attendant);
    } catch (const Failure&) { // as it should
    } catch (const std::bad_alloc&) {
    }
    ExpectNoParts();
    return 0;
}
