#pragma once
// Everything of a program and its device that can be compared, as text.

#include <string>

#include <windows.h>

/// The windows of a process on the screen, topmost first, with all that stands in them: controls and where
/// they lie, texts, checks, rows of lists, nodes of trees, entries of menus. Times and room on the disk are
/// blotted out.
std::string DescribeWindows(DWORD process);

/// Of the same windows only which there are, their titles and places, and which control has the keyboard:
/// quickly.
std::string DescribeFront(DWORD process);

/// The folders and files below a folder of the device, with sizes, attributes and sums of contents.
std::string DescribeFiles(const std::wstring& folder);

/// The keys and values below a key.
std::string DescribeRegistry(const std::wstring& key);
