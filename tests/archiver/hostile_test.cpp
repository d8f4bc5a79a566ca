// Archives that mean harm do none.

#include "tests/archiver/archiver_test.h"
#include "tests/support/text.h"

namespace {

class HostileArchives : public ArchiverTest {
  protected:
    HostileArchives() {
        RunOnHost("/usr/bin/python3 '" + std::string(ARCHIVER_TESTS) +
                  "/make_hostile_archives.py' Hostile\nmkdir Out");
        RunOnHost(listing + ">../before");
    }

    /// All that lies outside of the targets, with sizes and times.
    const std::string listing =
        "find . /tmp -maxdepth 1 -name '*evil*'; find . -path ./Out -prune -o -type f -printf "
        "'%p %s %T@\\n' -o -printf '%p %y\\n' | sort ";

    void ExpectNoHarm() {
        RunOnHost(listing + ">../after\ndiff ../before ../after");
        // In the targets lie nothing but files and folders, all of them whole.
        RunOnHost("test -z \"$(find Out ! -type f ! -type d)\"\ntest -z \"$(find Out -name '~*')\"");
    }

    void TryAll(Kind kind, const std::wstring& ending);
};

void HostileArchives::TryAll(Kind kind, const std::wstring& ending) {
    int tried = 0;
    for (const std::wstring& name : device.NamesIn(L"\\Hostile")) {
        if (!name.ends_with(ending))
            continue;
        SCOPED_TRACE(Narrow(name));
        ++tried;
        const std::wstring target = L"\\Out\\" + name;
        const ArchiverAnswer answer = TryToExtract(kind, L"\\Hostile\\" + name, target);
        if (!name.starts_with(L"partly-")) {
            EXPECT_NE(answer.result, 0);
            EXPECT_FALSE(answer.text.empty());
        }
        EXPECT_LT(answer.text.size(), 1024u);
        const std::vector<std::wstring> there = device.NamesIn(target);
        if (name.starts_with(L"mixed-")) {
            EXPECT_EQ(device.Content(target + L"\\good.txt"), "good\n") << Narrow(answer.text);
            EXPECT_EQ(there.size(), 1u + device.Exists(target + L"\\folder")) << Narrow(answer.text);
        } else if (name.starts_with(L"refused-")) {
            EXPECT_TRUE(there.empty()) << Narrow(answer.text);
        }
    }
    EXPECT_GT(tried, 50);
}

} // namespace

TEST_F(HostileArchives, OfZipDoNoHarm) {
    TryAll(Zip, L".zip");
    ExpectNoHarm();
}

TEST_F(HostileArchives, OfLhaDoNoHarm) {
    TryAll(Lha, L".lzh");
    ExpectNoHarm();
}
