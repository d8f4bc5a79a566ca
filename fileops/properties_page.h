#pragma once
// The properties of one entry: what is known of it, its name and its attributes.

#include "common/dialog_frame.h"
#include "fileops/properties.h"
#include "fileops/properties_rules.h"
#include "platform/handles.h"

class PropertiesPage : public DialogFrame {
  public:
    /// The user's changes end up in `request`; nothing is carried out yet.
    explicit PropertiesPage(PropertiesRequest& request);

  private:
    HWND OnInit() override;
    void OnCommand(int id, int notification) override;

    void GreyMenuEntries();
    void ShowEntry();
    void ShowIconAndType(const Path& path, DWORD attributes);
    void ShowFound(const WIN32_FIND_DATAW& findData);
    void ShowTime(int control, const FILETIME& time);
    void ShowAttributes(DWORD attributes);
    void OnAttributeClick(int control, DWORD attribute);

    PropertiesRequest& request_;
    ObjectKind kind_;
    IconHandle icon_;
};
