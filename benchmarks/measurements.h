#pragma once
// The measurements, each with its name on ./bench's command line. They run in the started program.

/// Folders of 10,000 and 100,000 entries shown, shown again, left, selected and restyled; bytes of an entry.
void MeasureListing();
/// Orders worked out without a window, and the list's rows put in another order.
void MeasureSorting();
/// Icons of entries drawn again.
void MeasureIcons();
/// Many sibling folders read into the tree, read again and gone, and visited while it is hidden.
void MeasureTree();
/// Names and texts searched for.
void MeasureSearch();
/// Files copied, moved and deleted by the jobs, their dialogs included.
void MeasureJobs();
/// Archives made and extracted, beside the copy job and the host's programs for it.
void MeasureArchives();

constexpr int fewEntries = 10'000;
constexpr int manyEntries = 100'000;
