#include "filelist/new_folder_names.h"

#include <gtest/gtest.h>

TEST(NewFolderName, FirstHasNoNumber) {
    EXPECT_EQ(NewFolderName(1).View(), L"New Folder");
}

TEST(NewFolderName, NumbersFollowWithoutABlank) {
    EXPECT_EQ(NewFolderName(2).View(), L"New Folder(2)");
    EXPECT_EQ(NewFolderName(3).View(), L"New Folder(3)");
}

TEST(NewFolderName, LastNumberIs4096) {
    EXPECT_EQ(NewFolderName(lastNewFolderNumber).View(), L"New Folder(4096)");
}
