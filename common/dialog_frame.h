#pragma once
// What all dialogs have in common: a template for each width of the screen, the soft keys, the place, the
// Back key in edit fields and the look of pages.
//
// A dialog derives from DialogFrame, says by a DialogLook what it is made of, and holds only its own
// controls. The functions below are the frame's steps, for dialogs that need an order of their own.

#include "platform/ce_api.h"

/// To be called once, before any dialog: `instance` holds the templates and soft keys, and dialogs lie in the
/// middle of `mainWindow`.
void PrepareDialogs(HINSTANCE instance, HWND mainWindow);

/// Templates for screens 240, 320 and any other number of pixels wide.
using DialogTemplates = int[3];

/// The template for a screen of this width.
int TemplateForWidth(const DialogTemplates& templates, int screenWidth);

/// Runs a modal dialog by its template for this screen; `parameter` arrives with WM_INITDIALOG. Returns what
/// the dialog ended with, -1 when there is no such template.
INT_PTR RunDialog(const DialogTemplates& templates, HWND owner, DLGPROC procedure, void* parameter);

/// Moves a dialog to the middle of the main window.
void CenterDialog(HWND dialog);

/// Makes the soft keys of a dialog.
void AddSoftKeys(HWND dialog, int menuBar);

/// Makes a dialog as large as the screen allows and puts the input panel away.
void FillScreen(HWND dialog);

/// Lets the Back key erase in the dialog's edit fields: to be called once it has its soft keys.
void KeepBackKeyForEdits(HWND dialog);

/// WM_HOTKEY of such a dialog.
void GiveBackKeyToEdit(WPARAM wParam, LPARAM lParam);

/// What a dialog is made of.
struct DialogLook {
    DialogTemplates templates;
    int menuBar = 0;       // the resource of its soft keys
    bool hasEdits = false; // the Back key erases in them
    bool isPage = false;   // it has a page's header: title, line and captions
};

class DialogFrame {
  public:
    DialogFrame(const DialogFrame&) = delete;
    DialogFrame& operator=(const DialogFrame&) = delete;

    /// Shows the dialog over `owner` and returns, once it has ended, what it ended with.
    INT_PTR Run(HWND owner);

  protected:
    /// `look` must outlive the dialog: a constant of the dialog's file.
    explicit DialogFrame(const DialogLook& look) : look_(look) {}
    ~DialogFrame() = default;

    /// Fills the controls; size, place and soft keys are there. The focus goes to the control returned, or to
    /// the first one for null.
    virtual HWND OnInit() = 0;

    /// A soft key, an entry of its menu, or a control with what happened to it. The platform's own request to
    /// close arrives as IDCANCEL.
    virtual void OnCommand(int id, int notification) = 0;

    /// Any other message. 0 when the dialog does nothing about it.
    virtual INT_PTR OnMessage(UINT message, WPARAM wParam, LPARAM lParam);

    HWND Window() const { return window_; }
    HWND Control(int id) const { return GetDlgItem(window_, id); }
    void End(INT_PTR result) { EndDialog(window_, result); }

  private:
    static INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Answer(UINT message, WPARAM wParam, LPARAM lParam);
    INT_PTR Begin();

    const DialogLook& look_;
    HWND window_ = nullptr;
};

/// Makes the one column of a list view as wide as its rows can be seen: a scroll bar takes some of the width.
void FitOnlyColumn(HWND view);
