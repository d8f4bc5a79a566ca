#include "fileops/single_steps.h"

#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

namespace fs = std::filesystem;

class Watch final : public ce::TreeWatch {
  public:
    bool KeepGoing() override { return units < stopAt; }
    void OnName(const wchar_t* name) override { names.emplace_back(name); }
    void OnUnits(int count) override { units += count; }
    bool MayReplaceFile(const wchar_t* target, const wchar_t*) override {
        questions.emplace_back(target);
        return agrees;
    }
    bool MayUseFolder(const wchar_t* target) override {
        questions.emplace_back(target);
        return agrees;
    }

    int units = 0;
    int stopAt = 1000;
    bool agrees = true;
    std::vector<std::wstring> names;
    std::vector<std::wstring> questions;
};

class SingleStepsTest : public testing::Test {
  protected:
    SingleStepsTest() {
        fs::remove_all(home);
        for (const wchar_t* folder : {L"T\\Sub\\Deep", L"To"})
            fs::create_directories(home / folder);
        for (const wchar_t* file : {L"T\\a", L"T\\Sub\\b", L"T\\Sub\\Deep\\c"})
            std::ofstream(home / file) << "new";
    }
    ~SingleStepsTest() override { fs::remove_all(home); }

    ce::StepResult Remove(const wchar_t* name, bool isFolder = true) {
        return steps->Remove({L"\\Temp\\Single", name, isFolder}, watch);
    }
    ce::StepResult Take(bool isMove) {
        return steps->Transfer({L"\\Temp\\Single", L"T", true}, L"\\Temp\\Single\\To", L"T", isMove, watch);
    }
    static bool Has(const wchar_t* path) { return fs::exists(home / path); }

    static inline const fs::path home = L"\\Temp\\Single";
    std::unique_ptr<ce::TreeSteps> steps = MakeSingleSteps();
    Watch watch;
};

TEST_F(SingleStepsTest, DeletesATree) {
    EXPECT_EQ(Remove(L"T"), ce::StepResult::Done);
    EXPECT_FALSE(Has(L"T"));
    EXPECT_EQ(watch.units, 6);
    EXPECT_EQ(watch.names.size(), 6u);
}

TEST_F(SingleStepsTest, WhatBecameSomethingElseIsNotTaken) {
    EXPECT_EQ(Remove(L"T", false), ce::StepResult::Failed);
    EXPECT_EQ(Remove(L"missing"), ce::StepResult::Failed);
    EXPECT_TRUE(Has(L"T\\Sub\\Deep\\c"));
}

TEST_F(SingleStepsTest, CopiesATree) {
    EXPECT_EQ(Take(false), ce::StepResult::Done);
    EXPECT_TRUE(Has(L"To\\T\\Sub\\Deep\\c") && Has(L"To\\T\\a") && Has(L"T\\Sub\\b"));
    EXPECT_EQ(watch.units, 6);
    EXPECT_TRUE(watch.questions.empty());
}

TEST_F(SingleStepsTest, MovesATreeAndLeavesWhatIsSkipped) {
    fs::create_directories(home / L"To\\T\\Sub");
    EXPECT_EQ(Take(true), ce::StepResult::Done);
    EXPECT_EQ(watch.questions,
              (std::vector<std::wstring>{L"\\Temp\\Single\\To\\T", L"\\Temp\\Single\\To\\T\\Sub"}));
    EXPECT_FALSE(Has(L"T"));
    EXPECT_TRUE(Has(L"To\\T\\Sub\\Deep\\c"));
}

TEST_F(SingleStepsTest, ANoLeavesTheFolderWhereItIs) {
    fs::create_directories(home / L"To\\T");
    watch.agrees = false;
    EXPECT_EQ(Take(true), ce::StepResult::Done);
    EXPECT_TRUE(Has(L"T\\a"));
    EXPECT_FALSE(Has(L"To\\T\\a"));
    EXPECT_EQ(watch.units, 0);
}

TEST_F(SingleStepsTest, StopsInTheMiddle) {
    watch.stopAt = 2;
    EXPECT_EQ(Remove(L"T"), ce::StepResult::Stopped);
    EXPECT_EQ(watch.units, 2);
    EXPECT_TRUE(Has(L"T"));
}

} // namespace
