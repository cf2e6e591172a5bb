#include "base/clsProfile.h"

#include "base/AppError.h"
#include "base/Paths.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/WholeFile.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>

namespace {

constexpr int longestValue = 1000; // bytes, as the profile reader of the platform hands them out

// The lines as bytes: what is not understood goes back as it came, whatever its spelling.
QByteArrayList readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw AppError(u"INIﾌｧｲﾙが見つかりません。"_qs, u"clsProfile"_qs);
    QByteArrayList lines = file.readAll().split('\n');
    for (QByteArray& line : lines)
        if (line.endsWith('\r')) line.chop(1);
    while (!lines.isEmpty() && lines.last().isEmpty()) lines.removeLast();
    return lines;
}

void writeLines(const QString& path, const QByteArrayList& lines) {
    WholeFile file(path, u"INIﾌｧｲﾙ"_qs);
    file.write(lines.join("\r\n") + "\r\n");
    file.commit();
}

bool same(const QString& left, const QString& right) { return left.compare(right, Qt::CaseInsensitive) == 0; }

bool isSection(const QByteArray& line) { return line.trimmed().startsWith('['); }

QString sectionName(const QByteArray& line) {
    const QString trimmed = Text::fromCp932(line).trimmed();
    const qsizetype end = trimmed.indexOf(u']');
    return trimmed.mid(1, (end < 0 ? trimmed.size() : end) - 1).trimmed();
}

// The lines of a section without its heading; first > last when the section is missing.
struct Range {
    qsizetype heading = -1;
    qsizetype end = 0;
    bool found() const { return heading >= 0; }
};

Range findSection(const QByteArrayList& lines, const QString& section) {
    Range range;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!isSection(lines.at(i))) continue;
        if (range.found()) {
            range.end = i;
            return range;
        }
        if (same(sectionName(lines.at(i)), section)) range.heading = i;
    }
    range.end = lines.size();
    return range;
}

qsizetype findKey(const QByteArrayList& lines, const Range& range, const QString& key) {
    if (!range.found()) return -1;
    for (qsizetype i = range.heading + 1; i < range.end; ++i) {
        const QString line = Text::fromCp932(lines.at(i));
        if (line.trimmed().startsWith(u';')) continue;
        const qsizetype equals = line.indexOf(u'=');
        if (equals > 0 && same(line.left(equals).trimmed(), key)) return i;
    }
    return -1;
}

QString unquoted(const QString& value) {
    const bool quoted = value.size() >= 2 && (value.startsWith(u'"') || value.startsWith(u'\''));
    return quoted && value.endsWith(value.at(0)) ? value.mid(1, value.size() - 2) : value;
}

// Cutting bytes may split a double-byte character; its half is dropped, never read as another one.
QString cutToBytes(const QString& value) {
    const QByteArray bytes = Text::toCp932(value);
    if (bytes.size() < longestValue) return value;
    QString cut = value;
    while (Text::cp932Length(cut) > longestValue - 1) cut.chop(cut.back().isLowSurrogate() ? 2 : 1);
    return cut;
}

} // namespace

clsProfile::clsProfile() : clsProfile(QDir(programFolder()).filePath(u"Halvane.ini"_qs)) {}

clsProfile::clsProfile(QString file) : m_path(std::move(file)) {
    if (!QFile::exists(m_path)) throw AppError(u"INIﾌｧｲﾙが見つかりません。"_qs, u"clsProfile"_qs);
}

void clsProfile::DeleteSection(const QString& section) const {
    QByteArrayList lines = readLines(m_path);
    const Range range = findSection(lines, section);
    if (!range.found()) return;
    lines.remove(range.heading, range.end - range.heading);
    writeLines(m_path, lines);
}

void clsProfile::SaveValue(const QString& section, const QString& key, const QString& value) const {
    QByteArrayList lines = readLines(m_path);
    const QByteArray line = Text::toCp932(key + u'=' + QString(value).replace(u'\n', u' ').remove(u'\r'));
    Range range = findSection(lines, section);
    const qsizetype at = findKey(lines, range, key);
    if (at >= 0) {
        lines[at] = line;
    } else if (range.found()) {
        qsizetype end = range.end;
        while (end > range.heading + 1 && lines.at(end - 1).trimmed().isEmpty()) --end;
        lines.insert(end, line);
    } else {
        lines << Text::toCp932(u'[' + section + u']') << line;
    }
    writeLines(m_path, lines);
}

QString clsProfile::GetValue(const QString& section, const QString& key, const QString& defaultValue) const {
    const QByteArrayList lines = readLines(m_path);
    const qsizetype at = findKey(lines, findSection(lines, section), key);
    if (at < 0) return cutToBytes(defaultValue);
    const QString line = Text::fromCp932(lines.at(at));
    return cutToBytes(unquoted(line.mid(line.indexOf(u'=') + 1).trimmed()));
}

QString clsProfile::GetPath(const QString& section, const QString& key, const QString& defaultValue) const {
    return ResolvePath(GetValue(section, key, defaultValue));
}
