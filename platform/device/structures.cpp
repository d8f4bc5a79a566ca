// The records that the program shares with the phone, measured: mingw-w64's headers were made for another
// Windows. Where one is longer here, what the phone reads and writes lies at its beginning, and nothing of it
// holds its size.

#include <cstddef>

#include "platform/ce_api.h"

static_assert(sizeof(void*) == 4 && sizeof(wchar_t) == 2 && sizeof(long) == 4 && sizeof(BOOL) == 4);
static_assert(static_cast<char>(-1) < 0);

// The alignment and the sizes of what is small, as the calling convention has them.
struct OneByte {
    char byte;
};
struct ByteAndLong {
    char byte;
    long long number;
};
enum class Small : int {};
static_assert(sizeof(OneByte) == 1 && offsetof(ByteAndLong, number) == 4 && sizeof(Small) == 4);

static_assert(sizeof(WIN32_FIND_DATAW) == 560 && offsetof(WIN32_FIND_DATAW, cFileName) == 40);
static_assert(sizeof(FILETIME) == 8 && sizeof(SYSTEMTIME) == 16);

static_assert(offsetof(OPENFILENAMEW, lpTemplateName) == 72);
static_assert(sizeof(SHELLEXECUTEINFOW) == 60 && sizeof(SHFILEINFOW) == 692);
static_assert(sizeof(PROCESS_INFORMATION) == 16 && sizeof(MEMORYSTATUS) == 32);
static_assert(sizeof(OSVERSIONINFOW) == 276 && sizeof(CONNECTDLGSTRUCTW) == 20 && sizeof(NUMBERFMTW) == 24);

static_assert(sizeof(WNDCLASSW) == 40 && sizeof(MSG) == 28 && sizeof(LOGFONTW) == 92 &&
              sizeof(PAINTSTRUCT) == 64);
static_assert(sizeof(CREATESTRUCTW) == 48 && sizeof(WINDOWPOS) == 28 && sizeof(COPYDATASTRUCT) == 12);
static_assert(sizeof(NMHDR) == 12 && sizeof(TBBUTTON) == 20);

static_assert(sizeof(TVITEMW) == 40 && sizeof(NMTREEVIEWW) == 104 && sizeof(TVHITTESTINFO) == 16);
static_assert(sizeof(TVINSERTSTRUCTW) >= 52 && offsetof(TVINSERTSTRUCTW, item) == 8);
static_assert(sizeof(LVITEMW) >= 40 && offsetof(LVITEMW, lParam) == 32 && offsetof(LVITEMW, iIndent) == 36);
static_assert(sizeof(LVCOLUMNW) >= 32 && offsetof(LVCOLUMNW, iOrder) == 28);
static_assert(sizeof(LVHITTESTINFO) >= 20 && offsetof(LVHITTESTINFO, iItem) == 12);
static_assert(sizeof(NMLISTVIEW) == 44 && offsetof(NMLVDISPINFOW, item) == 12);
static_assert(offsetof(NMLVKEYDOWN, wVKey) == 12 && sizeof(LVFINDINFOW) == 24);

// The phone's own is 20 bytes long.
static_assert(sizeof(CRITICAL_SECTION) >= 20);

static_assert(sizeof(SHMENUBARINFO) == 36 && sizeof(SHINITDLGINFO) == 12 && sizeof(SHACTIVATEINFO) == 12);
static_assert(sizeof(SIPINFO) == 48 && sizeof(NMRGINFO) == 24);

static_assert(COLOR_HIGHLIGHT == 0x4000000D && COLOR_BTNFACE == 0x4000000F);
static_assert(VK_TBACK == 0x1B && VK_TSOFT1 == 0x70 && VK_TSOFT2 == 0x71);
static_assert(FILE_ATTRIBUTE_STORAGE_CARD == 0x100 && FILE_ATTRIBUTE_INROM == 0x40);
static_assert(SW_SHOW == 5 && SW_MINIMIZE == 6 && SW_MAXIMIZE == 12);
static_assert(WS_CHILD == 0x40000000 && WS_VISIBLE == 0x10000000 && WS_TABSTOP == 0x10000);
