#include "base/clsLogger.h"

#include "base/Dates.h"
#include "base/Numbers.h"
#include "base/Seams.h"
#include "base/Text.h"
#include "base/clsProfile.h"

#include <QDir>
#include <QFile>

std::unique_ptr<clsLogger> gLogger;
bool gSqlLogEnabled = false;

namespace {

void prune(const QString& folder, qint16 days) {
    const QString limit = currentDate().addDays(-days).toString(u"yyyyMMdd"_qs);
    QDir directory(folder.isEmpty() ? u"."_qs : folder);
    for (const QString& name : directory.entryList({u"Log*.txt"_qs}, QDir::Files))
        if (name.mid(3, 8) < limit) directory.remove(name);
}

} // namespace

clsLogger::clsLogger() {
    const clsProfile profile;
    const QString folder = profile.GetPath(u"Log"_qs, u"Path"_qs);
    const qint16 days = ToInt16(profile.GetValue(u"Log"_qs, u"SaveDays"_qs, u"0"_qs));
    const QString name = u"Log"_qs + currentDate().toString(u"yyyyMMdd"_qs) + u".txt"_qs;
    m_file = folder.isEmpty() ? name : QDir(folder).filePath(name);
    if (!folder.isEmpty()) QDir().mkpath(folder);
    if (days > 0) prune(folder, days);
}

void clsLogger::WriteLog(const QString& message) const {
    QFile file(m_file);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append)) return;
    const QString stamp = formatDate(currentDateTime(), u"yyyy/mm/dd hh:nn:ss"_qs);
    file.write(Text::toCp932(u"\"%1\",\"%2\"\r\n"_qs.arg(stamp, message)));
}

void writeLog(const QString& message) {
    if (gLogger) gLogger->WriteLog(message);
}

void WriteSqlLog(const QString& text) {
    if (gSqlLogEnabled) writeLog(text);
}
