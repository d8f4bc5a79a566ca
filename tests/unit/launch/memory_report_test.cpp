#include "launch/memory_report.h"

#include <string>

#include <gtest/gtest.h>

TEST(MemoryReport, BeginsWithItsTitle) {
    EXPECT_EQ(std::wstring(MemoryReport().Text()), L"Memory Status");
}

TEST(MemoryReport, LinesTellFreeAndTotal) {
    MemoryReport report;
    report.Add(L"Program ", 512 * 1024, 64 << 20);
    report.Add(L"Data\t", 0, 1'023'999);
    EXPECT_EQ(std::wstring(report.Text()), L"Memory Status\r\nProgram : 512.00 KB / 64.00 MB\r\n"
                                           L"Data\t: 0.00 KB / 1,000.00 KB");
}

TEST(MemoryReport, CardsOfManyGigabytesAreToldWhole) {
    MemoryReport report;
    report.Add(L"Card ", std::uint64_t{5} << 30, std::uint64_t{8} << 30);
    EXPECT_EQ(std::wstring(report.Text()), L"Memory Status\r\nCard : 5,120.00 MB / 8,192.00 MB");
}

TEST(MemoryReport, TellsOfAnyNumberOfCards) {
    MemoryReport report;
    const std::wstring label(250, L'c');
    std::wstring expected = L"Memory Status";
    for (int line = 0; line < 40; ++line) {
        report.Add(label, 1, 2);
        expected += L"\r\n" + label + L": 0.00 KB / 0.00 KB";
    }
    EXPECT_EQ(std::wstring(report.Text()), expected);
}
