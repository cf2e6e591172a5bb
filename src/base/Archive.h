#pragma once

#include <QByteArray>
#include <QList>
#include <QString>

// A file packed in an archive.
struct PackedFile {
    QString name; // without folders
    QByteArray bytes;
};

// The files of a zip archive whose names end so, without regard to case. An archive that cannot be read, is locked by a
// password, or unpacks to more than a postal book could ever be raises an error with its path.
QList<PackedFile> unpack(const QString& archive, const QString& suffix);
