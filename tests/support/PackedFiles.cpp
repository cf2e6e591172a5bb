#include "support/PackedFiles.h"

#include <QFile>

#include <archive.h>
#include <archive_entry.h>

void PackedFiles::write(const QString& path, const QList<PackedFile>& files) {
    archive* writer = archive_write_new();
    archive_write_set_format_zip(writer);
    if (archive_write_open_filename(writer, QFile::encodeName(path).constData()) != ARCHIVE_OK) qFatal("no archive");
    for (const PackedFile& file : files) {
        archive_entry* entry = archive_entry_new();
        archive_entry_set_pathname(entry, file.name.toUtf8().constData());
        archive_entry_set_size(entry, file.bytes.size());
        archive_entry_set_filetype(entry, AE_IFREG);
        archive_entry_set_perm(entry, 0644);
        if (archive_write_header(writer, entry) != ARCHIVE_OK) qFatal("no entry");
        archive_write_data(writer, file.bytes.constData(), file.bytes.size());
        archive_entry_free(entry);
    }
    archive_write_close(writer);
    archive_write_free(writer);
}
