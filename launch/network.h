#pragma once
// Network shares, connected and disconnected by the platform's own dialogs.

/// Whether the device shows shares in its network folder. With `ask` the user is asked to enable it where it
/// does not; that takes effect only after a reset, so the answer is no all the same.
bool networkFolderEnabled(bool ask);

/// Has the user connect a share. True when one was: the panes are to show it.
bool connectNetwork();

/// Has the user disconnect one. True when one was: the folder shown may be gone.
bool disconnectNetwork();
