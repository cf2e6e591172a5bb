#include "base/clsLogger.h"

#include "base/Dates.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsProfile.h"

#include <QDir>
#include <QFile>

#include <limits>

std::unique_ptr<clsLogger> gLogger;
bool gSqlLogEnabled = false;

namespace {

void prune(const QString& folder, qint64 days) {
    const QString limit = currentDate().addDays(-days).toString(u"yyyyMMdd"_qs);
    QDir directory(folder.isEmpty() ? u"."_qs : folder);
    for (const QString& name : directory.entryList({u"Log*.txt"_qs}, QDir::Files))
        if (name.mid(3, 8) < limit) directory.remove(name);
}

} // namespace

clsLogger::clsLogger() {
    const clsProfile profile;
    const QString folder = profile.GetPath(u"Log"_qs, u"Path"_qs);
    const qint64 days = profile.GetNumber(u"Log"_qs, u"SaveDays"_qs, 0, std::numeric_limits<qint16>::min(),
                                          std::numeric_limits<qint16>::max());
    const QString name = u"Log"_qs + currentDate().toString(u"yyyyMMdd"_qs) + u".txt"_qs;
    m_file = folder.isEmpty() ? name : QDir(folder).filePath(name);
    if (!folder.isEmpty()) QDir().mkpath(folder);
    if (days > 0) prune(folder, days);
}

void clsLogger::WriteLog(const QString& message) const {
    QFile file(m_file);
    // A new one is for its owner alone: it tells who worked on which order.
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append, QFile::ReadOwner | QFile::WriteOwner)) return;
    const QString stamp = formatDate(currentDateTime(), u"yyyy/mm/dd hh:nn:ss"_qs);
    file.write(Text::toCp932(u"\"%1\",\"%2\"\r\n"_qs.arg(stamp, message)));
}

void writeLog(const QString& message) {
    if (gLogger) gLogger->WriteLog(message);
}

void WriteSqlLog(const QString& text) {
    if (gSqlLogEnabled) writeLog(text);
}
