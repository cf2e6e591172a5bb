#include "operations/FileSnapshot.h"

#include "base/AppError.h"
#include "base/WholeFile.h"

#include <QDir>
#include <QElapsedTimer>

#include <cerrno>

namespace {

constexpr qint64 partSize = 1 << 20;
constexpr qint64 quick = 250; // milliseconds of a pass that others may wait for
constexpr int mostPasses = 4; // a file that never reads quickly is copied all the same

} // namespace

FileSnapshot::FileSnapshot(const QString& file, QString target) : m_source(file), m_target(std::move(target)) {
    errno = 0;
    if (!m_source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) fail(m_source);
    if (!m_target.open(QIODevice::ReadWrite | QIODevice::NewOnly | QIODevice::Unbuffered)) fail(m_target);
    m_target.setPermissions(officeFileMode);
}

void FileSnapshot::fail(const QFile& file) const {
    const QString reason = errno != 0 ? systemFailure(errno) : file.errorString();
    throw AppError(u"バックアップを作成できません。\n%1\n%2"_qs.arg(QDir::toNativeSeparators(file.fileName()), reason),
                   u"FileSnapshot"_qs);
}

void FileSnapshot::write(qint64 at, const QByteArray& bytes) {
    errno = 0;
    if (!m_target.seek(at) || m_target.write(bytes) != bytes.size()) fail(m_target);
}

void FileSnapshot::pass(const Progress& progress) {
    QElapsedTimer time;
    time.start();
    const qint64 size = m_source.size();
    m_source.seek(0);
    for (qsizetype part = 0; part * partSize < size; ++part) {
        errno = 0;
        const QByteArray bytes = m_source.read(qMin(partSize, size - part * partSize));
        if (bytes.isEmpty()) {
            if (errno != 0) fail(m_source);
            break; // the file has become shorter since
        }
        const size_t mark = qHashBits(bytes.constData(), bytes.size(), bytes.size());
        const bool isNew = part >= m_marks.size();
        if (isNew || m_marks.at(part) != mark) write(part * partSize, bytes);
        if (isNew)
            m_marks << mark;
        else
            m_marks[part] = mark;
        if (progress) progress(m_source.pos(), size);
    }
    m_marks.resize((size + partSize - 1) / partSize);
    errno = 0;
    if (m_target.size() != size && !m_target.resize(size)) fail(m_target);
    m_lastPass = time.elapsed();
}

void FileSnapshot::copyAhead(const Progress& progress) {
    for (int passes = 0; passes < mostPasses; ++passes) {
        pass(progress);
        if (m_lastPass <= quick) return;
    }
}

void FileSnapshot::complete() { pass({}); }

void FileSnapshot::close() {
    m_source.close();
    errno = 0;
    if (!m_target.flush()) fail(m_target);
    m_target.close();
    if (!fileSynced(m_target.fileName())) fail(m_target);
}
