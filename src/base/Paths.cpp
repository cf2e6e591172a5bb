#include "base/Paths.h"

#include "base/Seams.h"
#include "base/Text.h"

#include <QDir>
#include <QRegularExpression>

QString platformPath(const QString& path) {
    QString native = path;
    return native.replace(u'\\', QDir::separator());
}

QString ResolvePath(const QString& path) { return ResolvePath(path, programFolder()); }

QString ResolvePath(const QString& path, const QString& folder) {
    const QString native = platformPath(Text::rightTrimmed(path));
    if (native.isEmpty() || QDir::isAbsolutePath(native)) return native;
    static const QRegularExpression drive(u"^[A-Za-z]:"_qs);
    if (drive.match(native).hasMatch()) return native;
    return QDir(folder).filePath(native);
}
