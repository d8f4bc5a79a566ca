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
            if (program.List().Has(name))
                program.List().AddToSelection(name);
    });
}

void Walk::CloseAll(const char* after) {
    constexpr int mostLevels = 5;
    const auto isOpen = [&] {
        return program.MenuIsOpen() || program.HasDialog() || program.HasMessageBox();
    };
    for (int level = 0; level < mostLevels && isOpen(); ++level)
        Key(VK_ESCAPE);
    EXPECT_FALSE(isOpen()) << after;
    Go(L"\\Walk");
}

void Walk::WriteDown(const std::string& step) {
    Settle();
    std::fprintf(record_, "=== %d: %s\n%s", ++steps_, step.c_str(),
                 DescribeWindows(program.ProcessId()).c_str());
    std::fputs(DescribeDevice().c_str(), record_);
    std::fflush(record_);
}

std::string Walk::DescribeDevice() const {
    std::string text;
    for (const wchar_t* folder : {L"\\Walk", L"\\Windows\\Favorites", L"\\My Documents"})
        text += DescribeFiles(folder);
    return text + DescribeRegistry(productKey);
}

void Walk::Settle() const {
    constexpr int most = 200, quiet = 2;
    std::string last;
    for (int round = 0, same = 0; round < most && same < quiet; ++round) {
        Sleep(pause_);
        program.WaitUntilIdle();
        std::string now = DescribeFront(program.ProcessId()) + Narrow(program.Folder());
        same = now == last ? same + 1 : 0;
        last = std::move(now);
    }
}
