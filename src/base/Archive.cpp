#include "base/Archive.h"

#include "base/AppError.h"

#include <QDir>
#include <QFile>

#include <archive.h>
#include <archive_entry.h>

#include <memory>

namespace {

constexpr qint64 largest = 256 << 20; // bytes of all files together
constexpr size_t blockSize = 1 << 16;

struct Free {
    void operator()(archive* reader) const { archive_read_free(reader); }
};
using Reader = std::unique_ptr<archive, Free>;

[[noreturn]] void refuse(const QString& path, const QString& reason) {
    throw AppError(u"圧縮ファイルを読み込めません。\n%1\n%2"_qs.arg(QDir::toNativeSeparators(path), reason),
                   u"Archive"_qs);
}

[[noreturn]] void refuse(const QString& path, archive* reader) {
    const char* words = archive_error_string(reader);
    refuse(path, words ? QString::fromLocal8Bit(words) : u"形式が正しくありません。"_qs);
}

Reader open(const QString& path) {
    Reader reader(archive_read_new());
    archive_read_support_format_zip(reader.get());
    if (archive_read_open_filename(reader.get(), QFile::encodeName(path).constData(), blockSize) != ARCHIVE_OK)
        refuse(path, reader.get());
    return reader;
}

QByteArray readEntry(archive* reader, const QString& path, qint64 room) {
    QByteArray bytes;
    QByteArray block(blockSize, Qt::Uninitialized);
    for (;;) {
        const la_ssize_t read = archive_read_data(reader, block.data(), blockSize);
        if (read < 0) refuse(path, reader);
        if (read == 0) return bytes;
        bytes.append(block.constData(), read);
        if (bytes.size() > room) refuse(path, u"大きすぎます。"_qs);
    }
}

} // namespace

QList<PackedFile> unpack(const QString& path, const QString& suffix) {
    const Reader reader = open(path);
    QList<PackedFile> files;
    qint64 room = largest;
    archive_entry* entry = nullptr;
    for (;;) {
        const int state = archive_read_next_header(reader.get(), &entry);
        if (state == ARCHIVE_EOF) return files;
        if (state < ARCHIVE_WARN) refuse(path, reader.get());
        const char* name = archive_entry_pathname(entry);
        const QString shown = QString::fromUtf8(name ? name : "").section(u'/', -1);
        if (!shown.endsWith(suffix, Qt::CaseInsensitive)) continue;
        files << PackedFile{shown, readEntry(reader.get(), path, room)};
        room -= files.last().bytes.size();
    }
}
