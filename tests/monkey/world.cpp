#include "tests/monkey/world.h"

#include <string>

#include <windows.h>

#include "tests/support/host.h"

namespace {

constexpr char playground[] = R"sh(
outside=$TARVIK_WORK/outside
rm -rf "$outside" && mkdir -p "$outside/Entered" && printf kept >"$outside/target.txt"
printf x >"$outside/Entered/x.txt"
mkdir -p Play/Deep/Deeper/Deepest Play/Odd Play/Many Play/Forbidden "Play/$(printf 'n%.0s' $(seq 200))"
seq -f 'Play/Many/file %.0f.txt' 1 20000 | xargs -d '\n' touch
printf text >Play/a.txt; printf text >Play/b.doc; : >Play/empty.txt; truncate -s 5G Play/huge.bin
for i in 1 2 3 4 5; do printf $i >"Play/Deep/Deeper/$i.txt"; done
for name in aux.c 'a&b.txt' '100% .txt' 'x?y*.txt' trailing.; do printf x >"Play/Odd/$name"; done
for name in '\303\204rger \346\227\245.txt' 'bad\377name'; do printf x >"Play/Odd/$(printf "$name")"; done
mkfifo Play/Odd/fifo; ln Play/a.txt Play/Odd/hard
ln -s Deep Play/Link; ln -s nowhere Play/Broken; ln -s .. Play/Deep/Up
ln -s "$outside/target.txt" Play/File; ln -s "$outside/Entered" Play/Outside
chmod 000 Play/Forbidden; chmod 444 Play/b.doc
)sh";

/// What a change would be seen by: names, kinds, sizes, targets of links, and the times of files.
constexpr char listDevice[] =
    R"sh(find . -path ./opened-on-host -prune -o -type d -printf '%p\n' -o -printf '%p %y %s %l %T@\n' 2>/dev/null | sort)sh";
constexpr char listOutside[] =
    R"sh(find "$TARVIK_WORK/outside" -name Entered -prune -o -type f -printf '%p %s %T@ %n\n' -exec cksum {} + | sort)sh";

std::string Into(const char* list, const char* file) {
    return "LC_ALL=C; " + std::string(list) + " >\"$TARVIK_WORK/" + file + "\"\n";
}

std::string Compared(const char* file) {
    return "diff \"$TARVIK_WORK/" + std::string(file) + ".before\" \"$TARVIK_WORK/" + file + ".now\"\n";
}

} // namespace

const wchar_t* const places[13] = {L"",
                                   L"\\",
                                   L"\\Play",
                                   L"\\Play\\Many",
                                   L"\\Play\\Deep\\Deeper",
                                   L"\\Play\\Odd",
                                   L"\\Play\\Forbidden",
                                   L"\\Play\\Link\\Deeper",
                                   L"\\Play\\Deep\\Up\\Play\\Deep\\Up",
                                   L"\\My Documents",
                                   L"\\Windows",
                                   L"\\Nowhere\\At all",
                                   L"\\Play\\..\\Play\\.\\Odd"};

World::World() {
    RunOnHost(playground);
    RunOnHost(Into(listOutside, "outside.before"));
}

void World::RememberDevice() {
    RunOnHost(Into(listDevice, "device.before"));
}

void World::ExpectDeviceUnchanged() const {
    RunOnHost(Into(listDevice, "device.now") + Compared("device"));
}

void World::ExpectOutsideUnchanged() const {
    RunOnHost(Into(listOutside, "outside.now") + Compared("outside"));
}

Disturber::Disturber(unsigned seed) : thread_([this, seed] { Run(Chance(seed)); }) {}

Disturber::~Disturber() {
    ended_ = true;
    thread_.join();
}

void Disturber::Run(Chance chance) {
    while (!ended_) {
        const std::wstring folder = chance.OneIn(3) ? L"E:\\Play\\Many\\" : L"E:\\Play\\";
        const std::wstring name = folder + L"other " + std::to_wstring(chance.UpTo(9));
        switch (chance.UpTo(4)) {
        case 0:
            CloseHandle(CreateFileW(name.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                                    OPEN_ALWAYS, 0, nullptr));
            break;
        case 1:
            CreateDirectoryW(name.c_str(), nullptr);
            break;
        case 2:
            MoveFileW(name.c_str(), (folder + L"other " + std::to_wstring(chance.UpTo(9))).c_str());
            break;
        case 3:
            RemoveDirectoryW(name.c_str());
            break;
        default:
            DeleteFileW(name.c_str());
        }
        Sleep(20 + chance.UpTo(200));
    }
}
