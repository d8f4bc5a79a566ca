#pragma once
// The device shell that the desktop lacks: what its parts know of one another.

#include <windows.h>

#include "platform/ce_types.h"
#include "platform/desktop/bar_heights.h"

struct MenuBarLayout;

/// Starts following the program's windows and listening for the phone's keys. Called once, on the
/// user-interface thread, before the program's first window.
void StartDeviceShell(HINSTANCE instance);

// --- windows.cpp ---

/// The module that the shell's window classes belong to.
HINSTANCE ShellInstance();

/// Registers a class of the shell's own windows. A second call does nothing.
void RegisterShellClass(const wchar_t* name, WNDPROC procedure, HBRUSH background = nullptr);

/// Says which module that is, without the rest of StartDeviceShell.
void SetShellInstance(HINSTANCE instance);

/// The heights of the title strip and of the soft-key bar on this screen.
BarHeights ShellBarHeights();

/// The part of the screen that the programs have: all between the title strip and the soft keys.
RECT WorkArea();

/// Follows a window of the program: its title, its soft keys and its menus. A second call does nothing.
void FollowWindow(HWND window);

/// A bar of the shell was given the activation, as when a window without an owner goes: passes it on to the
/// window whose soft keys are in front.
void PassActivationOn();

/// Whether the window is of this class.
bool IsOfClass(HWND window, const wchar_t* className);

// --- title_strip.cpp ---

bool IsTitleStrip(HWND window);

/// Shows the title of `window`, or of its nearest owner that has one. Makes the strip at the first call.
void ShowTitleOf(HWND window);

/// Shows the title anew after the window or the input panel changed.
void RefreshTitle();

// --- menu_bar.cpp ---

/// To a menu bar: soft key number wParam (0 left, 1 right) was pressed.
constexpr UINT UM_PRESS_SOFT_KEY = WM_APP + 1;

/// The bar whose keys act now: the newest one whose window can take input. Null when there is none.
HWND FrontMenuBar();
bool IsMenuBar(HWND window);
/// Takes the class of the bars' windows back, of which there must be none.
void ForgetMenuBarClass();

/// Gives `parent` a bar with these keys; it takes the place of one that is there. Null when it cannot.
HWND MakeMenuBar(HWND parent, MenuBarLayout layout, bool hidden);

/// The window that the bar's commands and overridden keys go to.
HWND MenuBarParent(HWND bar);

/// What the bar's window asked for with SHCMBM_OVERRIDEKEY: a set of SHMBOF_ flags.
UINT KeyOverride(HWND bar, WPARAM key);

/// Brings the bar of `window`, if it has one, in step with the window's state; in front of others if `raise`.
void UpdateMenuBar(HWND window, bool raise);

// --- soft_keys.cpp ---

struct KeyHooks {
    HHOOK fetched;
    HHOOK menu;
};

/// From now on the phone's keys are taken on this thread. A guest, the shell of a library in a program that
/// has its own, takes only what is for a bar of the library; it has to unhook before the library goes.
KeyHooks ListenForKeys(bool asGuest);

/// Gives the Back key to `window` as an ordinary key that the shell does not take again.
void PassBackKeyOn(HWND window);

// --- dialogs.cpp ---

/// The title strip shows a dialog's title, so that it needs no frame of its own.
void RemoveFrame(HWND dialog);

/// Whether the window is a dialog that SHInitDialog made one of the phone's.
bool IsPhoneDialog(HWND window);

// --- dialog_keys.cpp ---

/// Has a key of the navigation pad, pressed in a dialog, do what it does on the phone: the message may become
/// another.
void TakeNavigationKey(MSG* message);

// --- message_boxes.cpp ---

/// Makes a window that is just being made, if it is a message box, look and answer as on the phone.
void FitMessageBox(HWND window, const CREATESTRUCTW& made);

// --- file_dialog_layout.cpp ---

/// Makes one of the host's file dialogs look and answer as on the phone: it fills the work area, and its
/// buttons are soft keys.
void FitFileDialog(HWND dialog);

/// Its field for the name: with a list of earlier names, or plain.
HWND NameField(HWND dialog);

// --- file_dialog_places.cpp ---

/// The list of folders that leads to the one a file dialog shows.
constexpr int FILE_DIALOG_PLACES = 0x4f0;

/// Gives a file dialog that list in the place of its drives.
void MakePlaces(HWND dialog);

/// Fills the list for the folder that the dialog shows now. It stays on the device.
void ShowPlaces(HWND dialog);

// --- menus.cpp ---

/// Keeps a popup no higher than the work area; what does not fit is scrolled.
void LimitMenuHeight(HMENU menu);

/// Answers WM_MENUCHAR for a digit: the number of an entry, counted without separators, 0 being the tenth.
/// False when `character` picks nothing in `menu`.
bool PickByNumber(HMENU menu, wchar_t character, LRESULT* answer);

/// Keeps a popup's window, which is just being made, inside the work area wherever the platform puts it.
void KeepMenuInWorkArea(HWND menuWindow);

// --- input_panel.cpp ---

bool InputPanelIsUp();

// --- pane_keys.cpp ---

/// Tells the parent of a list view or tree view of a key pressed with Alt, as the phone's controls do and not
/// all of the desktop's. False for a window of another kind.
bool NotifyOfKeyWithAlt(HWND pane, WPARAM key);
