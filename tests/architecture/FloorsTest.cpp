#include "HalvaneTest.h"

#include <QDirIterator>
#include <QFile>
#include <QLibraryInfo>
#include <QRegularExpression>

#include <set>

namespace {

using Floors = QList<QStringList>;

// From the ground up. A room includes itself and what stands on the floors below it; the rooms of one floor do not know
// each other. docs/architecture.md tells what each is for.
const Floors core{
    {u"base"_qs},        {u"db"_qs},     {u"reference"_qs}, {u"customers"_qs, u"price"_qs},
    {u"composition"_qs}, {u"master"_qs}, {u"estimates"_qs}, {u"payments"_qs, u"operations"_qs},
    {u"reports"_qs},
};
const Floors gui{
    {u"ui"_qs},
    {u"reports/engine"_qs},
    {u"reference/screens"_qs},
    {u"customers/screens"_qs, u"price/screens"_qs},
    {u"composition/screens"_qs},
    {u"master/screens"_qs},
    {u"estimates/screens"_qs},
    {u"payments/screens"_qs, u"operations/screens"_qs},
    {u"app"_qs},
};
const Floors house = core + gui;

qsizetype floorOf(const QString& room, const Floors& floors = house) {
    for (qsizetype floor = 0; floor < floors.size(); ++floor)
        if (floors.at(floor).contains(room)) return floor;
    return -1;
}

QString roomOf(const QString& file) { return file.section(u'/', 0, -2); }

QString sourceFolder(const QString& name) { return QStringLiteral(HALVANE_SOURCE_DIR) + u'/' + name; }

QString readAll(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QStringList matches(const QString& text, const QString& pattern) {
    const QRegularExpression form(pattern, QRegularExpression::MultilineOption);
    QStringList found;
    for (auto match = form.globalMatch(text); match.hasNext();) found << match.next().captured(1);
    return found;
}

bool isOf(const QString& module, const QString& header) {
    return header.startsWith(module + u'/') ||
           QFile::exists(QLibraryInfo::path(QLibraryInfo::HeadersPath) + u'/' + module + u'/' + header);
}

bool isOfToolkit(const QString& header) { return header.startsWith(u'Q'); }

struct SourceFile {
    QString text;
    QStringList own;     // files of the system that it includes; those of a form are the headers of its controls
    QStringList outside; // headers of libraries
};

SourceFile readSource(const QString& path) {
    const QString text = readAll(path);
    if (path.endsWith(u".ui")) return {text, matches(text, u"<header[^>]*>([^<]*/[^<]*)</header>"_qs), {}};
    SourceFile file{text, matches(text, uR"x(^\s*#\s*include\s*"(.+)")x"_qs),
                    matches(text, uR"x(^\s*#\s*include\s*<(.+)>)x"_qs)};
    file.own.replaceInStrings(QRegularExpression(uR"x(^ui_(.*)\.h$)x"_qs), u"\\1.ui"_qs);
    return file;
}

} // namespace

// What the includes below src/ say of the house.
class FloorsTest : public QObject {
    Q_OBJECT

private:
    std::map<QString, SourceFile> m_files; // by their paths below src/
    QStringList m_faults;

    // A form is included by its name alone, whichever folder it stands in.
    QString resolved(const QString& include) const {
        if (!include.endsWith(u".ui")) return include;
        for (const auto& [path, file] : m_files)
            if (path.section(u'/', -1) == include) return path;
        return include;
    }

    // Goes on from a file that stands at the end of a path; `done` are the files that lead into no circle.
    void findCircles(QStringList& path, std::set<QString>& done) {
        const QString file = path.last();
        for (const QString& include : m_files[file].own) {
            const QString next = resolved(include);
            const qsizetype earlier = path.indexOf(next);
            if (earlier >= 0) m_faults << path.mid(earlier).join(u" → "_qs) + u" → "_qs + next;
            if (earlier >= 0 || done.contains(next) || !m_files.contains(next)) continue;
            path << next;
            findCircles(path, done);
            path.removeLast();
        }
        done.insert(file);
    }

    void verifyNoFaults() const { QVERIFY2(m_faults.isEmpty(), qPrintable(m_faults.join(u'\n'))); }

private slots:
    void initTestCase() {
        const QString source = sourceFolder(u"src/"_qs);
        QDirIterator files(source, {u"*.h"_qs, u"*.cpp"_qs, u"*.ui"_qs}, QDir::Files, QDirIterator::Subdirectories);
        while (files.hasNext()) {
            const QString path = files.next();
            m_files[path.mid(source.size())] = readSource(path);
        }
        QVERIFY(m_files.size() > 200);
    }
    void init() { m_faults.clear(); }

    void everyRoomHasItsFloor() {
        for (const auto& [path, file] : m_files)
            if (floorOf(roomOf(path)) < 0) m_faults << path;
        verifyNoFaults();
    }

    void everyIncludeNamesAFile() {
        for (const auto& [path, file] : m_files)
            for (const QString& include : file.own)
                if (!m_files.contains(resolved(include))) m_faults << path + u" includes "_qs + include;
        verifyNoFaults();
    }

    void includesPointDown() {
        for (const auto& [path, file] : m_files)
            for (const QString& include : file.own) {
                const QString room = roomOf(resolved(include));
                if (room != roomOf(path) && floorOf(room) >= floorOf(roomOf(path)))
                    m_faults << path + u" includes "_qs + include;
            }
        verifyNoFaults();
    }

    void includesRunInNoCircle() {
        std::set<QString> done;
        for (const auto& [path, file] : m_files) {
            QStringList start{path};
            if (!done.contains(path)) findCircles(start, done);
        }
        verifyNoFaults();
    }

    void coreKnowsNoWindow() {
        for (const auto& [path, file] : m_files)
            for (const QString& header : file.outside)
                if (floorOf(roomOf(path), core) >= 0 && isOfToolkit(header) && !isOf(u"QtCore"_qs, header) &&
                    !isOf(u"QtSql"_qs, header))
                    m_faults << path + u" includes "_qs + header;
        verifyNoFaults();
    }

    // Also by name, as a precompiled header would let it.
    void onlyTheDoorSpeaksToTheDatabase() {
        for (const auto& [path, file] : m_files) {
            if (roomOf(path) == u"db") continue;
            for (const QString& word : matches(file.text, uR"x(\b(Qt?Sql\w*))x"_qs))
                m_faults << path + u" names "_qs + word;
        }
        verifyNoFaults();
    }

    void pageTellsTheseFloors() {
        Floors told;
        for (const QString& rooms :
             matches(readAll(sourceFolder(u"docs/architecture.md"_qs)), u"^\\| \\d+ \\| ([^|]+) \\|"_qs))
            told.prepend(matches(rooms, u"`src/([^`]+)`"_qs));
        QCOMPARE(told, house);
    }
};

HALVANE_TEST(FloorsTest)
#include "FloorsTest.moc"
