#include "composition/ItemHelp.h"

#include "base/Text.h"
#include "base/clsProfile.h"
#include "composition/ItemRules.h"

#include <QDir>
#include <QFile>

namespace ItemHelp {

namespace {

constexpr qint64 longestText = 64 * 1024; // what is longer is no explanation of an article

QString inFileName(const QString& text) {
    static const QString never = u"\\/:*?\"<>|"_qs;
    QString name = text;
    for (QChar& sign : name)
        if (never.contains(sign)) sign = QChar(sign.unicode() + 0xFEE0);
    return name;
}

QString fileOf(const QString& section, const Cells& item) {
    const clsProfile profile;
    const QString folder = profile.GetPath(section, u"Path"_qs);
    if (folder.isEmpty()) return {};
    QString type = profile.GetValue(section, u"Type"_qs);
    if (!type.startsWith(u'.')) type.prepend(u'.');
    for (const QString& name : fileNames(item)) {
        const QString path = QDir(folder).filePath(name + type);
        if (QFile::exists(path)) return path;
    }
    return {};
}

} // namespace

QStringList fileNames(const Cells& item) {
    QStringList names;
    const QString id = item.at(ItemRules::RowId).isEmpty() ? ItemRules::idOf(item) : item.at(ItemRules::RowId);
    if (!id.isEmpty()) names << inFileName(id);
    QStringList texts;
    for (int column = ItemRules::Item; column <= ItemRules::Form && !item.at(column).isEmpty(); ++column) {
        texts << inFileName(item.at(column));
        names.insert(id.isEmpty() ? 0 : 1, texts.join(u'_'));
    }
    return names;
}

QString pictureFile(const Cells& item) { return fileOf(u"Image"_qs, item); }

QString text(const Cells& item) {
    QFile file(fileOf(u"Text"_qs, item));
    if (file.fileName().isEmpty() || file.size() > longestText || !file.open(QIODevice::ReadOnly)) return {};
    const QByteArray bytes = file.readAll();
    QString text = QString::fromUtf8(bytes);
    if (text.contains(QChar::ReplacementCharacter)) text = Text::fromCp932(bytes);
    while (!text.isEmpty() && text.back().isSpace()) text.chop(1);
    return text;
}

} // namespace ItemHelp
