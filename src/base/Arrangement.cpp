#include "base/Arrangement.h"

#include "base/AppError.h"
#include "base/Seams.h"
#include "base/WholeFile.h"
#include "base/clsLogger.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonDocument>
#include <QStandardPaths>

namespace {

// Far more than what all screens keep; a file that grew beyond is none of ours.
constexpr qint64 largestFile = 1 << 20;

struct State {
    QString file;
    QHash<QString, QJsonObject> session;
};

State& state() {
    static State kept;
    return kept;
}

QJsonObject everything() {
    QFile file(state().file);
    if (state().file.isEmpty() || !file.open(QIODevice::ReadOnly)) return {};
    return QJsonDocument::fromJson(file.read(largestFile)).object();
}

void write(const QJsonObject& all) {
    try {
        QDir().mkpath(QFileInfo(state().file).path());
        WholeFile file(state().file, u"画面の配置のファイル"_qs);
        file.write(QJsonDocument(all).toJson(QJsonDocument::Compact));
        file.commit();
    } catch (const AppError& error) {
        writeLog(error.description());
    }
}

} // namespace

namespace Arrangement {

void keepIn(const QString& file) {
    state() = {};
    state().file = file;
}

QString machineFile(const QString& database) {
    const QString office = QDir(programFolder()).canonicalPath() + u'\n' + database;
    const auto name = QCryptographicHash::hash(office.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    const QDir folder(QStandardPaths::writableLocation(QStandardPaths::AppConfigLocation));
    return folder.filePath(u"arrangement-%1.json"_qs.arg(QString::fromLatin1(name)));
}

QJsonObject of(const QString& name) { return everything().value(name).toObject(); }

void keep(const QString& name, const QJsonObject& object) {
    if (state().file.isEmpty()) return;
    QJsonObject all = everything();
    if (all.value(name).toObject() == object) return;
    all.insert(name, object);
    write(all);
}

QJsonObject ofSession(const QString& name) { return state().session.value(name); }

void keepForSession(const QString& name, const QJsonObject& object) {
    if (!state().file.isEmpty()) state().session.insert(name, object);
}

void beginSession() { state().session.clear(); }

} // namespace Arrangement
