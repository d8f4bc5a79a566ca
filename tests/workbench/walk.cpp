#include "tests/workbench/walk.h"

#include "tests/workbench/screen_record.h"

void Walk::SetUp() {
    LayFiles();
    ShowExtensions();
    device.Preserve(productKey);
    record_ = _wfopen((L"Z:" + Widen(HostVariable("TARVIK_WALK"))).c_str(), L"wb");
    ASSERT_NE(record_, nullptr) << "TARVIK_WALK names no file";
}

void Walk::TearDown() {
    if (record_)
        std::fclose(record_);
    UiTest::TearDown();
}

void Walk::LayFiles() {
    WORD day = 1;
    for (const wchar_t* path :
         {L"\\Walk\\alpha.txt", L"\\Walk\\beta.doc", L"\\Walk\\gamma.txt", L"\\Walk\\delta",
          L"\\Walk\\epsilon.bmp", L"\\Walk\\Inner\\one.txt", L"\\Walk\\Inner\\two.txt",
          L"\\Walk\\Inner\\Deep\\three.txt", L"\\Walk\\Other\\alpha.txt", L"\\Walk\\Other\\four.txt",
          L"\\Walk\\\u00c4rger.txt"}) {
        device.File(path, std::string(100u * day, static_cast<char>('a' + day)));
        device.SetWriteTime(path, {2006, 5, 0, day++, 10, 20, 30, 0});
    }
    for (const wchar_t* path : {L"\\Walk\\Inner\\Deep", L"\\Walk\\Inner", L"\\Walk\\Other"})
        device.SetWriteTime(path, {2006, 6, 0, day++, 10, 20, 30, 0});
    device.SetAttributes(L"\\Walk\\gamma.txt", FILE_ATTRIBUTE_READONLY);
}

void Walk::Select(const std::vector<std::wstring>& names) {
    Step("select " + Narrow(names.front()) + " and so on", [&] {
        program.List().SelectNothing();
        for (const std::wstring& name : names)
            program.List().AddToSelection(name);
    });
}

void Walk::ExpectNothingOpen(const char* after) {
    EXPECT_FALSE(program.MenuIsOpen() || program.HasDialog() || program.HasMessageBox()) << after;
}

void Walk::WriteDown(const std::string& step) {
    std::fprintf(record_, "=== %d: %s\n%s", ++steps_, step.c_str(), SettledState().c_str());
    std::fflush(record_);
}

std::string Walk::State() const {
    std::string text = DescribeWindows(program.ProcessId());
    for (const wchar_t* folder : {L"\\Walk", L"\\Windows\\Favorites", L"\\My Documents"})
        text += DescribeFiles(folder);
    return text + DescribeRegistry(productKey);
}

/// The state when it has stopped changing.
std::string Walk::SettledState() const {
    constexpr int still = 3, most = 200;
    constexpr DWORD pause = 40; // milliseconds
    std::string last;
    for (int same = 0, round = 0; same < still && round < most; ++round) {
        program.WaitUntilIdle();
        std::string now = State();
        same = now == last ? same + 1 : 0;
        last = std::move(now);
        Sleep(pause);
    }
    return last;
}
