#pragma once
// Starting, and the single instance, which is handed the folder of a second start.

/// Class of the main window and name of the mutex that keeps the instances to one.
constexpr wchar_t instanceName[] = L"Tarvik File ManagerPLUSUNI";
