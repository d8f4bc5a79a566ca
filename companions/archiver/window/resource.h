#pragma once
// The library's own numbers. Dialogs and controls that look like the program's have the program's.

#define IDR_MENUBAR_ARCHIVER_QUESTION 131
#define IDR_MENU_ARCHIVER_QUESTION 131
#define IDM_ANSWER_NONE 1004
