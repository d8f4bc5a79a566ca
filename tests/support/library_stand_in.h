#pragma once
// Libraries beside the program, which the device may have or not: "UNZip.dll", "getFiles.dll", and in the
// place of the host's for the network "mpr.dll".

#include <string>
#include <vector>

/// A library that records how it is called and answers what it is told.
class LibraryStandIn {
  public:
    /// Puts the library beside the program, in the place of any that is there.
    explicit LibraryStandIn(const std::wstring& name);
    LibraryStandIn(const LibraryStandIn&) = delete;
    LibraryStandIn& operator=(const LibraryStandIn&) = delete;

    /// From now on every call gets this result, and the text as it stands: no zero is put behind it.
    void Answer(int result, const std::wstring& text = L"");
    /// The calls so far, one line each. An archiver's tells the entry point, the size of its output buffer
    /// and the command.
    std::vector<std::wstring> Calls() const;
    /// Forgets the calls so far.
    void Forget();

  private:
    std::wstring path_;
};

/// Puts a library beside the program that has none of the functions looked for.
void PutLibraryWithoutFunctions(const std::wstring& name);

/// Puts the archiver that is built with the program beside it. A fresh device has none, so that a test says
/// which one it means.
void PutBuiltArchiver();

/// Takes a library away from beside the program.
void RemoveLibrary(const std::wstring& name);
