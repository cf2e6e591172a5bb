#pragma once

#include "base/Seams.h"

#include <QByteArray>
#include <QFile>
#include <QTemporaryDir>

// A program folder of the test's own, removed at the end.
class ProgramFolder {
public:
    ProgramFolder() {
        seams().programFolder = [path = m_folder.path()] { return path; };
    }
    ~ProgramFolder() { seams().programFolder = m_before; }
    ProgramFolder(const ProgramFolder&) = delete;
    ProgramFolder& operator=(const ProgramFolder&) = delete;

    QString path(const QString& name = {}) const { return m_folder.filePath(name); }

    void write(const QString& name, const QByteArray& bytes) const {
        QFile file(path(name));
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) qFatal("file not written");
    }
    void writeProfile(const QByteArray& bytes) const { write(u"Halvane.ini"_qs, bytes); }

    QByteArray read(const QString& name) const {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    bool has(const QString& name) const { return QFile::exists(path(name)); }

private:
    QTemporaryDir m_folder;
    std::function<QString()> m_before = seams().programFolder;
};
