#pragma once
// Where a shortcut leads, to look at and to change.

#include "common/dialog_frame.h"
#include "fileops/properties.h"
#include "platform/handles.h"

class ShortcutPage : public DialogFrame {
  public:
    /// The target as typed ends up in `request`.
    explicit ShortcutPage(PropertiesRequest& request);

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;

    bool ReadTarget();
    bool ShowTarget();

    PropertiesRequest& request_;
    IconHandle icon_;
};
