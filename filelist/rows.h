#pragma once
// The rows of the view. A row points to the record it shows and asks for its texts when it is drawn. When the
// list shows something else its rows stay and are given other records: taking many rows out costs the control
// a time that grows with their square, and so does its own sort.

#include <span>

#include "filelist/file_item.h"

/// Gives the view one row for each record, in this order, none of them selected.
void ShowRows(HWND view, std::span<FileItem* const> items);

/// Gives the rows the same records in another order. Selection, focus and marks go with the records.
void ReorderRows(HWND view, std::span<FileItem* const> items);
