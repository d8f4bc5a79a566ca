// libarchive's writers call this for what they cannot keep. Its own stands in a file that needs every writer there is.
#include <archive.h>
#include <archive_entry.h>

void __archive_write_entry_filetype_unsupported(struct archive* archive, struct archive_entry* entry,
                                                const char* format) {
    (void)entry;
    archive_set_error(archive, -1, "%s keeps only files and folders", format);
}
