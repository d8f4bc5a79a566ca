#include "filelist/history.h"

#include <string>

#include <gtest/gtest.h>

namespace {

TEST(History, IsEmptyAtFirst) {
    History history;
    EXPECT_EQ(history.Current(), nullptr);
    EXPECT_FALSE(history.HasBack());
    EXPECT_FALSE(history.HasForward());
    EXPECT_EQ(history.StepBack(), nullptr);
    EXPECT_EQ(history.StepForward(), nullptr);
}

TEST(History, BeginsWithTheFirstFolder) {
    History history;
    history.RecordHistory(L"");
    EXPECT_STREQ(history.Current(), L"");
    EXPECT_FALSE(history.HasBack());
    EXPECT_FALSE(history.HasForward());
}

TEST(History, GoesBackAndForwardAndDropsWhatCameAfter) {
    History history;
    history.RecordHistory(L"\\Aa");
    history.RecordHistory(L"\\Aa\\Bb");
    history.RecordHistory(L"\\Aa\\Bb\\Cc");
    EXPECT_STREQ(history.StepBack(), L"\\Aa\\Bb");
    EXPECT_STREQ(history.StepBack(), L"\\Aa");
    EXPECT_EQ(history.StepBack(), nullptr);
    EXPECT_STREQ(history.Current(), L"\\Aa");
    EXPECT_STREQ(history.StepForward(), L"\\Aa\\Bb");
    EXPECT_TRUE(history.HasForward());
    history.RecordHistory(L"\\Dd");
    EXPECT_FALSE(history.HasForward());
    EXPECT_STREQ(history.Current(), L"\\Dd");
    EXPECT_STREQ(history.StepBack(), L"\\Aa\\Bb");
    EXPECT_STREQ(history.StepForward(), L"\\Dd");
    EXPECT_EQ(history.StepForward(), nullptr);
}

TEST(History, KeepsItsWayWhenTheCurrentFolderIsShownAgain) {
    History history;
    history.RecordHistory(L"\\Aa");
    history.RecordHistory(L"\\Bb");
    history.StepBack();
    history.RecordHistory(L"\\Aa");
    EXPECT_TRUE(history.HasForward()) << "a step back lists its folder, which is no new one";
    history.RecordHistory(L"\\aa");
    EXPECT_FALSE(history.HasForward()) << "another spelling is another folder";
    EXPECT_STREQ(history.StepBack(), L"\\Aa");
}

TEST(History, DropsTheRestFromItsFirstFolderToo) {
    History history;
    history.RecordHistory(L"\\Aa");
    history.RecordHistory(L"\\Bb");
    history.StepBack();
    history.RecordHistory(L"\\Cc");
    EXPECT_STREQ(history.Current(), L"\\Cc");
    EXPECT_STREQ(history.StepBack(), L"\\Aa");
    EXPECT_FALSE(history.HasBack());
}

TEST(History, KeepsItsOwnTexts) {
    History history;
    std::wstring folder = L"\\Aa";
    history.RecordHistory(folder);
    folder = L"\\Zz";
    EXPECT_STREQ(history.Current(), L"\\Aa");
}

TEST(History, HasNoLimit) {
    constexpr int folders = 200000;
    History history;
    for (int number = 0; number < folders; ++number)
        history.RecordHistory(L"\\" + std::to_wstring(number));
    for (int number = folders - 2; number >= 0; --number)
        ASSERT_TRUE(history.StepBack());
    EXPECT_STREQ(history.Current(), L"\\0");
    history.RecordHistory(L"\\new");
    EXPECT_FALSE(history.HasForward()) << "the long rest is gone";
}

} // namespace
