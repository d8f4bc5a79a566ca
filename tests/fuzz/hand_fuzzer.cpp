// Any bytes as what the program says to its hand on the host: nothing goes wrong in memory, the hand comes to
// its end and leaves nothing of its own, and behind links nothing changes.

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

#include <fcntl.h>

#include "companions/hosthand/server.h"

namespace {

namespace fs = std::filesystem;

/// What is reached by a path may change: this no message will name.
constexpr char unnamed[] = "b9c24d51-link";

/// A device and what is beside it, in a folder that goes with the fuzzer.
class Place {
  public:
    Place() {
        std::signal(SIGPIPE, SIG_IGN);
        std::string name = (fs::temp_directory_path() / "hand-fuzz-XXXXXX").string();
        home_ = mkdtemp(name.data());
        fs::create_directory(home_ / "own");
        fs::create_directories(home_ / "outside/sub");
        Write(home_ / "outside/kept", "kept");
    }
    Place(const Place&) = delete;
    Place& operator=(const Place&) = delete;
    ~Place() { fs::remove_all(home_); }

    void Fill() const {
        const fs::path device = home_ / "device";
        fs::remove_all(device);
        fs::create_directories(device / "T/Sub");
        fs::create_directories(device / "To/T");
        Write(device / "a", "a");
        Write(device / "T/a", "new");
        Write(device / "T/Sub/b", "b");
        Write(device / "To/T/A", "old");
        fs::create_directory_symlink("../../outside", device / "T" / unnamed);
        fs::create_symlink("../../../outside/kept", device / "T/Sub" / unnamed);
    }

    void Serve(const std::uint8_t* bytes, std::size_t size) const {
        int ask[2]{};
        if (pipe2(ask, O_CLOEXEC) != 0 || write(ask[1], bytes, size) != static_cast<ssize_t>(size) ||
            close(ask[1]) != 0)
            std::abort();
        Server(Channel(Descriptor(ask[0]), Open("/dev/null", O_WRONLY)), Open(home_ / "device", O_PATH),
               home_ / "own", {}, "abc")
            .Run();
    }

    void Check() const {
        if (!fs::is_directory(home_ / "outside/sub") || Read(home_ / "outside/kept") != "kept" ||
            !fs::is_empty(home_ / "own"))
            std::abort();
    }

  private:
    static Descriptor Open(const fs::path& path, int flags) {
        return Descriptor(open(path.c_str(), flags | O_CLOEXEC));
    }
    static void Write(const fs::path& path, const char* text) { std::ofstream(path) << text; }
    static std::string Read(const fs::path& path) {
        std::ifstream file(path);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    fs::path home_;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    static const Place place;
    place.Fill();
    place.Serve(bytes, size); // no more than a pipe holds
    place.Check();
    return 0;
}
