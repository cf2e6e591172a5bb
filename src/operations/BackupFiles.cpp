#include "operations/BackupFiles.h"

#include "base/clsProfile.h"

#include <QDir>
#include <QFileInfo>
#include <QSet>

#include <algorithm>
#include <functional>

namespace BackupFiles {

namespace {

const QString prefix = u"Halvane"_qs;
const QString form = u"yyyyMMddHHmmss"_qs;
constexpr qsizetype stampLength = 14;

constexpr int keptDays = 7;
constexpr int keptWeeks = 5;
constexpr int keptMonths = 12;

QString dayOf(const QDateTime& moment) { return moment.toString(u"yyyyMMdd"_qs); }
QString monthOf(const QDateTime& moment) { return moment.toString(u"yyyyMM"_qs); }
QString weekOf(const QDateTime& moment) {
    int year = 0;
    const int week = moment.date().weekNumber(&year);
    return u"%1-%2"_qs.arg(year).arg(week);
}

// The newest of each of so many periods; `stamps` begin with the newest.
QSet<QString> newestOf(const QStringList& stamps, int periods, const std::function<QString(const QDateTime&)>& period) {
    QSet<QString> seen, kept;
    for (const QString& stamp : stamps) {
        const QString name = period(*momentOf(stamp));
        if (seen.contains(name)) continue;
        if (seen.size() == periods) break;
        seen << name;
        kept << stamp;
    }
    return kept;
}

} // namespace

QString stampOf(const QDateTime& moment) { return moment.toString(form); }

// As clock time: an hour that a change of summer time leaves out is a stamp all the same.
std::optional<QDateTime> momentOf(const QString& stamp) {
    const auto isDigit = [](QChar sign) { return sign >= u'0' && sign <= u'9'; };
    if (stamp.size() != stampLength || !std::all_of(stamp.begin(), stamp.end(), isDigit)) return std::nullopt;
    const QDate date = QDate::fromString(stamp.left(8), u"yyyyMMdd"_qs);
    const QTime time = QTime::fromString(stamp.mid(8), u"HHmmss"_qs);
    if (!date.isValid() || !time.isValid()) return std::nullopt;
    return QDateTime(date, time, Qt::UTC);
}

QString stampIn(const QString& fileName) {
    const QFileInfo file(fileName);
    const QString base = file.completeBaseName();
    if (file.suffix().compare(u"db"_qs, Qt::CaseInsensitive) != 0 || !base.startsWith(prefix)) return {};
    const QString stamp = base.mid(prefix.size());
    return momentOf(stamp) ? stamp : QString();
}

QString databaseName(const QString& stamp) { return prefix + stamp + u".db"_qs; }
QString profileName(const QString& stamp) { return prefix + stamp + u".ini"_qs; }

QStringList list(const QString& folder) {
    QStringList stamps;
    for (const QString& name : QDir(folder).entryList(QDir::Files))
        if (const QString stamp = stampIn(name); !stamp.isEmpty()) stamps << stamp;
    stamps.sort();
    return stamps;
}

QStringList automatic(const QString& folder) {
    QStringList stamps = list(folder);
    stamps.removeIf([&](const QString& stamp) {
        const QString profile = QDir(folder).filePath(profileName(stamp));
        return !QFile::exists(profile) || clsProfile(profile).GetValue(u"Backup"_qs, u"Made"_qs) != u"Auto";
    });
    return stamps;
}

QString shown(const QString& stamp) {
    return u"%1年%2月%3日\u3000%4時%5分%6秒"_qs.arg(stamp.left(4), stamp.mid(4, 2), stamp.mid(6, 2), stamp.mid(8, 2),
                                                    stamp.mid(10, 2), stamp.mid(12, 2));
}

QString stampOfShown(const QString& line) {
    return line.left(4) + line.mid(5, 2) + line.mid(8, 2) + line.mid(12, 2) + line.mid(15, 2) + line.mid(18, 2);
}

QStringList superfluous(const QStringList& stamps) {
    QStringList newestFirst = stamps;
    std::sort(newestFirst.begin(), newestFirst.end(), std::greater<>());
    const QSet<QString> kept = newestOf(newestFirst, keptDays, dayOf) + newestOf(newestFirst, keptWeeks, weekOf) +
                               newestOf(newestFirst, keptMonths, monthOf);
    newestFirst.removeIf([&kept](const QString& stamp) { return kept.contains(stamp); });
    return newestFirst;
}

} // namespace BackupFiles
