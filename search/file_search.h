#pragma once
// "File Search..."

/// Asks what to search for below the folder shown, searches, and shows what was found in the list.
void RunFileSearch();
