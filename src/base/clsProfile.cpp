#include "base/clsProfile.h"

#include "base/AppError.h"
#include "base/Numbers.h"
#include "base/Paths.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/WholeFile.h"
#include "base/basMessage.h"

#include <QByteArrayList>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QStringDecoder>
#include <QtNumeric>

#include <algorithm>

#include <algorithm>

namespace {

constexpr int longestValue = 1000; // bytes, as the profile reader of the platform hands them out

// Whether bytes that are more than ASCII are UTF-8. A few texts of the code page could pass for it; a Japanese sign of
// three bytes among them is too much of a coincidence.
bool isUtf8(const QByteArray& bytes) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    const QString text = decoder.decode(bytes);
    return !decoder.hasError() && std::any_of(text.begin(), text.end(), [](QChar sign) {
        return (sign >= u'\u3000' && sign <= u'\u9FFF') || (sign >= u'\uFF01' && sign <= u'\uFF9F');
    });
}

bool isUtf16(const QByteArray& bytes) {
    if (bytes.startsWith("\xFF\xFE") || bytes.startsWith("\xFE\xFF")) return true;
    // Every other byte of its signs is a zero.
    return bytes.size() >= 4 && ((bytes[0] == 0 && bytes[2] == 0) || (bytes[1] == 0 && bytes[3] == 0));
}

// An editor that saves in another encoding would turn every Japanese path into an unknown one.
void refuseOtherEncodings(const QString& path, const QByteArray& bytes) {
    const bool sixteen = isUtf16(bytes);
    if (!sixteen && !bytes.startsWith("\xEF\xBB\xBF") && !isUtf8(bytes)) return;
    throw AppError(u"INIﾌｧｲﾙが %1 で保存されています。Shift_JIS（ANSI）で保存し直してください。\n%2"_qs.arg(
                       sixteen ? u"UTF-16"_qs : u"UTF-8"_qs, path),
                   u"clsProfile"_qs);
}

// The lines as bytes: what is not understood goes back as it came, whatever its spelling.
QByteArrayList readLines(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) throw AppError(u"INIﾌｧｲﾙが見つかりません。"_qs, u"clsProfile"_qs);
    const QByteArray bytes = file.readAll();
    refuseOtherEncodings(path, bytes);
    QByteArrayList lines = bytes.split('\n');
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
    if (Text::cp932Length(value) < longestValue) return value;
    int room = longestValue - 1;
    qsizetype end = 0;
    while (end < value.size()) {
        const QString sign = Text::first(value.mid(end, 2), 1);
        room -= Text::cp932Length(sign);
        if (room < 0) break;
        end += sign.size();
    }
    return value.left(end);
}

QByteArray keyLine(const QString& key, const QString& value) {
    return Text::toCp932(key + u'=' + QString(value).replace(u'\n', u' ').remove(u'\r'));
}

void setValue(QByteArrayList& lines, const QString& section, const QString& key, const QString& value) {
    const Range range = findSection(lines, section);
    const qsizetype at = findKey(lines, range, key);
    if (at >= 0) {
        lines[at] = keyLine(key, value);
    } else if (range.found()) {
        qsizetype end = range.end;
        while (end > range.heading + 1 && lines.at(end - 1).trimmed().isEmpty()) --end;
        lines.insert(end, keyLine(key, value));
    } else {
        lines << Text::toCp932(u'[' + section + u']') << keyLine(key, value);
    }
}

} // namespace

clsProfile::clsProfile() : clsProfile(QDir(programFolder()).filePath(u"Halvane.ini"_qs)) {}

clsProfile::clsProfile(QString file) : m_path(std::move(file)) {
    if (!QFile::exists(m_path)) throw AppError(u"INIﾌｧｲﾙが見つかりません。"_qs, u"clsProfile"_qs);
}

QString clsProfile::Folder() const { return QFileInfo(m_path).path(); }

void clsProfile::DeleteSection(const QString& section) const {
    QByteArrayList lines = readLines(m_path);
    const Range range = findSection(lines, section);
    if (!range.found()) return;
    lines.remove(range.heading, range.end - range.heading);
    writeLines(m_path, lines);
}

void clsProfile::DeleteValue(const QString& section, const QString& key) const {
    QByteArrayList lines = readLines(m_path);
    const Range range = findSection(lines, section);
    const qsizetype at = findKey(lines, range, key);
    if (at < 0) return;
    lines.removeAt(at);
    const auto rest = lines.mid(range.heading + 1, range.end - range.heading - 2);
    if (std::all_of(rest.begin(), rest.end(), [](const QByteArray& line) { return line.trimmed().isEmpty(); }))
        lines.remove(range.heading, range.end - range.heading - 1);
    writeLines(m_path, lines);
}

void clsProfile::SaveValue(const QString& section, const QString& key, const QString& value) const {
    write(section, {{key, value}});
}

void clsProfile::write(const QString& section, const Values& values) const {
    QByteArrayList lines = readLines(m_path);
    for (const auto& [key, value] : values) setValue(lines, section, key, value);
    writeLines(m_path, lines);
}

void clsProfile::Remember(const QString& section, const Values& values) const {
    static QSet<QString> told;
    try {
        write(section, values);
    } catch (const AppError&) {
        if (told.contains(m_path)) return;
        told.insert(m_path);
        ReportError();
    }
}

QString clsProfile::GetValue(const QString& section, const QString& key, const QString& defaultValue) const {
    const QByteArrayList lines = readLines(m_path);
    const qsizetype at = findKey(lines, findSection(lines, section), key);
    if (at < 0) return cutToBytes(defaultValue);
    const QString line = Text::fromCp932(lines.at(at));
    return cutToBytes(unquoted(line.mid(line.indexOf(u'=') + 1).trimmed()));
}

qint64 clsProfile::GetNumber(const QString& section, const QString& key, qint64 defaultValue, qint64 least,
                             qint64 most) const {
    const QString value = GetValue(section, key, QString::number(defaultValue));
    const QString number = narrowNumber(value).remove(u',').trimmed();
    const bool isNumber = isPlainNumber(number);
    const double rounded = isNumber ? roundHalfEven(number.toDouble()) : qQNaN();
    if (rounded >= static_cast<double>(least) && rounded <= static_cast<double>(most))
        return static_cast<qint64>(rounded);
    const AppError fault = isNumber ? Errors::overflow(u"clsProfile"_qs) : Errors::typeMismatch(u"clsProfile"_qs);
    throw AppError(u"%1\nINIﾌｧｲﾙの [%2] の %3（%4）には %5 から %6 までの整数を指定してください。"_qs.arg(
                       fault.description(), section, key, value.isEmpty() ? u"空"_qs : value, QString::number(least),
                       QString::number(most)),
                   fault.source(), fault.number());
}

QString clsProfile::GetPath(const QString& section, const QString& key, const QString& defaultValue) const {
    return ResolvePath(GetValue(section, key, defaultValue), Folder());
}
