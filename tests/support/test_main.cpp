// The entry of both test executables: goes to the phone's drive and runs the tests.

#include <fcntl.h>
#include <io.h>

#include <cstdio>

#include <gtest/gtest.h>
#include <windows.h>

int main(int argc, char** argv) {
    _setmode(_fileno(stdout), _O_BINARY);
    setvbuf(stdout, nullptr, _IONBF, 0);
    testing::InitGoogleTest(&argc, argv);
    if (!SetCurrentDirectoryW(L"E:\\")) {
        std::puts("There is no drive E: for the device. Start the tests with support/run_on_device.sh.");
        return 1;
    }
    return RUN_ALL_TESTS();
}
