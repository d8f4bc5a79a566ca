#pragma once
// The phone shell's own constants and records, which the desktop's headers lack.

#include <windows.h>

constexpr DWORD FILE_ATTRIBUTE_INROM = 0x40;
constexpr DWORD FILE_ATTRIBUTE_STORAGE_CARD = FILE_ATTRIBUTE_TEMPORARY;

constexpr WPARAM VK_TBACK = VK_ESCAPE;
constexpr WPARAM VK_TSOFT1 = VK_F1;
constexpr WPARAM VK_TSOFT2 = VK_F2;

// Menu bar
constexpr DWORD SHCMBF_EMPTYBAR = 0x1;
constexpr DWORD SHCMBF_HIDDEN = 0x2;
constexpr DWORD SHCMBF_HIDESIPBUTTON = 0x4;
constexpr DWORD SHCMBF_COLORBK = 0x8;
constexpr DWORD SHCMBF_HMENU = 0x10;

constexpr UINT SHCMBM_SETSUBMENU = WM_USER + 400;
constexpr UINT SHCMBM_GETSUBMENU = WM_USER + 401;
constexpr UINT SHCMBM_GETMENU = WM_USER + 402;
constexpr UINT SHCMBM_OVERRIDEKEY = WM_USER + 403;
constexpr UINT SHMBOF_NODEFAULT = 0x1;
constexpr UINT SHMBOF_NOTIFY = 0x2;

struct SHMENUBARINFO {
    DWORD cbSize;
    HWND hwndParent;
    DWORD dwFlags;
    UINT nToolBarId;
    HINSTANCE hInstRes;
    int nBmpId;
    int cBmpImages;
    HWND hwndMB;
    COLORREF clrBk;
};

// Dialogs
constexpr DWORD SHIDIM_FLAGS = 0x1;
constexpr DWORD SHIDIF_DONEBUTTON = 0x1;
constexpr DWORD SHIDIF_SIZEDLG = 0x2;
constexpr DWORD SHIDIF_SIZEDLGFULLSCREEN = 0x4;
constexpr DWORD SHIDIF_SIPDOWN = 0x8;
constexpr DWORD SHIDIF_FULLSCREENNOMENUBAR = 0x10;
constexpr DWORD SHIDIF_EMPTYMENU = 0x20;

struct SHINITDLGINFO {
    DWORD dwMask;
    HWND hDlg;
    DWORD dwFlags;
};

// Input panel
constexpr DWORD SIPF_OFF = 0x0;
constexpr DWORD SIPF_ON = 0x1;
constexpr DWORD SIPF_DOCKED = 0x2;
constexpr DWORD SIPF_LOCKED = 0x4;

struct SIPINFO {
    DWORD cbSize;
    DWORD fdwFlags;
    RECT rcVisibleDesktop;
    RECT rcSipRect;
    DWORD dwImDataSize;
    void* pvImData;
};

struct SHACTIVATEINFO {
    DWORD cbSize;
    HWND hwndLastFocus;
    UINT fSipUp : 1;
    UINT fSipOnDeactivation : 1;
    UINT fActive : 1;
    UINT fReserved : 29;
};

// Tap and hold
constexpr UINT GN_CONTEXTMENU = 1000;

struct NMRGINFO {
    NMHDR hdr;
    POINT ptAction;
    DWORD dwItemSpec;
};

// Events
constexpr DWORD EVENT_PULSE = 1;
constexpr DWORD EVENT_RESET = 2;
constexpr DWORD EVENT_SET = 3;

// Special folders; here because the header that has them costs every source a second.
constexpr int CSIDL_DESKTOP = 0x00;
constexpr int CSIDL_PROGRAMS = 0x02;
constexpr int CSIDL_PERSONAL = 0x05;
constexpr int CSIDL_FAVORITES = 0x06;
constexpr int CSIDL_STARTMENU = 0x0b;
constexpr int CSIDL_DESKTOPDIRECTORY = 0x10;
constexpr int CSIDL_FONTS = 0x14;
constexpr int CSIDL_WINDOWS = 0x24;
constexpr int CSIDL_PROGRAM_FILES = 0x26;
