#include <string>

#include <gtest/gtest.h>

#include "platform/ce_api.h"
#include "tests/support/host.h"

namespace {

using ce::RealPlace;

class Places : public testing::Test {
  protected:
    Places() {
        RunOnHost(
            "mkdir -p Temp/Places/a/b Temp/Places/\xC3\x84rger/in; cd Temp/Places; ln -s a link\n"
            "ln -s \"$(dirname \"$TARVIK_DEVICE\")\" ../../'Outer'; ln -s \"$TARVIK_DEVICE\" ../../Own");
    }
    ~Places() override { RunOnHost("rm -rf Temp/Places Outer Own Twin"); }

    static bool Same(const wchar_t* a, const wchar_t* b) {
        const bool same = RealPlace(a).Is(RealPlace(b));
        EXPECT_EQ(same, RealPlace(b).Is(RealPlace(a)));
        return same;
    }
    static bool Within(const wchar_t* a, const wchar_t* b) { return RealPlace(a).IsWithin(RealPlace(b)); }
};

TEST_F(Places, AreOneForEverySpelling) {
    for (const wchar_t* path :
         {L"\\Temp\\Places\\a\\", L"\\temp\\PLACES\\A", L"/Temp/Places/b/../a", L"E:\\Temp\\Places\\a\\.",
          L"\\Own\\Temp\\Places\\a", L"\\Temp\\Places\\link", L"\\Own\\Own\\temp\\places\\LINK\\"})
        EXPECT_TRUE(Same(L"\\Temp\\Places\\a", path)) << testing::PrintToString(std::wstring(path));
    EXPECT_FALSE(Same(L"\\Temp\\Places\\a", L"\\Temp\\Places"));
    EXPECT_FALSE(Same(L"\\Temp\\Places\\a", L"\\Temp\\Places\\a\\b"));
    EXPECT_TRUE(Same(L"\\Temp\\Places\\\u00C4rger", L"\\Temp\\Places\\\u00E4rger"));
    EXPECT_TRUE(Same(L"\\", L"\\Own"));
}

TEST_F(Places, LieWithinOneAnotherAlsoAcrossTheDevicesRoot) {
    EXPECT_TRUE(Within(L"\\Temp", L"\\"));
    EXPECT_TRUE(Within(L"\\Temp", L"\\Outer"));
    EXPECT_TRUE(Within(L"\\", L"\\Outer"));
    EXPECT_FALSE(Within(L"\\Outer", L"\\"));
    EXPECT_TRUE(Within(L"\\Temp\\Places\\\u00E4rger\\in", L"\\Own\\Temp\\Places\\\u00C4rger"));
    EXPECT_TRUE(Within(L"\\Temp\\Places\\link\\b", L"\\Temp\\Places\\a"));
    EXPECT_FALSE(Within(L"\\Temp\\Places\\ab", L"\\Temp\\Places\\a"));
    EXPECT_TRUE(Within(L"\\Temp\\Places\\a", L"\\Temp\\Places\\a"));
}

TEST_F(Places, OfWhatIsNotThereAreWhereItsPathSays) {
    EXPECT_TRUE(Same(L"\\Temp\\none\\x", L"\\Own\\Temp\\NONE\\x\\"));
    EXPECT_TRUE(Within(L"\\Outer\\none", L"\\Outer"));
    EXPECT_FALSE(Same(L"\\Temp\\none", L"\\none"));
    EXPECT_FALSE(Same(L"Z:\\", L"Z:\\"));
    EXPECT_FALSE(Within(L"\\Temp", L"C:\\"));
}

TEST_F(Places, OfAnEntryAreItsOwn) {
    const RealPlace folder(L"\\Own\\Temp\\Places");
    EXPECT_TRUE(folder.Entry(L"a").Is(RealPlace(L"\\Temp\\Places\\a")));
    EXPECT_FALSE(folder.Entry(L"link").Is(RealPlace(L"\\Temp\\Places\\a")));
}

TEST_F(Places, OfTwoVolumesAreTwoWhateverNumbersTheyHave) {
    RunOnHost("mkdir -p \"$TARVIK_WORK/one\" \"$TARVIK_WORK/two\"; ln -sfn \"$TARVIK_WORK/one\" Twin");
    EXPECT_FALSE(Same(L"\\Twin", L"\\"));
    EXPECT_FALSE(Within(L"\\Twin", L"\\"));
    EXPECT_TRUE(Within(L"\\Twin", L"\\Outer"));
}

} // namespace
