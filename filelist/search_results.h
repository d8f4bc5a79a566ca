#pragma once
// What a file search found, kept until the next search. The list shows it as the folder "File Search".

#include <cstdint>
#include <memory>
#include <string_view>

#include "filelist/text_pool.h"
#include "platform/ce_api.h"

struct SearchResult {
    const wchar_t* folder = L""; // this and the name are kept by the SearchResults
    const wchar_t* name = L"";
    DWORD attributes = 0;
    FILETIME time{}; // file: last write, folder: creation, both as the file system has them
    std::uint32_t size = 0;
    std::unique_ptr<SearchResult> next;
    SearchResult* previous = nullptr;
};

/// The chain of results, newest first.
class SearchResults {
  public:
    SearchResults() = default;
    SearchResults(const SearchResults&) = delete;
    SearchResults& operator=(const SearchResults&) = delete;
    ~SearchResults() { Clear(); }

    /// Puts a result at the head and returns it.
    SearchResult* Add(std::wstring_view folder, std::wstring_view name, DWORD attributes, FILETIME time,
                      std::uint32_t size);
    /// Moves a result to another folder.
    void SetFolder(SearchResult& result, std::wstring_view folder) {
        result.folder = folders_.KeepOnce(folder);
    }
    /// Gives a result another name.
    void SetName(SearchResult& result, std::wstring_view name) { result.name = names_.Keep(name); }
    /// Drops one result and returns the one that followed it.
    SearchResult* Remove(SearchResult* result);
    /// The result with exactly this folder and name, or null.
    SearchResult* Find(std::wstring_view folder, std::wstring_view name) const;
    /// Drops all results; safe for any number of them.
    void Clear();
    SearchResult* First() const { return head_.get(); }

  private:
    TextPool folders_;
    TextPool names_;
    std::unique_ptr<SearchResult> head_;
};
