#pragma once
// Texts between the device (wide) and the host and the test reports (UTF-8).

#include <string>
#include <string_view>

std::string Narrow(std::wstring_view text);
std::wstring Widen(std::string_view text);
