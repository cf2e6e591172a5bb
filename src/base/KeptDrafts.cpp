#include "base/KeptDrafts.h"

#include "base/AppError.h"
#include "base/Seams.h"
#include "base/WholeFile.h"
#include "base/clsLogger.h"
#include "base/clsProfile.h"

#include <QCryptographicHash>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSysInfo>
#include <QUuid>

#include <algorithm>

namespace {

constexpr int form = 1; // raised when older programs could not read the content any more

const QString keptSuffix = u"draft"_qs;
const QString savingSuffix = u"saving"_qs;
const QString what = u"下書き"_qs;

QString& lastFailure() {
    static QString failure;
    return failure;
}

QByteArray sumOf(const QByteArray& bytes) {
    return QCryptographicHash::hash(bytes, QCryptographicHash::Sha256).toHex();
}

// The numbers in a draft mean rows of this database; in another one they are somebody else's.
QString office() {
    const clsProfile profile;
    QStringList names;
    for (const QString& key : {u"Provider"_qs, u"Path"_qs, u"Database"_qs}) names << profile.GetValue(u"DB"_qs, key);
    return names.join(u'|');
}

QByteArray fileText(const QByteArray& json) { return sumOf(json) + '\n' + json + '\n'; }

// The object of a file; an empty one for what is not whole.
QJsonObject objectIn(const QByteArray& bytes) {
    const qsizetype end = bytes.indexOf('\n');
    const QByteArray json = bytes.mid(end + 1).chopped(bytes.endsWith('\n') ? 1 : 0);
    if (end < 0 || sumOf(json) != bytes.left(end)) return {};
    return QJsonDocument::fromJson(json).object();
}

QByteArray bytesOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

KeptDraft draftOf(const QFileInfo& file, const QJsonObject& object) {
    KeptDraft draft;
    draft.file = file.filePath();
    draft.kept = file.lastModified();
    draft.duringSave = file.suffix() == savingSuffix;
    if (object[u"form"].toInt() != form) return draft;
    draft.kind = object[u"kind"].toString();
    draft.title = object[u"title"].toString();
    draft.kept = QDateTime::fromString(object[u"kept"].toString(), Qt::ISODate);
    draft.content = object[u"content"].toObject();
    draft.isReadable = true;
    return draft;
}

bool isOfOffice(const QJsonObject& object) {
    return !object.contains(u"office") || object[u"office"].toString() == office();
}

QString newPath() {
    const QString name = QUuid::createUuid().toString(QUuid::WithoutBraces);
    return u"%1/%2.%3"_qs.arg(KeptDrafts::folder(), name, keptSuffix);
}

void makeFolder(const QString& path, QFile::Permissions mode) {
    if (QDir(path).exists()) return;
    if (!QDir().mkpath(path)) throw AppError(u"フォルダを作れません。\n"_qs + path, u"KeptDrafts"_qs);
    QFile::setPermissions(path, mode);
}

// Whoever may work in the office may have drafts there; those of one user are nobody else's to read.
void makeFolders() {
    const QString own = KeptDrafts::folder();
    makeFolder(QFileInfo(own).path(), QFile::permissions(programFolder()));
    makeFolder(own, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
}

} // namespace

QString KeptDrafts::folder() {
    const QString owner = QSysInfo::machineHostName() + u'\n' + QDir::homePath();
    const QByteArray name = QCryptographicHash::hash(owner.toUtf8(), QCryptographicHash::Sha1).toHex().left(16);
    return QDir(programFolder()).filePath(u"drafts/"_qs + QString::fromLatin1(name));
}

QList<KeptDraft> KeptDrafts::left() {
    QList<KeptDraft> drafts;
    const QStringList names{u"*."_qs + keptSuffix, u"*."_qs + savingSuffix};
    for (const QFileInfo& file : QDir(folder()).entryInfoList(names, QDir::Files)) {
        const QJsonObject object = objectIn(bytesOf(file.filePath()));
        if (isOfOffice(object)) drafts << draftOf(file, object);
    }
    std::stable_sort(drafts.begin(), drafts.end(),
                     [](const KeptDraft& a, const KeptDraft& b) { return a.kept > b.kept; });
    return drafts;
}

void KeptDrafts::drop(const QString& file) { QFile::remove(file); }

QString KeptDrafts::failure() { return lastFailure(); }

void DraftKeeping::keep(const std::function<KeptWork()>& collect) {
    if (m_saving) return;
    try {
        const KeptWork work = collect();
        if (work.content != m_content || !QFile::exists(m_file)) write(work);
        lastFailure().clear();
    } catch (const AppError& error) {
        lastFailure() = error.description();
        writeLog(error.description());
    }
}

void DraftKeeping::write(const KeptWork& work) {
    makeFolders();
    const QString path = m_file.isEmpty() ? newPath() : m_file;
    const QJsonObject object{{u"form"_qs, form},
                             {u"office"_qs, office()},
                             {u"kind"_qs, work.kind},
                             {u"title"_qs, work.title},
                             {u"kept"_qs, currentDateTime().toString(Qt::ISODate)},
                             {u"content"_qs, work.content}};
    WholeFile file(path, what);
    file.write(fileText(QJsonDocument(object).toJson(QJsonDocument::Compact)));
    file.commit();
    m_file = path;
    m_content = work.content;
}

void DraftKeeping::takeUp(const KeptDraft& draft) {
    m_file = draft.file;
    m_content = draft.content;
}

void DraftKeeping::forget() {
    if (!m_file.isEmpty()) KeptDrafts::drop(m_file);
    m_file.clear();
    m_content = {};
}

void DraftKeeping::beginSave() {
    m_saving = true;
    moveTo(savingSuffix);
}

void DraftKeeping::endSave() {
    m_saving = false;
    moveTo(keptSuffix);
}

// Where the rename fails the file stays what it is: it is still the work, only the note on the save is missing.
void DraftKeeping::moveTo(const QString& suffix) {
    if (m_file.isEmpty()) return;
    const QFileInfo now(m_file);
    const QString path = now.dir().filePath(now.completeBaseName() + u'.' + suffix);
    if (path == m_file || QFile::rename(m_file, path)) m_file = path;
}
