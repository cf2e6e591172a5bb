#include "db/ConnectionSettings.h"

#include "base/AppError.h"
#include "base/Text.h"
#include "base/basCommon.h"
#include "base/clsProfile.h"

#include <limits>

namespace {

// The engines take a time-out as milliseconds in 32 bits.
constexpr qint64 longestTimeout = std::numeric_limits<qint32>::max() / 1000;

Provider providerOf(const QString& name) {
    if (name.compare(u"SQLite"_qs, Qt::CaseInsensitive) == 0) return Provider::SQLite;
    if (name.compare(u"PostgreSQL"_qs, Qt::CaseInsensitive) == 0) return Provider::PostgreSQL;
    throw AppError(
        u"INIﾌｧｲﾙの DB/Provider が正しくありません（%1）。SQLite または PostgreSQL を指定してください。"_qs.arg(name),
        u"ConnectionSettings"_qs);
}

} // namespace

ConnectionSettings ConnectionSettings::fromProfile(const clsProfile& profile) {
    const QString section = u"DB"_qs;
    ConnectionSettings settings;
    settings.provider = providerOf(profile.GetValue(section, u"Provider"_qs));
    settings.user = profile.GetValue(section, u"UserId"_qs, u"Admin"_qs);
    settings.password = profile.GetValue(section, u"PassWd"_qs);
    settings.timeout = profile.GetNumber(section, u"ConnectionTimeout"_qs, 5, 0, longestTimeout);
    settings.database = profile.GetValue(section, u"Database"_qs);
    if (settings.provider == Provider::PostgreSQL) {
        settings.path = Text::rightTrimmed(profile.GetValue(section, u"Path"_qs));
        return settings;
    }
    settings.path = GetDbFilePath(profile);
    return settings;
}

ConnectionSettings ConnectionSettings::sqliteFile(const QString& file) {
    ConnectionSettings settings;
    settings.path = file;
    return settings;
}

QString ConnectionSettings::description() const {
    if (provider == Provider::SQLite) return path;
    return u"PostgreSQL %1 %2"_qs.arg(path.isEmpty() ? u"(local)"_qs : path, database);
}
