#include "tests/hosthand/hand_test.h"

#include <algorithm>
#include <clocale>
#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include <fcntl.h>

#include "companions/hosthand/removal.h"
#include "companions/hosthand/transfer.h"

namespace fs = std::filesystem;

HandTest::HandTest() {
    std::setlocale(LC_CTYPE, "C.UTF-8");
    std::signal(SIGPIPE, SIG_IGN); // a server that has ended does not end its tests
    std::string place = (fs::temp_directory_path() / "hand-test-XXXXXX").string();
    home_ = mkdtemp(place.data());
}

HandTest::~HandTest() {
    Shell("chmod -R u+rwX . 2>/dev/null; true");
    fs::remove_all(home_);
}

void HandTest::File(const std::string& path, const std::string& content) const {
    fs::create_directories(fs::path(At(path)).parent_path());
    std::ofstream(At(path), std::ios::binary) << content;
}

void HandTest::Folder(const std::string& path) const {
    fs::create_directories(At(path));
}

void HandTest::Link(const std::string& path, const std::string& text) const {
    fs::create_directories(fs::path(At(path)).parent_path());
    ASSERT_EQ(symlink(text.c_str(), At(path).c_str()), 0);
}

void HandTest::Shell(const std::string& line) const {
    ASSERT_EQ(std::system(("cd '" + home_ + "' && " + line).c_str()), 0) << line;
}

bool HandTest::Exists(const std::string& path) const {
    return fs::symlink_status(At(path)).type() != fs::file_type::not_found;
}

std::string HandTest::Content(const std::string& path) const {
    std::ostringstream text;
    text << std::ifstream(At(path), std::ios::binary).rdbuf();
    return text.str();
}

std::string HandTest::Manifest(const std::string& path) const {
    std::vector<std::string> lines;
    const auto note = [&](const fs::path& entry) {
        struct stat status {};
        lstat(entry.c_str(), &status);
        std::ostringstream line;
        line << std::oct << status.st_mode << ' ' << fs::relative(entry.parent_path(), At(path)).string()
             << '/' << (entry == At(path) ? "" : entry.filename().string()) << ' ';
        if (S_ISLNK(status.st_mode))
            line << "-> " << fs::read_symlink(entry).string();
        if (S_ISREG(status.st_mode))
            line << std::ifstream(entry, std::ios::binary).rdbuf();
        lines.push_back(line.str());
    };
    note(At(path));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(At(path)))
        note(entry.path());
    std::ranges::sort(lines);
    std::string all;
    for (const std::string& line : lines)
        all += line + '\n';
    return all;
}

Descriptor HandTest::Open(const std::string& path) const {
    return Descriptor(open(At(path).c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
}

Outcome HandTest::Delete(const std::string& folder, const std::string& name, bool isFolder) {
    const Descriptor opened = Open(folder);
    return Remove({opened.Get(), name, isFolder, cards}, clerk);
}

Outcome HandTest::Take(const std::string& folder, const std::string& name, const std::string& target,
                       bool isMove, bool isFolder) {
    const Descriptor source = Open(folder), into = Open(target);
    TargetNames names(false);
    return Transfer({source.Get(), name, isFolder, cards}, {into.Get(), name, names}, isMove, clerk);
}
