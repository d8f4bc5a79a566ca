#pragma once
// The program's own registry keys, below HKEY_CURRENT_USER.

constexpr wchar_t productKey[] = L"Software\\Helvane\\Tarvik File Manager+";
constexpr wchar_t settingsKey[] = L"Software\\Helvane\\Tarvik File Manager+\\Settings";
constexpr wchar_t rebarKey[] = L"Software\\Helvane\\Tarvik File Manager+\\Settings\\Rebar";
constexpr wchar_t recentKey[] = L"Software\\Helvane\\Tarvik File Manager+\\Settings\\Recent";
